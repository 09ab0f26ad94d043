#include "zerbal-map/output.h"

#include "base/file_replacement.h"
#include "paint/map_file.h"

namespace zerbal::mapcommand {
namespace {

void DrawFile(MapJob& job, const Options& options, const paint::ByteSink& sink) {
  const auto draw = [&job](map::Surface& surface) { job.Draw(surface); };
  switch (options.kind) {
    case MapFileKind::kSvg:
      sink(paint::SvgOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPdf:
      sink(paint::PdfOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPng:
      paint::WritePng(options.PixelSize(), options.dpi, draw, sink, [](double) {});
      break;
  }
}

}  // namespace

void WriteMap(MapJob& job, const Options& options) {
  // Opened first: a file that cannot be written is reported before anything is drawn.
  auto file = base::FileReplacement::OfUserFile(options.outputFile);
  DrawFile(job, options, [&file](std::string_view bytes) { file.Write(bytes); });
  file.Commit();
}

}  // namespace zerbal::mapcommand
