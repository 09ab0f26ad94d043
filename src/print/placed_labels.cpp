#include "print/placed_labels.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace zerbal::print {
namespace {

/// Twips between a marker or line and its label.
constexpr std::int32_t kGap = 20;
/// Twips around a letter, for its halo.
constexpr auto kHaloTwips = static_cast<std::int32_t>(kHaloReach * kTwipsPerPixel);
/// Above the numbers of flights of all legs.
constexpr long kAirportPriority = 1'000'000;
constexpr long kGraticulePriority = kAirportPriority - 1;

struct LabelledAirport {
  const PlacedAirport* airport;
  long priority;
};

/// The longest of some lines, as far as the eye can tell: the one with the largest box.
const std::vector<TwipPoint>* LongestOf(const std::vector<std::vector<TwipPoint>>& parts) {
  const auto reach = [](const std::vector<TwipPoint>& part) {
    const auto [left, right] =
        std::minmax_element(part.begin(), part.end(), [](TwipPoint a, TwipPoint b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(part.begin(), part.end(), [](TwipPoint a, TwipPoint b) { return a.y < b.y; });
    return part.empty()
               ? 0.0
               : std::hypot(static_cast<double>(right->x) - left->x, static_cast<double>(bottom->y) - top->y);
  };
  const auto longest = std::max_element(parts.begin(), parts.end(),
                                        [&](const auto& a, const auto& b) { return reach(a) < reach(b); });
  return longest == parts.end() ? nullptr : &*longest;
}

/// By code. An airport of several lists has the label of the last one.
std::map<std::string, LabelledAirport> LabelledAirports(const Contents& contents) {
  std::unordered_map<std::string, long> flights;
  for (const PlacedLeg& leg : contents.legs) {
    ++flights[leg.from];
    ++flights[leg.to];
  }
  std::map<std::string, LabelledAirport> labelled;
  const auto add = [&](const std::vector<PlacedAirport>& airports, bool destinations) {
    for (const PlacedAirport& airport : airports)
      labelled[airport.code] = {&airport,
                                kAirportPriority + 2 * flights[airport.code] + (destinations ? 1 : 0)};
  };
  add(contents.allAirports, false);
  add(contents.destinations, true);
  add(contents.legAirports, true);
  return labelled;
}

}  // namespace

TwipSize LabelPlan::SizeOf(std::string_view text, const map::TextFont& font) const {
  const TextSize size = surface_.Measure(text, font);
  return {size.width + 2 * kHaloTwips, size.height + 2 * kHaloTwips};
}

void LabelPlan::Add(long priority, Text text, std::vector<TwipBox> places) {
  text.style.halo = halo_;
  texts_.push_back(std::move(text));
  requests_.push_back({priority, std::move(places)});
}

void LabelPlan::AddMarkers(const Contents& contents, std::int32_t radius) {
  for (const auto* airports : {&contents.allAirports, &contents.destinations, &contents.legAirports})
    for (const PlacedAirport& airport : *airports)
      AddObstacle(TwipBox::Around(airport.centre, radius));
}

void LabelPlan::AddAirports(const Contents& contents, std::int32_t markerRadius, const map::TextFont& font) {
  for (const auto& [code, one] : LabelledAirports(contents)) {
    const TwipSize size = SizeOf(one.airport->label, font);
    Add(one.priority, {one.airport->label, {.font = font, .colour = one.airport->colour}},
        PlacesAround(one.airport->centre, markerRadius, kGap, size));
  }
}

void LabelPlan::AddLegs(const std::vector<LegGroup>& groups, std::optional<data::Rgb> colour, double widest,
                        const map::TextFont& font) {
  const auto gap = kGap + static_cast<std::int32_t>(widest * kTwipsPerPixel / 2);
  for (const LegGroup& group : groups) {
    const std::vector<TwipPoint>* line = LongestOf(group.first->parts);
    if (line == nullptr)
      continue;
    const std::string text = SharedLabel(group.labels);
    Add(group.flights, {text, {.font = font, .colour = colour.value_or(group.colour)}},
        PlacesAlong(*line, gap, SizeOf(text, font)));
  }
}

void LabelPlan::AddGraticule(const std::vector<GraticuleLine>& lines, data::Rgb colour,
                             const map::TextFont& font) {
  for (const GraticuleLine& line : lines) {
    const std::vector<TwipPoint>* part = LongestOf(line.parts);
    if (part == nullptr)
      continue;
    Add(kGraticulePriority, {line.text, {.font = font, .colour = colour}},
        PlacesAtEnds(*part, kGap, SizeOf(line.text, font)));
  }
}

void LabelPlan::Draw(PrintSurface& surface) const {
  const auto chosen = PlaceLabels(requests_, obstacles_, area_);
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    if (!chosen[i])
      continue;
    const TwipBox& box = requests_[i].places[*chosen[i]];
    surface.StyledText({box.left + kHaloTwips, box.top + kHaloTwips}, texts_[i].text, texts_[i].style);
  }
}

}  // namespace zerbal::print
