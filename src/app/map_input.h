// What the wheel and the keyboard do with the map.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QTimer>
#include <QWheelEvent>

#include "app/wheel_steps.h"
#include "app/zoom_box.h"
#include "data/regions.h"
#include "map/viewport.h"

namespace zerbal::app {

/// Changes the request of the viewport; the map window recomputes and redraws.
class MapInput final : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive this.
  MapInput(map::Viewport& viewport, const data::RegionTable& regions, ZoomBox& zoomBox);

  /// Zooms about the mouse when the events that have arrived are handled, so that a fast wheel causes one
  /// redraw. Does nothing outside of the map and while a box is dragged.
  void Wheel(const QWheelEvent& event);
  /// False when the key means nothing here.
  bool KeyPress(const QKeyEvent& event);

 signals:
  void ViewChanged();
  void MenuRequested();
  /// What is drawn in the middle of the map is asked for.
  void TipRequested();

 private:
  /// The direction of an arrow key; null for other keys.
  static QPoint Arrow(int key);

  void ApplyWheel();
  bool ApplyStep(const WheelSteps::Step& step);
  bool ViewKey(int key);
  void ArrowKey(QPoint direction, bool big);
  void OpenBox();
  void SizeBox(QPoint direction, bool big);
  void ZoomToBox();
  void ShowBox(float width, float height);
  void Changed(bool changed);

  map::Viewport& viewport_;
  const data::RegionTable& regions_;
  ZoomBox& zoomBox_;
  WheelSteps steps_;
  QTimer wheel_;
};

}  // namespace zerbal::app
