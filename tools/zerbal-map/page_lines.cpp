#include "zerbal-map/page_lines.h"

#include <cstdlib>
#include <utility>

namespace zerbal::mapcommand {
namespace {

/// Twips, a thirtieth of a pixel without zoom and one pixel at the closest.
constexpr std::int32_t kLeastStep = 2;
/// Bytes. Browsers skip elements that are out of view, but each element costs them time too.
constexpr std::size_t kLongPath = 4000;

constexpr std::pair<map::Layer, const char*> kClasses[] = {
    {map::Layer::kCoast, "coast"}, {map::Layer::kRiver, "river"}, {map::Layer::kBoundary, "boundary"}};

/// A minus sign separates numbers by itself.
void AppendNumber(std::string& text, std::int64_t number, bool first) {
  if (!first && number >= 0)
    text += ' ';
  text += std::to_string(number);
}

}  // namespace

std::string PathText(std::span<const TwipPoint> points, std::int32_t least) {
  if (points.size() < 2)
    return "";
  TwipPoint last = points.front();
  std::string text = "M" + std::to_string(last.x) + " " + std::to_string(last.y);
  bool first = true;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const std::int64_t dx = std::int64_t{points[i].x} - last.x;
    const std::int64_t dy = std::int64_t{points[i].y} - last.y;
    if (i + 1 < points.size() && std::abs(dx) < least && std::abs(dy) < least)
      continue;
    text += first ? "l" : "";
    AppendNumber(text, dx, first);
    AppendNumber(text, dy, false);
    first = false;
    last = points[i];
  }
  return text;
}

void PageLines::Polyline(std::span<const TwipPoint> points, const map::Pen&) {
  const bool isBase =
      layer_ == map::Layer::kCoast || layer_ == map::Layer::kRiver || layer_ == map::Layer::kBoundary;
  const std::string text = isBase ? PathText(points, kLeastStep) : "";
  if (text.empty())
    return;
  std::vector<std::string>& paths = paths_[layer_];
  if (paths.empty() || paths.back().size() > kLongPath)
    paths.emplace_back();
  paths.back() += text;
}

std::string PageLines::Elements() const {
  std::string text;
  for (const auto& [layer, name] : kClasses) {
    const auto paths = paths_.find(layer);
    if (paths == paths_.end())
      continue;
    for (const std::string& path : paths->second)
      text.append("<path class=\"").append(name).append("\" d=\"").append(path).append("\"/>\n");
  }
  return text;
}

}  // namespace zerbal::mapcommand
