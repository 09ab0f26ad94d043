#include "zerbal-map/output.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>
#include <cmath>

#include "base/error.h"
#include "paint/painter_surface.h"
#include "paint/picture_surface.h"
#include "paint/prepared_pictures.h"

namespace zerbal::mapcommand {
namespace {

/// Vector formats are drawn on a grid this many times finer than logical pixels.
constexpr int kVectorGrid = 8;

[[noreturn]] void FailWriting(const Options& options, const QString& reason) {
  throw base::Error("File '" + options.outputFile + "' cannot be written: " + reason.toStdString());
}

QImage DrawPicture(MapJob& job, const Options& options) {
  QImage picture(options.PixelSize(), QImage::Format_RGB32);
  if (picture.isNull())
    throw base::Error("There is not enough memory for a picture of this size.");
  paint::PreparedPictures prepared;
  {
    paint::PictureSurface surface(picture, options.dpi / kScreenDpi, prepared);
    job.Draw(surface);
  }
  const int dotsPerMetre = static_cast<int>(std::lround(options.dpi / 0.0254));
  picture.setDotsPerMeterX(dotsPerMetre);
  picture.setDotsPerMeterY(dotsPerMetre);
  return picture;
}

void DrawOn(QPaintDevice& device, MapJob& job, const QSizeF& logicalSize) {
  QPainter painter(&device);
  paint::PainterSurface surface(painter, kVectorGrid, QRectF(QPointF(), logicalSize * kVectorGrid));
  painter.setClipRect(QRectF(QPointF(), logicalSize * kVectorGrid));
  job.Draw(surface);
}

void WritePng(MapJob& job, const Options& options, QIODevice& file) {
  const QImage picture = DrawPicture(job, options);
  QImageWriter writer(&file, "png");
  // Maps are mostly plain areas: light compression is much faster and nearly as small as the strongest.
  writer.setCompression(30);
  if (!writer.write(picture))
    FailWriting(options, writer.errorString());
}

void WriteSvg(MapJob& job, const Options& options, QIODevice& file) {
  const QSizeF size = options.LogicalSize();
  QSvgGenerator generator;
  generator.setOutputDevice(&file);
  generator.setTitle("Zerbal");
  generator.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
  generator.setSize(QSize(static_cast<int>(std::lround(size.width() * kVectorGrid)),
                          static_cast<int>(std::lround(size.height() * kVectorGrid))));
  generator.setViewBox(QRectF(QPointF(), size * kVectorGrid));
  DrawOn(generator, job, size);
}

void WritePdf(MapJob& job, const Options& options, QIODevice& file) {
  const QSizeF size = options.LogicalSize();
  QPdfWriter writer(&file);
  writer.setCreator("Zerbal");
  writer.setResolution(static_cast<int>(kScreenDpi) * kVectorGrid);
  writer.setPageSize(QPageSize(size / kScreenDpi, QPageSize::Inch, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  DrawOn(writer, job, size);
}

}  // namespace

void WriteMap(MapJob& job, const Options& options) {
  QSaveFile file(QString::fromStdString(options.outputFile));
  if (!file.open(QIODevice::WriteOnly))
    FailWriting(options, file.errorString());
  switch (options.kind) {
    case OutputKind::kPng:
      WritePng(job, options, file);
      break;
    case OutputKind::kSvg:
      WriteSvg(job, options, file);
      break;
    case OutputKind::kPdf:
      WritePdf(job, options, file);
      break;
  }
  if (!file.commit())
    FailWriting(options, file.errorString());
}

}  // namespace zerbal::mapcommand
