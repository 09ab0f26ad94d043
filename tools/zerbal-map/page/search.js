// The search box: a text field with a list of what was found (the combobox pattern of ARIA).

const MOST_RESULTS = 20;

/** Without letter case and accents. */
function folded(text) {
  return text.normalize("NFD").replace(/\p{M}/gu, "").toLowerCase();
}

class Search {
  /** `choose` is called with the link of an airport or a flight. */
  constructor(field, list, model, choose) {
    this.field = field;
    this.list = list;
    this.choose = choose;
    this.entries = entriesOf(model);
    this.found = [];
    this.active = -1;
    field.addEventListener("input", () => this.update());
    field.addEventListener("focus", () => this.update());
    field.addEventListener("blur", () => this.close());
    field.addEventListener("keydown", (event) => this.key(event));
    // A press on the list must not take the focus, which closes it.
    list.addEventListener("pointerdown", (event) => event.preventDefault());
    list.addEventListener("click", (event) => this.take([...list.children].indexOf(event.target.closest("li"))));
  }

  /** Every word of the query must be in an entry; those that are or begin with the query come first. */
  find(query) {
    const words = folded(query).split(/[\s,>-]+/).filter(Boolean);
    if (words.length === 0) return [];
    const rank = (entry) => {
      if (!words.every((word) => entry.text.includes(word))) return Infinity;
      if (entry.name === words[0]) return 0;
      if (entry.name.startsWith(words[0])) return 1;
      return words.every((word) => ` ${entry.text}`.includes(` ${word}`)) ? 2 : 3;
    };
    return this.entries
      .map((entry) => ({ entry, rank: rank(entry) }))
      .filter((found) => found.rank < Infinity)
      .sort((a, b) => a.rank - b.rank)
      .slice(0, MOST_RESULTS)
      .map((found) => found.entry);
  }

  update() {
    const query = this.field.value.trim();
    this.found = this.find(query);
    this.active = this.found.length > 0 ? 0 : -1;
    const items = this.found.map((entry, index) =>
      element("li", { id: `result-${index}`, role: "option" }, element("strong", {}, entry.title), element("span", {}, entry.detail)),
    );
    if (query !== "" && items.length === 0) items.push(element("li", { className: "none" }, "Nothing found"));
    this.list.replaceChildren(...items);
    this.open(items.length > 0);
  }

  open(isOpen) {
    this.list.hidden = !isOpen;
    this.field.setAttribute("aria-expanded", String(isOpen));
    this.mark();
  }

  close() {
    this.found = [];
    this.active = -1;
    this.open(false);
  }

  mark() {
    [...this.list.children].forEach((item, index) => {
      if (item.getAttribute("role") === "option") item.setAttribute("aria-selected", String(index === this.active));
      if (index === this.active) item.scrollIntoView({ block: "nearest" });
    });
    if (this.active >= 0) this.field.setAttribute("aria-activedescendant", `result-${this.active}`);
    else this.field.removeAttribute("aria-activedescendant");
  }

  take(index) {
    const entry = this.found[index];
    if (!entry) return;
    this.field.value = "";
    this.close();
    this.choose(entry.link);
  }

  key(event) {
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (step && this.found.length > 0) {
      event.preventDefault();
      this.active = (this.active + step + this.found.length) % this.found.length;
      this.mark();
    } else if (event.key === "Enter") {
      event.preventDefault();
      this.take(this.active);
    } else if (event.key === "Escape") {
      this.field.value = "";
      this.close();
    }
  }
}

function entriesOf(model) {
  const airports = model.airports.map((airport) => ({
    title: airport.code,
    detail: airport.label.slice(airport.code.length + 3),
    name: folded(airport.code),
    text: folded(airport.label),
    link: linkOf("airport", airport.code),
  }));
  const flights = model.flights.map((flight) => ({
    title: flight.number,
    detail: flight.route.join(" "),
    name: folded(flight.number),
    text: folded(`${flight.number} ${flight.route.join(" ")}`),
    link: linkOf("flight", flight.id),
  }));
  return [...airports, ...flights];
}

function linkOf(kind, key) {
  return `#${kind}=${encodeURIComponent(key)}`;
}
