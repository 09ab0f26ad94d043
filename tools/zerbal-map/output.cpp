#include "zerbal-map/output.h"

#include "base/file_replacement.h"
#include "paint/map_file.h"

namespace zerbal::mapcommand {
namespace {

QByteArray DrawFile(MapJob& job, const Options& options) {
  const auto draw = [&job](map::Surface& surface) { job.Draw(surface); };
  switch (options.kind) {
    case MapFileKind::kSvg:
      return paint::SvgOf(options.LogicalSize(), draw);
    case MapFileKind::kPdf:
      return paint::PdfOf(options.LogicalSize(), draw);
    case MapFileKind::kPng:
      break;
  }
  return paint::PngOf(paint::DrawPicture(options.PixelSize(), options.dpi, draw), options.dpi);
}

}  // namespace

void WriteMap(MapJob& job, const Options& options) {
  // Opened first: a file that cannot be written is reported before anything is drawn.
  auto file = base::FileReplacement::OfUserFile(options.outputFile);
  const QByteArray bytes = DrawFile(job, options);
  file.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
  file.Commit();
}

}  // namespace zerbal::mapcommand
