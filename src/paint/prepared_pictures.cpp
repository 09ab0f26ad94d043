#include "paint/prepared_pictures.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace zerbal::paint {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
/// First code point of combining marks; scripts with joined letters follow.
constexpr char32_t kFirstCombining = 0x300;

/// Removes the empty border of a white-on-black picture whose reference pixel is `origin`.
Mask Trimmed(const QImage& picture, QPoint origin) {
  int left = picture.width();
  int right = -1;
  int top = picture.height();
  int bottom = -1;
  const auto coverage = [&](int x, int y) { return qGreen(picture.pixel(x, y)); };
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (coverage(x, y) == 0)
        continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = y;
    }
  }
  if (right < 0)
    return {};
  const int width = (right - left + Mask::kColumns) / Mask::kColumns * Mask::kColumns;
  Mask mask{left - origin.x(), top - origin.y(), width, bottom - top + 1, {}};
  for (int y = top; y <= bottom; ++y)
    for (int x = left; x < left + width; ++x)
      mask.coverage.push_back(static_cast<std::uint8_t>(x <= right ? coverage(x, y) : 0));
  return mask;
}

QImage Blackboard(int width, int height) {
  QImage board(width, height, QImage::Format_RGB32);
  board.fill(Qt::black);
  return board;
}

}  // namespace

QFont DeviceFont(const map::TextFont& font, const PixelScale& scale, const QPaintDevice& device) {
  QFont result(QString::fromStdString(font.name));
  result.setPointSizeF(std::clamp(font.size, 1, 1000) * scale.Ratio() * 96.0 / device.logicalDpiY());
  result.setKerning(false);
  // Subpixel antialiasing would depend on the screen.
  result.setStyleStrategy(
      static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  return result;
}

GlyphSet::GlyphSet(const QFont& font, double pixelSize) : font_(QRawFont::fromFont(font)) {
  font_.setPixelSize(pixelSize);
  ascent_ = static_cast<int>(std::ceil(font_.ascent()));
}

/// Draws a character, unless that has been done.
const GlyphSet::Glyph& GlyphSet::Make(char32_t character) {
  if (character < ascii_.size())
    return *(ascii_[character] = std::make_unique<Glyph>(Draw(character)));
  const auto found = others_.find(character);
  return found != others_.end() ? found->second : others_.emplace(character, Draw(character)).first->second;
}

GlyphSet::Glyph GlyphSet::Draw(char32_t character) const {
  Glyph glyph;
  if (character < U' ' || character >= kFirstCombining)
    return glyph;
  const QList<quint32> indexes = font_.glyphIndexesForString(QString::fromUcs4(&character, 1));
  if (indexes.size() != 1 || indexes.front() == 0)
    return glyph;
  const double advance = font_.advancesForGlyphIndexes(indexes).front().x();
  const int descent = static_cast<int>(std::ceil(font_.descent()));
  const QPoint origin(ascent_ + 2, ascent_ + 2);
  QImage board = Blackboard(origin.x() * 2 + static_cast<int>(std::ceil(advance)), origin.y() + descent + 3);
  QGlyphRun run;
  run.setRawFont(font_);
  run.setGlyphIndexes(indexes);
  run.setPositions({QPointF(0, 0)});
  QPainter painter(&board);
  painter.setPen(Qt::white);
  painter.drawGlyphRun(origin, run);
  painter.end();
  glyph.mask = Trimmed(board, origin);
  glyph.advance = static_cast<int>(std::lround(advance));
  glyph.known = true;
  return glyph;
}

const Mask& PreparedPictures::Disc(std::int32_t radius, const PixelScale& scale) {
  const auto [place, isNew] = discs_.try_emplace({radius, scale.Ratio()});
  if (isNew) {
    const double outline = scale.LineWidth(1);
    const double reach = scale.Length(radius) + outline / 2;
    const int margin = static_cast<int>(std::ceil(reach)) + 1;
    const int size = 2 * margin + static_cast<int>(std::ceil(outline / 2));
    QImage board = Blackboard(size, size);
    QPainter painter(&board);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    // The middle of a line as wide as the outline, so that the marker is centred on lines through its
    // position.
    painter.drawEllipse(QPointF(margin + outline / 2, margin + outline / 2), reach, reach);
    painter.end();
    place->second = Trimmed(board, {margin, margin});
  }
  return place->second;
}

GlyphSet& PreparedPictures::Glyphs(const map::TextFont& font, const PixelScale& scale) {
  for (const FontEntry& entry : fonts_)
    if (entry.ratio == scale.Ratio() && entry.font == font)
      return *entry.glyphs;
  const double pixelSize = std::clamp(font.size, 1, 1000) * kPixelsPerPoint * scale.Ratio();
  const QImage device(1, 1, QImage::Format_RGB32);
  auto glyphs = std::make_unique<GlyphSet>(DeviceFont(font, scale, device), pixelSize);
  fonts_.push_back({font, scale.Ratio(), std::move(glyphs)});
  return *fonts_.back().glyphs;
}

}  // namespace zerbal::paint
