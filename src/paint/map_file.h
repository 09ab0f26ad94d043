// Maps as the bytes of PNG, SVG and PDF files.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <functional>
#include <optional>

#include "map/surface.h"
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

/// Throws base::Error when the picture, which has format RGB32, cannot be encoded.
QByteArray PngOf(const QImage& picture, double dpi);
QByteArray SvgOf(const QSizeF& logicalSize, const DrawMapOn& draw);
QByteArray PdfOf(const QSizeF& logicalSize, const DrawMapOn& draw);

}  // namespace zerbal::paint
