// Airports and flights of the page, and which of them are shown.

class Model {
  constructor(data) {
    this.width = data.width;
    this.height = data.height;
    this.options = data.options;
    this.airports = data.airports;
    this.flights = data.flights;
    this.services = data.services.map((name) => ({ name, shown: true }));
    this.airportOf = new Map(this.airports.map((airport) => [airport.code, airport]));
    this.flightOf = new Map(this.flights.map((flight) => [flight.id, flight]));
    for (const airport of this.airports) airport.flights = [];
    for (const flight of this.flights) {
      for (const code of new Set(flight.route)) this.airportOf.get(code)?.flights.push(flight);
      for (const leg of flight.legs) leg.flight = flight;
    }
  }

  isFlightShown(flight) {
    return this.services[flight.service].shown;
  }

  /** Of a layer, or of a flight that is shown. */
  isAirportShown(airport) {
    return airport.layer || airport.flights.some((flight) => this.isFlightShown(flight));
  }

  airportText(airport) {
    return airport.label + airport.facts;
  }

  legText(leg) {
    return `${leg.flight.text}: ${leg.text}`;
  }

  /**
   * What is shown within `reach` of a point, airports before legs, nearer ones first. Those whose distances are equal in
   * whole multiples of `step` keep the order of drawing.
   */
  near(point, reach, step) {
    const airports = [];
    const legs = [];
    for (const airport of this.airports) {
      const distance = Math.hypot(airport.x - point.x, airport.y - point.y);
      if (distance <= reach && this.isAirportShown(airport)) airports.push({ airport, distance });
    }
    for (const flight of this.flights) {
      if (!this.isFlightShown(flight)) continue;
      for (const leg of flight.legs) {
        const distance = distanceToLines(point, leg.lines);
        if (distance <= reach) legs.push({ leg, distance });
      }
    }
    for (const list of [airports, legs])
      list.sort((a, b) => Math.floor(a.distance / step) - Math.floor(b.distance / step));
    return [...airports, ...legs];
  }
}

/** Lines are lists of coordinates: x1, y1, x2, y2, ... */
function distanceToLines(point, lines) {
  let least = Infinity;
  for (const line of lines) {
    for (let i = 0; i + 3 < line.length; i += 2) {
      const dx = line[i + 2] - line[i];
      const dy = line[i + 3] - line[i + 1];
      const toX = point.x - line[i];
      const toY = point.y - line[i + 1];
      const squared = dx * dx + dy * dy;
      const part = squared > 0 ? Math.min(Math.max((toX * dx + toY * dy) / squared, 0), 1) : 0;
      least = Math.min(least, Math.hypot(toX - part * dx, toY - part * dy));
    }
  }
  return least;
}

function pathOf(lines) {
  return lines.map((line) => `M${line.join(" ")}`).join("");
}

function boundsOf(lines) {
  const bounds = { left: Infinity, top: Infinity, right: -Infinity, bottom: -Infinity };
  for (const line of lines) {
    for (let i = 0; i + 1 < line.length; i += 2) {
      bounds.left = Math.min(bounds.left, line[i]);
      bounds.right = Math.max(bounds.right, line[i]);
      bounds.top = Math.min(bounds.top, line[i + 1]);
      bounds.bottom = Math.max(bounds.bottom, line[i + 1]);
    }
  }
  return bounds.left <= bounds.right ? bounds : null;
}

/** A new element with properties and children. Texts of the data become text nodes, never markup. */
function element(name, properties = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(properties)) {
    if (key in made && key !== "role") made[key] = value;
    else made.setAttribute(key, value);
  }
  made.append(...children);
  return made;
}

function svgElement(name, attributes) {
  const made = document.createElementNS("http://www.w3.org/2000/svg", name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  return made;
}
