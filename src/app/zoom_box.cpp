#include "app/zoom_box.h"

namespace zerbal::app {

void ZoomBox::Press(TwipPosition at) {
  Erase();
  state_ = State::kDragged;
  corner1_ = corner2_ = at;
}

void ZoomBox::DragTo(TwipPosition corner) {
  invert_(corner1_, corner2_);
  corner2_ = corner;
  invert_(corner1_, corner2_);
  drawn_ = true;
}

void ZoomBox::Show(TwipPosition corner1, TwipPosition corner2) {
  Erase();
  state_ = State::kSized;
  corner1_ = corner1;
  corner2_ = corner2;
  invert_(corner1_, corner2_);
  drawn_ = true;
}

void ZoomBox::Erase() {
  if (drawn_)
    invert_(corner1_, corner2_);
  drawn_ = false;
}

bool ZoomBox::Cancel() {
  if (state_ == State::kNone)
    return false;
  const bool pressPoint = Dragged() && drawn_;
  Erase();
  if (pressPoint)
    invert_(corner1_, corner1_);
  End();
  return true;
}

void ZoomBox::ForgetPicture() {
  drawn_ = false;
  corner2_ = corner1_;
  if (Sized())
    End();
}

}  // namespace zerbal::app
