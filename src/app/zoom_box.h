// The zoom box: dragged by the mouse, or sized by keys.
#pragma once

#include <functional>

#include "base/coordinates.h"

namespace zerbal::app {

/// Keeps account of what is on the picture: everything is drawn by inverting, and erased by inverting again.
class ZoomBox {
 public:
  using Invert = std::function<void(TwipPosition corner1, TwipPosition corner2)>;
  explicit ZoomBox(Invert invert) : invert_(std::move(invert)) {}

  bool Dragged() const { return state_ == State::kDragged; }
  bool Sized() const { return state_ == State::kSized; }
  TwipPosition Corner1() const { return corner1_; }  ///< of the press, when it is dragged
  TwipPosition Corner2() const { return corner2_; }

  /// Begins a box that is dragged; nothing is drawn before the first move.
  void Press(TwipPosition at);
  /// At the first move this inverts the point of the press, too, which stays until the next redraw.
  void DragTo(TwipPosition corner);
  /// Shows a box that is sized by keys, in place of the one before.
  void Show(TwipPosition corner1, TwipPosition corner2);
  /// Ends it; what is drawn stays.
  void End() { state_ = State::kNone; }
  void Erase();
  /// Ends it and restores the picture. False when there is no box.
  bool Cancel();
  /// The picture is a new one without a box. One that is dragged is drawn at the next move.
  void ForgetPicture();

 private:
  enum class State { kNone, kDragged, kSized };

  Invert invert_;
  State state_ = State::kNone;
  bool drawn_ = false;
  TwipPosition corner1_{};
  TwipPosition corner2_{};
};

}  // namespace zerbal::app
