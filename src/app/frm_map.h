// The map window: shows the picture of the last redraw; mouse, wheel and keyboard change the view.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include "app/map_input.h"
#include "app/map_tip.h"
#include "app/zoom_box.h"
#include "map/draw_map.h"
#include "map/view_description.h"
#include "paint/map_file.h"
#include "paint/prepared_pictures.h"

namespace zerbal::app {

/// The picture has the resolution of the screen. Changes of the view call RecomputeAndRedraw, changes of what
/// is drawn call Redraw. Both finish the picture before they return.
class frmMap final : public QWidget {
  Q_OBJECT
  /// Background of the map.
  Q_PROPERTY(QColor colour READ BackgroundColour)

 public:
  /// `viewport` is that of the scene; the window changes it. Both outlive the window.
  frmMap(const map::MapScene& scene, map::Viewport& viewport, QWidget* parent = nullptr);

  /// ComputeViewport, then DrawMap.
  void RecomputeAndRedraw();
  /// DrawMap with the hourglass as mouse pointer. Does nothing when the drawing area is empty.
  void Redraw();

  /// Number of complete redraws.
  int Draws() const { return draws_; }
  /// A second surface that receives every operation, also those of the zoom box; null for none.
  void SetObserver(map::Surface* observer) { observer_ = observer; }
  QColor BackgroundColour() const { return background_; }
  /// What the map shows, for assistive programs. Reads all that is shown.
  QString Description() const { return QString::fromStdString(map::DescribeView(scene_)); }
  /// Whether a tool tip says what is under the resting pointer.
  void SetTips(bool shown) { tip_.SetEnabled(shown); }
  const QImage& Picture() const { return picture_; }
  /// The picture as it is shown, with one logical pixel per device pixel. Ends a zoom box.
  QImage MapPicture();
  /// The bytes of a file with the map as it is shown: MapPicture, or the map drawn again.
  QByteArray MapFile(paint::MapFileKind kind);

 signals:
  /// The mouse moved over the map, to this longitude and latitude.
  void PositionChanged(const QString& lonText, const QString& latText);
  /// The view was computed again and has these spans.
  void ExtentChanged(const QString& extentText);
  /// The right button was pressed at this screen position, or the Menu key.
  void PopupRequested(const QPoint& globalPosition);

 protected:
  /// Qt's own tool tips are not used.
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void UpdateAppearance();
  void PreparePicture();
  /// Redraws when the window is on a screen of another resolution than the picture.
  void AdaptToScreen();
  template <typename Draw>
  void DrawOnPicture(const Draw& draw);
  void InvertBox(TwipPosition corner1, TwipPosition corner2);
  void ShowPosition(TwipPosition at);
  /// What is drawn near a point in logical pixels; empty outside of the map and while a zoom box is dragged.
  QString TextAt(QPointF at) const;
  TwipPosition Limited(TwipPosition at) const;

  const map::MapScene& scene_;
  map::Viewport& viewport_;
  QColor background_;
  QImage picture_;
  paint::PreparedPictures prepared_;
  map::Surface* observer_ = nullptr;
  int draws_ = 0;
  /// Its corner follows the mouse only over the map, so it may differ from where the button is released.
  ZoomBox zoomBox_;
  MapInput input_;
  MapTip tip_;
};

}  // namespace zerbal::app
