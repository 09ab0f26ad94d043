// Maps as the bytes of PNG, SVG and PDF files.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPainter>
#include <QSizeF>
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

#include "map/surface.h"
#include "paint/picture_band.h"
#include "paint/png_writer.h"

namespace zerbal::paint {

/// Logical pixels per inch.
inline constexpr double kScreenDpi = 96;

enum class MapFileKind { kPng, kSvg, kPdf };

/// By the ending of the file's name, in any letter case; nullopt for other endings.
std::optional<MapFileKind> KindOfMapFile(const QString& file);

/// Draws the map; the surface's area has the logical size of the map.
using DrawMapOn = std::function<void(map::Surface& surface)>;

/// Learns how much is done, 0 to 1; may throw.
using Progress = std::function<void(double done)>;

/// Draws and encodes one band of rows after the other, in a few megabytes. Throws base::Error when there is
/// not enough memory or the picture cannot be encoded.
void WritePng(const QSize& pixels, double dpi, const DrawMapOn& draw, const ByteSink& sink,
              const Progress& progress);

/// Rows of a picture. Only what lies between two heights (twips) can be visible in them.
struct BandToDraw {
  QImage& rows;
  PictureBand band;
  std::int32_t top;
  std::int32_t bottom;
};

/// The same for what is more than the operations of a map::Surface: `draw` is called with one band after the
/// other.
void WritePngBands(const QSize& pixels, double dpi, const std::function<void(const BandToDraw&)>& draw,
                   const ByteSink& sink, const Progress& progress);

/// Throws base::Error when the picture, which has format RGB32, cannot be encoded.
QByteArray PngOf(const QImage& picture, double dpi);
QByteArray SvgOf(const QSizeF& logicalSize, const DrawMapOn& draw);
QByteArray PdfOf(const QSizeF& logicalSize, const DrawMapOn& draw);

/// Paints the map within `area`, `scale` units per logical pixel.
using PaintMap = std::function<void(QPainter& painter, double scale, const QRectF& area)>;

QByteArray PaintedSvg(const QSizeF& logicalSize, const PaintMap& paint);
QByteArray PaintedPdf(const QSizeF& logicalSize, const PaintMap& paint);

/// Of vector formats: they are drawn on a grid this many times finer than logical pixels.
inline constexpr int kVectorGrid = 8;

}  // namespace zerbal::paint
