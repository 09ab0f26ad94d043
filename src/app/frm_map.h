// The map window: shows the finished picture of the last redraw and turns the mouse into view changes.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include "map/draw_map.h"
#include "paint/prepared_pictures.h"

namespace zerbal::app {

/// Keeps the picture at the screen's own resolution. Resizing, zooming and the mouse end in
/// RecomputeAndRedraw; a change of what is drawn ends in Redraw. Both run to their end before they return.
class frmMap final : public QWidget {
  Q_OBJECT
  /// The map's background.
  Q_PROPERTY(QColor colour READ BackgroundColour)

 public:
  /// `scene` must outlive the window.
  explicit frmMap(map::MapScene& scene, QWidget* parent = nullptr);

  /// ComputeViewport, then DrawMap.
  void RecomputeAndRedraw();
  /// DrawMap, with the hourglass while it draws; nothing without a drawing area.
  void Redraw();

  /// Complete redraws so far.
  int Draws() const { return draws_; }
  /// A second surface that is given every operation, the zoom box's too; null for none.
  void SetObserver(map::Surface* observer) { observer_ = observer; }
  QColor BackgroundColour() const { return background_; }
  const QImage& Picture() const { return picture_; }

 signals:
  /// The mouse moved over the map: longitude and latitude in degrees and minutes.
  void PositionChanged(const QString& lonText, const QString& latText);
  /// The view was computed anew: what it spans.
  void ExtentChanged(const QString& extentText);
  /// The right button went down at this screen position.
  void PopupRequested(const QPoint& globalPosition);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  /// The window's zoom box. A corner is moved only over the map, so the corner of the last drawn box may
  /// differ from where the button is let go.
  struct ZoomBox {
    bool active = false;
    bool drawn = false;  ///< the box between the two corners stands on the picture
    TwipPosition press{};
    TwipPosition corner{};  ///< the moving one, limited to the drawing area
  };

  void TakeLooks();
  void PreparePicture();
  template <typename Draw>
  void DrawOnPicture(const Draw& draw);
  void InvertZoomBox();
  void EraseZoomBox();
  void MoveZoomBox(TwipPosition at);
  void ShowPosition(TwipPosition at);
  TwipPosition Limited(TwipPosition at) const;

  map::MapScene& scene_;
  QColor background_;
  QImage picture_;
  paint::PreparedPictures prepared_;
  map::Surface* observer_ = nullptr;
  int draws_ = 0;
  ZoomBox zoomBox_;
};

}  // namespace zerbal::app
