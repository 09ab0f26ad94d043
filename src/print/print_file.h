// Maps for print as the bytes of PNG, SVG and PDF files.
#pragma once

#include "paint/map_file.h"
#include "print/print_surface.h"

namespace zerbal::print {

/// Draws the map; the surface's area has the logical size of the map.
using DrawPrintOn = std::function<void(PrintSurface& surface)>;

/// As the functions of paint/map_file.h.
void WritePrintPng(const QSize& pixels, double dpi, const DrawPrintOn& draw, const paint::ByteSink& sink,
                   const paint::Progress& progress);
QByteArray PrintSvgOf(const QSizeF& logicalSize, const DrawPrintOn& draw);
QByteArray PrintPdfOf(const QSizeF& logicalSize, const DrawPrintOn& draw);

}  // namespace zerbal::print
