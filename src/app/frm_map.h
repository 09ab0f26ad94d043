// The map window: shows the picture of the last redraw; the mouse changes the view.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include "map/draw_map.h"
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
  const QImage& Picture() const { return picture_; }

 signals:
  /// The mouse moved over the map, to this longitude and latitude.
  void PositionChanged(const QString& lonText, const QString& latText);
  /// The view was computed again and has these spans.
  void ExtentChanged(const QString& extentText);
  /// The right button was pressed at this screen position.
  void PopupRequested(const QPoint& globalPosition);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  /// The corner follows the mouse only over the map, so it may differ from where the button is released.
  struct ZoomBox {
    bool active = false;
    bool drawn = false;  ///< the box is on the picture
    TwipPosition press{};
    TwipPosition corner{};  ///< opposite corner, limited to the drawing area
  };

  void UpdateAppearance();
  void PreparePicture();
  template <typename Draw>
  void DrawOnPicture(const Draw& draw);
  void InvertZoomBox();
  void EraseZoomBox();
  void MoveZoomBox(TwipPosition at);
  void ShowPosition(TwipPosition at);
  TwipPosition Limited(TwipPosition at) const;

  const map::MapScene& scene_;
  map::Viewport& viewport_;
  QColor background_;
  QImage picture_;
  paint::PreparedPictures prepared_;
  map::Surface* observer_ = nullptr;
  int draws_ = 0;
  ZoomBox zoomBox_;
};

}  // namespace zerbal::app
