#include "print/print_file.h"

#include "paint/painter_surface.h"
#include "print/print_list.h"
#include "print/print_painter.h"

namespace zerbal::print {
namespace {

paint::PaintMap Painting(const DrawPrintOn& draw) {
  return [&draw](QPainter& painter, double scale, const QRectF& area) {
    TextMeter meter(scale);
    paint::PainterSurface plain(painter, scale, area);
    PrintPainter surface(
        plain, [&painter]() -> QPainter& { return painter; }, scale, 0, meter);
    draw(surface);
  };
}

}  // namespace

void WritePrintPng(const QSize& pixels, double dpi, const DrawPrintOn& draw, const paint::ByteSink& sink,
                   const paint::Progress& progress) {
  const double scale = dpi / paint::kScreenDpi;
  PrintPicture::Tools tools(scale);
  PrintList operations(tools.meter);
  draw(operations);
  paint::WritePngBands(
      pixels, dpi,
      [&](const paint::BandToDraw& part) {
        PrintPicture surface(part.rows, part.band, scale, tools);
        operations.DrawBetween(part.top, part.bottom, surface);
      },
      sink, progress);
}

QByteArray PrintSvgOf(const QSizeF& logicalSize, const DrawPrintOn& draw) {
  return paint::PaintedSvg(logicalSize, Painting(draw));
}

QByteArray PrintPdfOf(const QSizeF& logicalSize, const DrawPrintOn& draw) {
  return paint::PaintedPdf(logicalSize, Painting(draw));
}

}  // namespace zerbal::print
