// Maps as the bytes of PNG, SVG and PDF files.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <functional>
#include <optional>

#include "map/surface.h"

namespace zerbal::paint {

/// Logical pixels per inch.
inline constexpr double kScreenDpi = 96;

enum class MapFileKind { kPng, kSvg, kPdf };

/// By the ending of the file's name, in any letter case; nullopt for other endings.
std::optional<MapFileKind> KindOfMapFile(const QString& file);

/// Draws the map; the surface's area has the logical size of the map.
using DrawMapOn = std::function<void(map::Surface& surface)>;

/// Throws base::Error when there is not enough memory for the picture.
QImage DrawPicture(const QSize& pixels, double dpi, const DrawMapOn& draw);

/// Throws base::Error when the picture cannot be encoded.
QByteArray PngOf(QImage picture, double dpi);
QByteArray SvgOf(const QSizeF& logicalSize, const DrawMapOn& draw);
QByteArray PdfOf(const QSizeF& logicalSize, const DrawMapOn& draw);

}  // namespace zerbal::paint
