// Labels of airports and numbers of flights: as many as find a place where they cover nothing. Airports with more flights
// come first, then the numbers of the flights on a leg, with one label for all of them.

const LABEL_HEIGHT = 13; // pixels
const MARK_RADIUS = 4;
const GRID_SIZE = 64;
const OUTSIDE = 100; // pixels around the screen where labels are placed too, so that none changes at its edge

/** Rectangles that must not overlap. */
class Occupied {
  constructor() {
    this.cells = new Map();
  }

  *cellsOf(box) {
    for (let x = Math.floor(box.left / GRID_SIZE); x <= Math.floor(box.right / GRID_SIZE); ++x)
      for (let y = Math.floor(box.top / GRID_SIZE); y <= Math.floor(box.bottom / GRID_SIZE); ++y)
        yield x * 65536 + y;
  }

  add(box) {
    for (const cell of this.cellsOf(box)) {
      if (!this.cells.has(cell)) this.cells.set(cell, []);
      this.cells.get(cell).push(box);
    }
  }

  isFree(box) {
    for (const cell of this.cellsOf(box))
      for (const other of this.cells.get(cell) ?? [])
        if (box.left < other.right && box.right > other.left && box.top < other.bottom && box.bottom > other.top)
          return false;
    return true;
  }
}

class Labels {
  constructor(group, view, model) {
    this.group = group;
    this.view = view;
    this.model = model;
    this.chosen = null; // the only flights whose numbers are placed
    this.texts = new Map(); // elements by what they are the label of
    this.widths = new Map();
    this.context = document.createElement("canvas").getContext("2d");
    this.family = getComputedStyle(document.body).fontFamily;
    this.airports = [...model.airports].sort((a, b) => b.flights.length - a.flights.length);
    this.legs = model.options.numbers ? sharedLegs(model) : [];
  }

  /** The first `strong` letters are strong. */
  widthOf(text, strong = 0) {
    const measured = (part, weight) => {
      this.context.font = `${weight} 11px ${this.family}`;
      return this.context.measureText(part).width;
    };
    if (!this.widths.has(text)) {
      const width = measured(text.slice(0, strong), 600) + measured(text.slice(strong), 400);
      this.widths.set(text, Math.ceil(width) + 2);
    }
    return this.widths.get(text);
  }

  place() {
    const occupied = new Occupied();
    const placed = new Set();
    const { width, height } = this.view.screen;
    this.start = this.view.toScreen({ x: 0, y: 0 });
    this.end = this.view.toScreen({ x: this.model.width, y: this.model.height });
    const isNear = (at) => at.x > -OUTSIDE && at.x < width + OUTSIDE && at.y > -OUTSIDE && at.y < height + OUTSIDE;
    const airports = [];
    for (const airport of this.airports) {
      const at = this.view.toScreen(airport);
      if (!isNear(at) || !this.model.isAirportShown(airport)) continue;
      airports.push({ airport, at });
      occupied.add({ left: at.x - MARK_RADIUS, right: at.x + MARK_RADIUS, top: at.y - MARK_RADIUS, bottom: at.y + MARK_RADIUS });
    }
    for (const { airport, at } of airports) this.placeAirport(airport, at, occupied, placed);
    for (const leg of this.legs) this.placeLeg(leg, occupied, placed, isNear);
    for (const [owner, text] of this.texts) {
      if (placed.has(owner)) continue;
      text.remove();
      this.texts.delete(owner);
    }
  }

  placeAirport(airport, at, occupied, placed) {
    const texts = this.view.zoom >= 6 ? [airport.label, airport.code] : [airport.code];
    for (const text of texts) {
      const width = this.widthOf(text, airport.code.length);
      const gap = MARK_RADIUS + 2;
      const right = at.x + gap;
      const left = at.x - gap - width;
      const middle = at.x - width / 2;
      const level = at.y - LABEL_HEIGHT / 2;
      const above = at.y - gap - LABEL_HEIGHT;
      const below = at.y + gap;
      const corners = [
        [right, level], [left, level], [middle, above], [middle, below],
        [right, above], [right, below], [left, above], [left, below],
      ];
      const free = this.firstFree(corners, width, occupied);
      if (!free) continue;
      this.show(airport, text, free, placed, { class: airport.destination ? "airport" : "other", strong: airport.code.length });
      return;
    }
  }

  placeLeg(leg, occupied, placed, isNear) {
    const flights = leg.flights.filter(
      ({ flight }) => this.model.isFlightShown(flight) && (this.chosen === null || this.chosen.has(flight)),
    );
    if (flights.length === 0) return;
    const [from, to] = [this.view.toScreen(leg.from), this.view.toScreen(leg.to)];
    const text = flights.length === 1 ? flights[0].label : `${flights[0].label} +${flights.length - 1}`;
    const width = this.widthOf(text);
    if (Math.hypot(to.x - from.x, to.y - from.y) < width + 40) return;
    const corners = [0.5, 0.35, 0.65]
      .map((part) => ({ x: from.x + (to.x - from.x) * part, y: from.y + (to.y - from.y) * part }))
      .filter(isNear)
      .map((at) => [at.x - width / 2, at.y - LABEL_HEIGHT / 2]);
    const free = this.firstFree(corners, width, occupied);
    if (free) this.show(leg, text, free, placed, { class: `numbers s${flights[0].service}`, strong: 0 });
  }

  isOnMap(box) {
    return box.left >= this.start.x && box.right <= this.end.x && box.top >= this.start.y && box.bottom <= this.end.y;
  }

  firstFree(corners, width, occupied) {
    for (const [left, top] of corners) {
      const box = { left, top, right: left + width, bottom: top + LABEL_HEIGHT };
      if (!this.isOnMap(box) || !occupied.isFree(box)) continue;
      occupied.add(box);
      return box;
    }
    return null;
  }

  show(owner, text, box, placed, style) {
    placed.add(owner);
    if (!this.texts.has(owner)) {
      this.texts.set(owner, svgElement("text", {}));
      this.group.append(this.texts.get(owner));
    }
    const label = this.texts.get(owner);
    if (label.textContent !== text) {
      const code = svgElement("tspan", {});
      code.textContent = text.slice(0, style.strong);
      label.replaceChildren(...(style.strong > 0 ? [code] : []), text.slice(style.strong));
    }
    // The base line, so that capitals are in the middle of the box.
    const at = this.view.toMap({ x: box.left + 1, y: box.top + 10.5 });
    label.setAttribute("x", at.x.toFixed(1));
    label.setAttribute("y", at.y.toFixed(1));
    label.setAttribute("class", style.class);
  }
}

/** The lines of legs between the same two points, with their flights; those with more flights first. */
function sharedLegs(model) {
  const legs = new Map();
  for (const flight of model.flights) {
    flight.legs.forEach((leg, index) => {
      const number = `${flight.number} (${index + 1}/${flight.legs.length})`;
      const label = model.options.legNumbers ? number : flight.number;
      for (const line of leg.lines) {
        const from = { x: line[0], y: line[1] };
        const to = { x: line[line.length - 2], y: line[line.length - 1] };
        const key = [`${from.x},${from.y}`, `${to.x},${to.y}`].sort().join(" ");
        if (!legs.has(key)) legs.set(key, { from, to, flights: [] });
        const shared = legs.get(key).flights;
        if (!shared.some((other) => other.flight === flight)) shared.push({ flight, label, service: flight.service });
      }
    });
  }
  return [...legs.values()].sort((a, b) => b.flights.length - a.flights.length);
}
