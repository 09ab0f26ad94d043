#include "paint/map_file.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <cmath>

#include "base/error.h"
#include "paint/painter_surface.h"
#include "paint/picture_surface.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {
namespace {

/// Vector formats are drawn on a grid this many times finer than logical pixels.
constexpr int kVectorGrid = 8;

void DrawOn(QPaintDevice& device, const QSizeF& logicalSize, const DrawMapOn& draw) {
  QPainter painter(&device);
  PainterSurface surface(painter, kVectorGrid, QRectF(QPointF(), logicalSize * kVectorGrid));
  painter.setClipRect(QRectF(QPointF(), logicalSize * kVectorGrid));
  draw(surface);
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

QImage DrawPicture(const QSize& pixels, double dpi, const DrawMapOn& draw) {
  QImage picture(pixels, QImage::Format_RGB32);
  if (picture.isNull())
    throw base::Error("There is not enough memory for a picture of this size.");
  PreparedPictures prepared;
  {
    PictureSurface surface(picture, dpi / kScreenDpi, prepared);
    draw(surface);
  }
  return picture;
}

QByteArray PngOf(QImage picture, double dpi) {
  const int dotsPerMetre = static_cast<int>(std::lround(dpi / 0.0254));
  picture.setDotsPerMeterX(dotsPerMetre);
  picture.setDotsPerMeterY(dotsPerMetre);
  QBuffer bytes;
  QImageWriter writer(&bytes, "png");
  // Maps are mostly plain areas: light compression is much faster and nearly as small as the strongest.
  writer.setCompression(30);
  if (!writer.write(picture))
    throw base::Error("The picture cannot be encoded: " + writer.errorString().toStdString());
  return bytes.data();
}

QByteArray SvgOf(const QSizeF& logicalSize, const DrawMapOn& draw) {
  QBuffer bytes;
  QSvgGenerator generator;
  generator.setOutputDevice(&bytes);
  generator.setTitle("Zerbal");
  generator.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
  generator.setSize(QSize(static_cast<int>(std::lround(logicalSize.width() * kVectorGrid)),
                          static_cast<int>(std::lround(logicalSize.height() * kVectorGrid))));
  generator.setViewBox(QRectF(QPointF(), logicalSize * kVectorGrid));
  DrawOn(generator, logicalSize, draw);
  return bytes.data();
}

QByteArray PdfOf(const QSizeF& logicalSize, const DrawMapOn& draw) {
  QBuffer bytes;
  bytes.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&bytes);
    writer.setCreator("Zerbal");
    writer.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
    writer.setPageSize(
        QPageSize(logicalSize / kScreenDpi, QPageSize::Inch, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    DrawOn(writer, logicalSize, draw);
  }
  return bytes.data();
}

}  // namespace zerbal::paint
