#include "paint/map_file.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "paint/operation_list.h"
#include "paint/painter_surface.h"
#include "paint/picture_surface.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {
namespace {

/// Pixels. A band stays in the processor's cache until it is encoded.
constexpr int kBandSize = 1 << 19;

int RowsOfBand(int width) {
  return std::max(kBandSize / width, 16);
}

/// From the top edge of the picture to that of a row, within a twip.
std::int32_t HeightInTwips(int row, double scale) {
  return static_cast<std::int32_t>(row * kTwipsPerPixel / PixelScale(scale).Ratio());
}

void PaintOn(QPaintDevice& device, const QSizeF& logicalSize, const PaintMap& paint) {
  const QRectF area(QPointF(), logicalSize * kVectorGrid);
  QPainter painter(&device);
  painter.setClipRect(area);
  paint(painter, kVectorGrid, area);
}

PaintMap Painting(const DrawMapOn& draw) {
  return [&draw](QPainter& painter, double scale, const QRectF& area) {
    PainterSurface surface(painter, scale, area);
    draw(surface);
  };
}

}  // namespace

std::optional<MapFileKind> KindOfMapFile(const QString& file) {
  if (file.endsWith(".png", Qt::CaseInsensitive))
    return MapFileKind::kPng;
  if (file.endsWith(".svg", Qt::CaseInsensitive))
    return MapFileKind::kSvg;
  if (file.endsWith(".pdf", Qt::CaseInsensitive))
    return MapFileKind::kPdf;
  return std::nullopt;
}

void WritePng(const QSize& pixels, double dpi, const DrawMapOn& draw, const ByteSink& sink,
              const Progress& progress) {
  OperationList operations;
  draw(operations);
  PreparedPictures prepared;
  WritePngBands(
      pixels, dpi,
      [&](const BandToDraw& part) {
        PictureSurface surface(part.rows, part.band, dpi / kScreenDpi, prepared);
        operations.DrawBetween(part.top, part.bottom, surface);
      },
      sink, progress);
}

void WritePngBands(const QSize& pixels, double dpi, const std::function<void(const BandToDraw&)>& draw,
                   const ByteSink& sink, const Progress& progress) {
  QImage rows(pixels.width(), std::min(RowsOfBand(pixels.width()), pixels.height()), QImage::Format_RGB32);
  if (rows.isNull())
    throw base::Error("There is not enough memory for a picture of this size.");
  PngWriter writer(pixels, dpi, sink);
  const double scale = dpi / kScreenDpi;
  for (int top = 0; top < pixels.height(); top += rows.height()) {
    progress(static_cast<double>(top) / pixels.height());
    draw(
        {rows, {top, pixels.height()}, HeightInTwips(top, scale), HeightInTwips(top + rows.height(), scale)});
    writer.Write(rows, std::min(rows.height(), pixels.height() - top));
  }
  writer.Finish();
}

QByteArray PngOf(const QImage& picture, double dpi) {
  QByteArray bytes;
  PngWriter writer(picture.size(), dpi, [&bytes](std::string_view part) {
    bytes.append(part.data(), static_cast<qsizetype>(part.size()));
  });
  writer.Write(picture, picture.height());
  writer.Finish();
  return bytes;
}

QByteArray SvgOf(const QSizeF& logicalSize, const DrawMapOn& draw) {
  return PaintedSvg(logicalSize, Painting(draw));
}

QByteArray PdfOf(const QSizeF& logicalSize, const DrawMapOn& draw) {
  return PaintedPdf(logicalSize, Painting(draw));
}

QByteArray PaintedSvg(const QSizeF& logicalSize, const PaintMap& paint) {
  QBuffer bytes;
  QSvgGenerator generator;
  generator.setOutputDevice(&bytes);
  generator.setTitle("Zerbal");
  generator.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
  generator.setSize(QSize(static_cast<int>(std::lround(logicalSize.width() * kVectorGrid)),
                          static_cast<int>(std::lround(logicalSize.height() * kVectorGrid))));
  generator.setViewBox(QRectF(QPointF(), logicalSize * kVectorGrid));
  PaintOn(generator, logicalSize, paint);
  return bytes.data();
}

QByteArray PaintedPdf(const QSizeF& logicalSize, const PaintMap& paint) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setCreator("Zerbal");
    writer.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
    writer.setPageSize(
        QPageSize(logicalSize / kScreenDpi, QPageSize::Inch, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    PaintOn(writer, logicalSize, paint);
  }
  return bytes.data();
}

}  // namespace zerbal::paint
