// The page: puts map, panel and search together. What is selected is in the address, so that a link can name it.

const MOST_TIP_LINES = 8;
const MOST_LINES_OF_SMALL_TIP = 3; // on a map of less than SMALL_MAP pixels
const SMALL_MAP = 560;
const REACH = 6; // pixels, as in the program
const TOUCH_REACH = 16;

const byId = (id) => document.getElementById(id);

class Page {
  constructor() {
    document.documentElement.classList.add("script");
    this.model = new Model(JSON.parse(byId("data").textContent));
    this.map = byId("map");
    this.tip = byId("tip");
    this.card = byId("card");
    this.view = new View(byId("drawing"), this.model.width, this.model.height, () => this.viewChanged());
    this.labels = new Labels(byId("labels"), this.view, this.model);
    this.input = new MapInput(this.map, this.view, {
      point: (place) => this.point(place),
      leave: () => this.hideTip(),
      click: (place, touch) => this.click(place, touch ? TOUCH_REACH : REACH),
      describe: () => this.describe(),
      search: () => byId("query").focus(),
      clear: () => this.go(""),
    });
    this.search = new Search(byId("query"), byId("results"), this.model, (link) => this.go(link));
    this.connect();
    this.view.draw();
    this.followAddress();
  }

  connect() {
    byId("zoom-in").addEventListener("click", () => this.view.zoomBy(2));
    byId("zoom-out").addEventListener("click", () => this.view.zoomBy(0.5));
    byId("zoom-all").addEventListener("click", () => this.view.showAll());
    byId("show-all").addEventListener("click", () => this.showServices(() => true));
    byId("show-none").addEventListener("click", () => this.showServices(() => false));
    this.boxes = [...document.querySelectorAll(".services input")];
    this.boxes.forEach((box) => box.addEventListener("change", () => this.showServices((i) => this.boxes[i].checked)));
    window.addEventListener("hashchange", () => this.followAddress());
    document.addEventListener("keydown", (event) => {
      if (event.key === "Escape" && event.target.id !== "query") this.go("");
    });
  }

  viewChanged() {
    byId("zoom-in").disabled = this.view.unit <= this.view.closest();
    byId("zoom-out").disabled = byId("zoom-all").disabled = this.view.unit >= this.view.widest();
    this.labels?.place();
  }

  /** `isShown` is asked with the position of each service. */
  showServices(isShown) {
    this.model.services.forEach((service, i) => {
      service.shown = isShown(i);
      this.boxes[i].checked = service.shown;
      byId("services").querySelector(`.s${i}`)?.toggleAttribute("hidden", !service.shown);
    });
    const marks = (destination) =>
      this.model.airports
        .filter((airport) => airport.destination === destination && this.model.isAirportShown(airport))
        .map((airport) => `M${airport.x} ${airport.y}h0`)
        .join("");
    byId("marks").querySelector(".airports").setAttribute("d", marks(false));
    byId("marks").querySelector(".destinations").setAttribute("d", marks(true));
    this.highlight();
  }

  // What is near a place

  near(place, reach) {
    return this.model.near(this.view.toMap(place), reach * this.view.unit, this.view.unit);
  }

  point(place) {
    const found = this.near(place, REACH);
    this.map.classList.toggle("near", found.length > 0);
    this.showTip(found, place);
  }

  describe() {
    const { width, height } = this.view.screen;
    this.showTip(this.near({ x: width / 2, y: height / 2 }, TOUCH_REACH), { x: width / 2, y: height / 2 });
  }

  textOf(found) {
    return found.airport ? this.model.airportText(found.airport) : this.model.legText(found.leg);
  }

  showTip(found, place) {
    this.tip.hidden = found.length === 0;
    if (this.tip.hidden) return;
    const { width, height } = this.view.screen;
    const most = Math.min(width, height) < SMALL_MAP ? MOST_LINES_OF_SMALL_TIP : MOST_TIP_LINES;
    const lines = found.slice(0, most).map((one) => {
      const className = one.leg ? `s${one.leg.flight.service}` : one.airport.destination ? "destination" : "airport";
      return element("div", { className }, this.textOf(one));
    });
    if (found.length > most) lines.push(element("div", {}, `and ${found.length - most} more`));
    this.tip.replaceChildren(...lines);
    // Right of and below the place, or on the other side where that is outside.
    const box = this.tip.getBoundingClientRect();
    const beside = (at, length, size) => (at + 14 + length <= size - 8 ? at + 14 : Math.max(at - 14 - length, 8));
    const left = Math.min(beside(place.x, box.width, width), Math.max(width - box.width - 8, 8));
    this.tip.style.transform = `translate(${Math.round(left)}px, ${Math.round(beside(place.y, box.height, height))}px)`;
  }

  hideTip() {
    this.tip.hidden = true;
    this.map.classList.remove("near");
  }

  /** An airport or a single flight is selected; several are listed. */
  click(place, reach) {
    const found = this.near(place, reach);
    this.showTip(found, place);
    const flights = [...new Set(found.filter((one) => one.leg).map((one) => one.leg.flight))];
    this.stays = true; // what was clicked is in view
    if (found[0]?.airport) this.go(linkOf("airport", found[0].airport.code));
    else if (flights.length === 1) this.go(linkOf("flight", flights[0].id));
    else this.go("");
    if (flights.length > 1 && !found[0].airport) this.select(flights, `${flights.length} flights here`, "");
    this.stays = false;
  }

  // The selection

  go(link) {
    if (location.hash !== link) history.pushState(null, "", link || location.pathname + location.search);
    this.followAddress();
  }

  followAddress() {
    const [, kind, text] = /^#(flight|airport)=(.*)$/.exec(location.hash) ?? [];
    const key = decoded(text);
    const flight = kind === "flight" ? this.model.flightOf.get(key) : undefined;
    const airport = kind === "airport" ? this.model.airportOf.get(key) : undefined;
    if (flight) this.selectFlight(flight);
    else if (airport) this.selectAirport(airport);
    else this.select([], "", "");
  }

  selectFlight(flight) {
    const lines = flight.legs.map((leg) => element("li", {}, leg.text));
    const parts = [this.model.services[flight.service].name, flight.length].filter(Boolean);
    if (flight.legs.every((leg) => leg.lines.length === 0)) parts.push("outside of this map");
    this.select([flight], flight.number, parts.join(" · "), lines);
  }

  selectAirport(airport) {
    const facts = airport.facts.replace(/^, /, "");
    this.select(airport.flights, airport.label, facts, undefined, airport);
  }

  /** Without `lines`, the card has a link to each flight. */
  select(flights, title, detail, lines, airport) {
    this.selected = flights;
    for (const row of document.querySelectorAll("#flights tr[aria-current]")) row.removeAttribute("aria-current");
    this.card.hidden = title === "";
    if (!this.card.hidden) this.fillCard(title, detail, lines ?? flights.map((flight) => this.flightLine(flight)));
    if (lines) document.getElementById(`flight-${this.model.flights.indexOf(flights[0])}`)?.setAttribute("aria-current", "true");
    this.highlight();
    if (!this.card.hidden && !this.stays) this.showSelection(airport);
  }

  fillCard(title, detail, lines) {
    const close = element("button", { type: "button", onclick: () => this.go("") }, "Close");
    this.card.replaceChildren(
      element("div", { className: "heading" }, element("h2", {}, title), close),
      element("p", {}, detail),
      element("ol", {}, ...lines),
    );
  }

  flightLine(flight) {
    const link = element("a", { href: linkOf("flight", flight.id) }, flight.number);
    return element("li", {}, link, ` ${flight.route.join(" ")}`);
  }

  highlight() {
    const shown = this.selected?.filter((flight) => this.model.isFlightShown(flight)) ?? [];
    const lines = new Map();
    for (const flight of shown) {
      const known = lines.get(flight.service) ?? [];
      lines.set(flight.service, [...known, ...flight.legs.flatMap((leg) => leg.lines)]);
    }
    const drawn = [...lines].filter(([, all]) => all.length > 0);
    const paths = drawn.map(([service, all]) => svgElement("path", { class: `s${service}`, d: pathOf(all) }));
    byId("selection").replaceChildren(...paths);
    this.labels.chosen = paths.length > 0 ? new Set(shown) : null;
    this.view.refresh();
    byId("drawing").classList.toggle("selected", paths.length > 0);
  }

  showSelection(airport) {
    const lines = this.selected.flatMap((flight) => flight.legs.flatMap((leg) => leg.lines));
    if (airport) lines.push([airport.x, airport.y]);
    const bounds = boundsOf(lines);
    if (bounds) this.view.showBounds(bounds);
  }
}

/** The empty text for what is not encoded correctly. */
function decoded(text = "") {
  try {
    return decodeURIComponent(text);
  } catch {
    return "";
  }
}

new Page();
