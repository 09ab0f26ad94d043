// A band of rows of a picture.
#pragma once

#include <QImage>
#include <QPainter>

namespace zerbal::paint {

/// The rows from `top` on of a picture that is `height` pixels high.
struct PictureBand {
  int top = 0;
  int height = 0;
};

/// A QPainter on the rows of a band, at the coordinates of the whole picture. QPainter rounds coordinates
/// differently left of or above its device, so it must not see a band as a picture of its own.
class BandPainter {
 public:
  /// `rows` must outlive the painter.
  BandPainter(QImage& rows, const PictureBand& band);

  QPainter& Painter() { return painter_; }
  QRectF Area() const { return whole_.rect(); }

 private:
  QImage whole_;  ///< of which only the rows of the band exist
  QPainter painter_;
};

}  // namespace zerbal::paint
