#include "pictures/picture_scenes.h"

#include <QFile>
#include <QString>

#include "pictures/picture_world.h"
#include "print/print_painter.h"
#include "zerbal-map/map_job.h"

namespace zerbal::test {
namespace {

/// Draws the map with or without its letters, and notes where they are.
class LetterSurface final : public print::PrintSurface {
 public:
  LetterSurface(print::PrintSurface& surface, int scale, bool draws)
      : surface_(surface), scale_(scale), draws_(draws) {}

  void BeginLayer(map::Layer layer) override { surface_.BeginLayer(layer); }
  void Clear(data::Rgb colour) override { surface_.Clear(colour); }
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override {
    surface_.Polyline(points, pen);
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override {
    surface_.Rectangle(corner1, corner2, pen);
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override {
    surface_.Circle(centre, radius, colour, fill);
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override {
    if (!draws_)
      return;
    surface_.Text(topLeft, text, colour, font);
    Note(topLeft, text, font);
  }
  void BeginPrintLayer(print::PrintLayer layer) override { surface_.BeginPrintLayer(layer); }
  void Fill(std::span<const print::Ring> rings, data::Rgb colour) override { surface_.Fill(rings, colour); }
  void Stroke(std::span<const TwipPoint> points, const print::StrokeStyle& style) override {
    surface_.Stroke(points, style);
  }
  void StyledText(TwipPoint topLeft, std::string_view text, const print::TextStyle& style) override {
    if (!draws_)
      return;
    surface_.StyledText(topLeft, text, style);
    Note(topLeft, text, style.font);
    if (style.halo)
      boxes_.back().adjust(-2 * scale_, -2 * scale_, 2 * scale_, 2 * scale_);
  }
  print::TextSize Measure(std::string_view text, const map::TextFont& font) override {
    return surface_.Measure(text, font);
  }
  const std::vector<QRect>& Boxes() const { return boxes_; }

 private:
  void Note(TwipPoint topLeft, std::string_view text, const map::TextFont& font) {
    const PixelScale pixels(scale_);
    const PixelPoint at = pixels.ToPixelPoint(topLeft);
    constexpr int kTwipsPerPoint = 20;
    const int size = static_cast<int>(pixels.Length(font.size * kTwipsPerPoint));
    boxes_.emplace_back(at.x - 2, at.y, static_cast<int>(text.size()) * size, size * 3 / 2);
  }

  print::PrintSurface& surface_;
  int scale_;
  bool draws_;
  std::vector<QRect> boxes_;
};

}  // namespace

DrawnScene DrawScene(const PictureScene& scene, int scale, bool letters, const std::filesystem::path& data) {
  QStringList words = QString(scene.words).split(' ');
  words.replaceInStrings("OLDER", QFile::decodeName((data / kOlderFolder).c_str()));
  words << "--data" << QFile::decodeName(data.c_str()) << "--out"
        << "unused.png";
  mapcommand::Options options = *mapcommand::ParseOptions(words);
  QImage picture(options.pixels * scale, QImage::Format_RGB32);
  print::PrintPicture::Tools tools(scale);
  std::vector<QRect> boxes;
  {
    print::PrintPicture surface(picture, {0, picture.height()}, scale, tools);
    LetterSurface sorted(surface, scale, letters);
    mapcommand::MapJob job(options);
    if (options.ForPrint())
      job.DrawForPrint(sorted);
    else
      job.Draw(sorted);
    boxes = sorted.Boxes();
  }
  return {picture, boxes};
}

}  // namespace zerbal::test
