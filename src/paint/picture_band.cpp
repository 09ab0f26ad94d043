#include "paint/picture_band.h"

#include <cstdint>

namespace zerbal::paint {
namespace {

QImage WholePicture(QImage& rows, const PictureBand& band) {
  const auto above = static_cast<std::uintptr_t>(band.top) * static_cast<std::uintptr_t>(rows.bytesPerLine());
  // NOLINTNEXTLINE(performance-no-int-to-ptr): a pointer to rows that do not exist
  auto* bits = reinterpret_cast<uchar*>(reinterpret_cast<std::uintptr_t>(rows.bits()) - above);
  return {bits, rows.width(), band.height, rows.bytesPerLine(), rows.format()};
}

}  // namespace

BandPainter::BandPainter(QImage& rows, const PictureBand& band)
    : whole_(WholePicture(rows, band)), painter_(&whole_) {
  const QRect shown(0, band.top, rows.width(), rows.height());
  if (band.height > shown.height())
    painter_.setClipRect(shown);
}

}  // namespace zerbal::paint
