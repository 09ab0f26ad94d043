// Mouse, fingers and keys on the map.

const CLICK_REACH = 5; // pixels; a longer way is a drag
const KEY_STEP = 0.15; // of the screen

class MapInput {
  /** `actions` has point(place), leave(), click(place, touch), describe(), search() and clear(). */
  constructor(element, view, actions) {
    this.element = element;
    this.view = view;
    this.actions = actions;
    this.pointers = new Map();
    this.moved = 0;
    const on = (type, handler) => element.addEventListener(type, (event) => handler.call(this, event));
    on("pointerdown", this.press);
    on("pointermove", this.move);
    on("pointerup", this.release);
    on("pointercancel", this.cancel);
    // A finger leaves whenever it is lifted; what its tap showed stays.
    on("pointerleave", (event) => event.pointerType === "touch" || actions.leave());
    on("keydown", this.key);
    element.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
  }

  place(event) {
    const box = this.element.getBoundingClientRect();
    return { x: event.clientX - box.left, y: event.clientY - box.top };
  }

  isControl(event) {
    return event.target.closest("button") !== null;
  }

  press(event) {
    if (event.button !== 0 || this.isControl(event)) return;
    if (this.pointers.size === 0) this.moved = 0;
    else this.moved = Infinity; // two fingers never click
    this.pointers.set(event.pointerId, this.place(event));
    this.view.stop();
  }

  move(event) {
    const place = this.place(event);
    if (!this.pointers.has(event.pointerId)) {
      if (this.pointers.size > 0 || event.pointerType === "touch") return;
      if (this.isControl(event)) this.actions.leave();
      else this.actions.point(place);
      return;
    }
    const before = this.middle();
    const last = this.pointers.get(event.pointerId);
    this.pointers.set(event.pointerId, place);
    const after = this.middle();
    this.moved += Math.hypot(place.x - last.x, place.y - last.y);
    if (this.moved <= CLICK_REACH) return;
    this.element.setPointerCapture(event.pointerId);
    this.element.classList.add("dragged");
    this.actions.leave();
    this.view.moveBy(after.x - before.x, after.y - before.y);
    if (before.distance > 0 && after.distance > 0) this.view.zoomAt(after, after.distance / before.distance);
  }

  /** Of the pressed fingers: their middle, and how far the first two are from each other. */
  middle() {
    const places = [...this.pointers.values()];
    const sum = places.reduce((a, b) => ({ x: a.x + b.x, y: a.y + b.y }));
    return {
      x: sum.x / places.length,
      y: sum.y / places.length,
      distance: places.length < 2 ? 0 : Math.hypot(places[0].x - places[1].x, places[0].y - places[1].y),
    };
  }

  release(event) {
    if (!this.pointers.delete(event.pointerId)) return;
    if (this.pointers.size > 0) return;
    this.element.classList.remove("dragged");
    if (this.moved <= CLICK_REACH) this.actions.click(this.place(event), event.pointerType === "touch");
  }

  cancel(event) {
    this.pointers.delete(event.pointerId);
    if (this.pointers.size === 0) this.element.classList.remove("dragged");
  }

  wheel(event) {
    event.preventDefault();
    const pixels = event.deltaY * [1, 20, 400][event.deltaMode];
    // Trackpads report a pinch as a wheel with the control key.
    const speed = event.ctrlKey ? 0.01 : 0.002;
    this.view.zoomAt(this.place(event), Math.exp(-Math.min(Math.max(pixels, -400), 400) * speed));
    this.actions.leave();
  }

  key(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const { width, height } = this.view.screen;
    const keys = {
      ArrowLeft: () => this.view.moveBy(width * KEY_STEP, 0),
      ArrowRight: () => this.view.moveBy(-width * KEY_STEP, 0),
      ArrowUp: () => this.view.moveBy(0, height * KEY_STEP),
      ArrowDown: () => this.view.moveBy(0, -height * KEY_STEP),
      "+": () => this.view.zoomBy(1.5),
      "=": () => this.view.zoomBy(1.5),
      "-": () => this.view.zoomBy(1 / 1.5),
      0: () => this.view.showAll(),
      Home: () => this.view.showAll(),
      i: () => this.actions.describe(),
      "/": () => this.actions.search(),
      Escape: () => this.actions.clear(),
    };
    const action = Object.hasOwn(keys, event.key) ? keys[event.key] : undefined;
    if (!action) return;
    event.preventDefault();
    if (event.key !== "i") this.actions.leave();
    action();
  }
}
