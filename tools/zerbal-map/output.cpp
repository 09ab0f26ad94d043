#include "zerbal-map/output.h"

#include "base/file_replacement.h"
#include "paint/map_file.h"
#include "print/print_file.h"

namespace zerbal::mapcommand {
namespace {

/// Shows the progress at every operation.
class WatchedSurface final : public map::Surface {
 public:
  WatchedSurface(map::Surface& surface, ProgressLine& progress) : surface_(surface), progress_(progress) {}

  void BeginLayer(map::Layer layer) override { Watched().BeginLayer(layer); }
  void Clear(data::Rgb colour) override { Watched().Clear(colour); }
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override {
    Watched().Polyline(points, pen);
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override {
    Watched().Rectangle(corner1, corner2, pen);
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override {
    Watched().Circle(centre, radius, colour, fill);
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override {
    Watched().Text(topLeft, text, colour, font);
  }

 private:
  map::Surface& Watched() {
    progress_.Show(std::nullopt);
    return surface_;
  }

  map::Surface& surface_;
  ProgressLine& progress_;
};

void DrawFile(MapJob& job, const Options& options, ProgressLine& progress, const paint::ByteSink& sink) {
  const auto draw = [&](map::Surface& surface) {
    WatchedSurface watched(surface, progress);
    job.Draw(watched);
  };
  switch (options.kind) {
    case MapFileKind::kSvg:
      sink(paint::SvgOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPdf:
      sink(paint::PdfOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPng:
      paint::WritePng(options.PixelSize(), options.dpi, draw, sink,
                      [&](double done) { progress.Show(done); });
      break;
  }
}

void DrawPrintFile(MapJob& job, const Options& options, ProgressLine& progress, const paint::ByteSink& sink) {
  const auto draw = [&job](print::PrintSurface& surface) { job.DrawForPrint(surface); };
  progress.Show(std::nullopt);
  switch (options.kind) {
    case MapFileKind::kSvg:
      sink(print::PrintSvgOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPdf:
      sink(print::PrintPdfOf(options.LogicalSize(), draw).toStdString());
      break;
    case MapFileKind::kPng:
      print::WritePrintPng(options.PixelSize(), options.dpi, draw, sink,
                           [&](double done) { progress.Show(done); });
      break;
  }
}

}  // namespace

void WriteMap(MapJob& job, const Options& options, ProgressLine& progress) {
  // Opened first: a file that cannot be written is reported before anything is drawn.
  auto file = base::FileReplacement::OfUserFile(options.outputFile);
  const auto sink = [&file](std::string_view bytes) { file.Write(bytes); };
  if (options.ForPrint())
    DrawPrintFile(job, options, progress, sink);
  else
    DrawFile(job, options, progress, sink);
  file.Commit();
}

}  // namespace zerbal::mapcommand
