#include "print/furniture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/utf8.h"
#include "data/great_circle.h"
#include "print/scale_bar.h"

namespace zerbal::print {
namespace {

using enum Corner;

constexpr std::int32_t kPadding = 6 * kTwipsPerPixel;
constexpr std::int32_t kSampleWidth = 24 * kTwipsPerPixel;
constexpr std::int32_t kLongestBar = 200 * kTwipsPerPixel;
constexpr std::int32_t kBarHeight = 4 * kTwipsPerPixel;
constexpr std::int32_t kArrow = 44 * kTwipsPerPixel;  ///< side of its box
constexpr int kSmallestTitle = 6;                     ///< points

std::int32_t Rounded(double value) {
  return static_cast<std::int32_t>(std::lround(value));
}

TwipPoint MiddleOf(const TwipBox& box) {
  return {box.left + box.Width() / 2, box.top + box.Height() / 2};
}

Ring RingOf(const TwipBox& box) {
  return {{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}};
}

void StrokeRing(Ring ring, const StrokeStyle& style, PrintSurface& surface) {
  ring.push_back(ring.front());
  surface.Stroke(ring, style);
}

std::string WithoutLastLetter(std::string text) {
  while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U)
    text.pop_back();
  if (!text.empty())
    text.pop_back();
  return text;
}

/// Metres per twip around a place, across the picture.
std::optional<double> ScaleAt(const Projection& projection, TwipPoint place) {
  constexpr std::int32_t kApart = 10 * kTwipsPerPixel;
  const auto west = projection.Unproject({place.x - kApart, place.y});
  const auto east = projection.Unproject({place.x + kApart, place.y});
  if (!west || !east)
    return std::nullopt;
  const auto metres = data::GreatCircleMetres(*west, *east);
  return metres ? std::optional(*metres / (2.0 * kApart)) : std::nullopt;
}

std::string LatitudeText(double lat) {
  const long whole = std::lround(std::abs(lat));
  return std::to_string(whole) + "°" + (whole == 0 ? "" : lat > 0 ? "N" : "S");
}

/// The direction of north on the picture, clockwise from upwards, radians.
std::optional<double> NorthAt(const Projection& projection, TwipPoint place) {
  const auto position = projection.Unproject(place);
  if (!position)
    return std::nullopt;
  constexpr double kStep = 0.5;  // degrees
  const double north = std::min(position->lat + kStep, 90.0);
  const double south = std::max(position->lat - kStep, -90.0);
  const auto to = projection.Project({position->lon, north});
  const auto from = projection.Project({position->lon, south});
  const TwipPoint end = to.value_or(place);
  const TwipPoint start = from.value_or(place);
  if (end == start)
    return std::nullopt;
  return std::atan2(static_cast<double>(end.x) - start.x, static_cast<double>(start.y) - end.y);
}

void DrawArrow(TwipPoint middle, double angle, const PrintStyle& style, PrintSurface& surface) {
  const auto at = [&](double right, double up) {
    return TwipPoint{middle.x + Rounded(kTwipsPerPixel * (right * std::cos(angle) + up * std::sin(angle))),
                     middle.y + Rounded(kTwipsPerPixel * (right * std::sin(angle) - up * std::cos(angle)))};
  };
  const Ring rings[] = {{at(0, 10), at(-7, -16), at(0, -11)}};
  surface.Fill(rings, style.text);
  StrokeRing({at(0, 10), at(-7, -16), at(0, -11), at(7, -16)}, {.colour = style.text}, surface);
  const TextSize size = surface.Measure("N", style.legend);
  const TwipPoint letter = at(0, 16);
  surface.StyledText({letter.x - size.width / 2, letter.y - size.height / 2}, "N",
                     {.font = style.legend, .colour = style.text});
}

}  // namespace

std::int32_t FurnitureMaker::WidthOf(std::string_view text, const map::TextFont& font) const {
  return surface_.Measure(text, font).width;
}

std::int32_t FurnitureMaker::RowHeight(const map::TextFont& font) const {
  return surface_.Measure("Xg", font).height;
}

void FurnitureMaker::DrawBox(const TwipBox& box, PrintSurface& surface) const {
  const Ring rings[] = {RingOf(box)};
  surface.Fill(rings, style_.box);
  StrokeRing(rings[0], {.colour = style_.frame, .width = style_.frameWidth}, surface);
}

FurnitureItem FurnitureMaker::Title(const std::string& title) const {
  const std::int32_t most = picture_.Width() - 2 * (Furniture::kMargin + kPadding);
  map::TextFont font = style_.title;
  while (font.size > kSmallestTitle && WidthOf(title, font) > most)
    --font.size;
  std::string text = title;
  for (std::string rest = title; !rest.empty() && WidthOf(text, font) > most; text = rest + "…")
    rest = WithoutLastLetter(rest);
  const TextSize size = surface_.Measure(text, font);
  return {{{size.width + 2 * kPadding, size.height + kPadding},
           std::nullopt,
           {kTopLeft, kTopRight, kBottomLeft, kBottomRight}},
          [this, text, font](const TwipBox& box, PrintSurface& surface) {
            DrawBox(box, surface);
            surface.StyledText({box.left + kPadding, box.top + kPadding / 2}, text,
                               {.font = font, .colour = style_.text});
          }};
}

FurnitureItem FurnitureMaker::Legend(std::vector<LegendRow> rows, std::optional<Corner> wanted) const {
  LegendMeasures measures{.rowHeight = RowHeight(style_.legend),
                          .sampleWidth = kSampleWidth,
                          .gap = kPadding,
                          .padding = kPadding};
  std::vector<LegendRowSize> sizes;
  for (const LegendRow& row : rows) {
    sizes.push_back({WidthOf(row.text, style_.legend), row.heading});
    measures.rowHeight = std::max(measures.rowHeight, Rounded((row.sample.width + 2) * kTwipsPerPixel));
  }
  LegendLayout layout = LayOutLegend(sizes, measures, picture_.Height() / 2);
  const FurniturePiece piece{layout.size, wanted, {kBottomLeft, kBottomRight, kTopLeft, kTopRight}};
  return {piece, [this, rows = std::move(rows), layout = std::move(layout), measures](const TwipBox& box,
                                                                                      PrintSurface& surface) {
            DrawBox(box, surface);
            for (std::size_t i = 0; i < rows.size(); ++i) {
              const std::int32_t left = box.left + layout.rows[i].x;
              const std::int32_t top = box.top + layout.rows[i].y;
              const std::int32_t middle = top + measures.rowHeight / 2;
              const TwipPoint sample[] = {{left, middle}, {left + kSampleWidth, middle}};
              if (!rows[i].heading)
                surface.Stroke(sample, rows[i].sample);
              const std::int32_t textTop = middle - surface.Measure(rows[i].text, style_.legend).height / 2;
              surface.StyledText({rows[i].heading ? left : left + kSampleWidth + measures.gap, textTop},
                                 rows[i].text, {.font = style_.legend, .colour = style_.text});
            }
          }};
}

std::optional<FurnitureItem> FurnitureMaker::Scale(const Projection& projection,
                                                   std::optional<Corner> wanted) const {
  const TwipPoint middle = MiddleOf(picture_);
  const auto metresPerTwip = ScaleAt(projection, middle);
  const auto bar = RoundScaleBar(metresPerTwip.value_or(0), std::min(kLongestBar, picture_.Width() / 3));
  if (!bar)
    return std::nullopt;
  const std::string text = bar->Text() + " at " + LatitudeText(projection.Unproject(middle)->lat);
  const TextSize size = surface_.Measure(text, style_.legend);
  const FurniturePiece piece{
      {std::max(size.width, bar->twips) + 2 * kPadding, size.height + kBarHeight + kPadding * 3 / 2},
      wanted,
      {kBottomRight, kBottomLeft, kTopRight, kTopLeft}};
  return FurnitureItem{piece, [this, text, twips = bar->twips](const TwipBox& box, PrintSurface& surface) {
                         DrawBox(box, surface);
                         surface.StyledText({box.left + kPadding, box.top + kPadding / 2}, text,
                                            {.font = style_.legend, .colour = style_.text});
                         const TwipBox whole = TwipBox::At(
                             {box.left + kPadding, box.bottom - kPadding - kBarHeight}, {twips, kBarHeight});
                         TwipBox half = whole;
                         half.right = whole.left + twips / 2;
                         const Ring rings[] = {RingOf(half)};
                         surface.Fill(rings, style_.text);
                         StrokeRing(RingOf(whole), {.colour = style_.text}, surface);
                       }};
}

FurnitureItem FurnitureMaker::North(const Projection& projection, std::optional<Corner> wanted) const {
  const FurniturePiece piece{{kArrow, kArrow}, wanted, {kTopRight, kTopLeft, kBottomRight, kBottomLeft}};
  return {piece, [this, &projection](const TwipBox& box, PrintSurface& surface) {
            const auto here = NorthAt(projection, MiddleOf(box));
            const auto angle = here ? here : NorthAt(projection, MiddleOf(picture_));
            DrawBox(box, surface);
            DrawArrow(MiddleOf(box), angle.value_or(0), style_, surface);
          }};
}

Furniture::Furniture(std::vector<FurnitureItem> items, const TwipBox& picture,
                     std::span<const TwipPoint> busy)
    : items_(std::move(items)) {
  std::vector<FurniturePiece> pieces;
  for (const FurnitureItem& item : items_)
    pieces.push_back(item.piece);
  boxes_ = PlaceFurniture(pieces, picture.Grown(-kMargin), kMargin, busy);
}

std::vector<TwipBox> Furniture::Boxes() const {
  std::vector<TwipBox> boxes;
  for (const std::optional<TwipBox>& box : boxes_)
    if (box)
      boxes.push_back(*box);
  return boxes;
}

void Furniture::Draw(PrintSurface& surface) const {
  for (std::size_t i = 0; i < items_.size(); ++i)
    if (boxes_[i])
      items_[i].draw(*boxes_[i], surface);
}

}  // namespace zerbal::print
