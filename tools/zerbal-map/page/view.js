// The part of the map that is shown. Places on the map are in its units, places on the screen in pixels from the top left
// corner of the drawing.

const MOST_ZOOM = 32;
const FLIGHT_OF_VIEW = 350; // milliseconds

class View {
  /** `changed` is called after every change, at most once per frame. */
  constructor(svg, width, height, changed) {
    this.svg = svg;
    this.width = width;
    this.height = height;
    this.changed = changed;
    this.centre = { x: width / 2, y: height / 2 };
    this.unit = 0; // length of a pixel on the map; 0 until the size is known
    this.pending = false;
    this.animation = 0;
    new ResizeObserver(() => this.resize()).observe(svg);
    this.resize();
  }

  resize() {
    const wasWhole = this.unit === 0 || this.unit === this.widest();
    const box = this.svg.getBoundingClientRect();
    this.screen = { width: Math.max(box.width, 1), height: Math.max(box.height, 1) };
    this.set(this.centre, wasWhole ? this.widest() : this.unit);
  }

  widest() {
    return this.screen ? Math.max(this.width / this.screen.width, this.height / this.screen.height) : 0;
  }

  closest() {
    return this.widest() / MOST_ZOOM;
  }

  get zoom() {
    return this.widest() / this.unit;
  }

  toScreen(point) {
    return {
      x: (point.x - this.centre.x) / this.unit + this.screen.width / 2,
      y: (point.y - this.centre.y) / this.unit + this.screen.height / 2,
    };
  }

  toMap(place) {
    return {
      x: this.centre.x + (place.x - this.screen.width / 2) * this.unit,
      y: this.centre.y + (place.y - this.screen.height / 2) * this.unit,
    };
  }

  /** Shows this as far as the limits allow. The map never leaves the part of the screen that all of it would cover. */
  set(centre, unit) {
    this.unit = Math.min(Math.max(unit, this.closest()), this.widest());
    const within = (value, length) => {
      const half = length / this.zoom / 2;
      return Math.min(Math.max(value, half), length - half);
    };
    this.centre = { x: within(centre.x, this.width), y: within(centre.y, this.height) };
    this.refresh();
  }

  refresh() {
    if (this.pending) return;
    this.pending = true;
    requestAnimationFrame(() => {
      this.pending = false;
      this.draw();
    });
  }

  draw() {
    const width = this.screen.width * this.unit;
    const height = this.screen.height * this.unit;
    const box = [this.centre.x - width / 2, this.centre.y - height / 2, width, height];
    this.svg.setAttribute("viewBox", box.map((value) => value.toFixed(2)).join(" "));
    this.svg.style.setProperty("--unit", String(this.unit));
    this.changed();
  }

  /** The point at `place` stays there. */
  zoomAt(place, factor) {
    this.stop();
    const point = this.toMap(place);
    const unit = Math.min(Math.max(this.unit / factor, this.closest()), this.widest());
    const ratio = unit / this.unit;
    this.set(
      {
        x: point.x + (this.centre.x - point.x) * ratio,
        y: point.y + (this.centre.y - point.y) * ratio,
      },
      unit,
    );
  }

  zoomBy(factor) {
    this.flyTo(this.centre, this.unit / factor);
  }

  moveBy(dx, dy) {
    this.stop();
    this.set({ x: this.centre.x - dx * this.unit, y: this.centre.y - dy * this.unit }, this.unit);
  }

  showAll() {
    this.flyTo({ x: this.width / 2, y: this.height / 2 }, this.widest());
  }

  /** Shows these bounds with a margin, not closer than 8 times. */
  showBounds(bounds) {
    const margin = Math.min(64, this.screen.width / 8, this.screen.height / 8);
    const unit = Math.max(
      (bounds.right - bounds.left) / (this.screen.width - 2 * margin),
      (bounds.bottom - bounds.top) / (this.screen.height - 2 * margin),
      this.widest() / 8,
    );
    this.flyTo({ x: (bounds.left + bounds.right) / 2, y: (bounds.top + bounds.bottom) / 2 }, unit);
  }

  stop() {
    cancelAnimationFrame(this.animation);
  }

  flyTo(centre, unit) {
    this.stop();
    if (matchMedia("(prefers-reduced-motion: reduce)").matches) {
      this.set(centre, unit);
      return;
    }
    const target = Math.min(Math.max(unit, this.closest()), this.widest());
    const from = { ...this.centre, unit: this.unit };
    const start = performance.now();
    const step = (now) => {
      const time = Math.min(Math.max((now - start) / FLIGHT_OF_VIEW, 0), 1);
      const part = 1 - (1 - time) ** 3;
      const between = from.unit * (target / from.unit) ** part;
      // The centre moves with the scale, so that the target does not swing out of view on the way.
      const way = Math.abs(target - from.unit) < 1e-9 ? part : (between - from.unit) / (target - from.unit);
      this.set({ x: from.x + (centre.x - from.x) * way, y: from.y + (centre.y - from.y) * way }, between);
      if (time < 1) this.animation = requestAnimationFrame(step);
    };
    this.animation = requestAnimationFrame(step);
  }
}
