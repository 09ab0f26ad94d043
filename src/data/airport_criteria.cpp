#include "data/airport_criteria.h"

#include <algorithm>

namespace zerbal::data {

namespace {

/// The words around the numbers of one numeric criterion.
struct Words {
  std::string_view betweenStart, betweenEnd;  ///< around "from and to"
  std::string_view oneStart, oneEnd;          ///< around a single number
  std::string_view orMore, orLess;            ///< after that
};

constexpr std::array<Words, 3> kWords{{
    {"Elevation is between ", " ft", "Elevation is ", " ft", " or higher", " or lower"},
    {"Between ", " runways", "", " runways", " or more", " or less"},
    {"Longest runway is between ", " ft", "Longest runway is ", " ft", " or longer", " or shorter"},
}};

bool Passes(const NumericCriterion& criterion, std::int32_t value) {
  if (criterion.limit == Limit::kAtLeast)
    return value >= criterion.atLeast;
  if (criterion.limit == Limit::kAtMost)
    return value <= criterion.atMost;
  return criterion.from <= value && value <= criterion.to;
}

std::string One(const Words& words, std::int32_t value, std::string_view end) {
  return std::string(words.oneStart).append(std::to_string(value)).append(words.oneEnd).append(end);
}

std::string Piece(const NumericCriterion& criterion, const Words& words) {
  if (criterion.limit == Limit::kAtLeast)
    return One(words, criterion.atLeast, words.orMore);
  if (criterion.limit == Limit::kAtMost)
    return One(words, criterion.atMost, words.orLess);
  if (criterion.from == criterion.to)
    return One(words, criterion.from, "");
  return std::string(words.betweenStart)
      .append(std::to_string(criterion.from))
      .append(" and ")
      .append(std::to_string(criterion.to))
      .append(words.betweenEnd);
}

void Append(std::string& text, std::string_view piece) {
  if (!text.empty())
    text += " - ";
  text += piece;
}

}  // namespace

bool AirportCriteria::AnyActive() const {
  return ilsActive || std::ranges::any_of(numeric, &NumericCriterion::active);
}

bool AirportPassesCriteria(const AirportCriteria& set, std::int32_t elevation, std::int32_t runways,
                           std::int32_t longestRunway, std::string_view ils) {
  const std::array values{elevation, runways, longestRunway};
  for (std::size_t n = 0; n < values.size(); ++n)
    if (set.numeric[n].active && !Passes(set.numeric[n], values[n]))
      return false;
  return !set.ilsActive || ils == (set.withIls ? "1" : "0");
}

std::string DelimitationText(const AirportCriteria& set) {
  if (!set.AnyActive())
    return "No delimitations set";
  std::string text;
  for (std::size_t n = 0; n < set.numeric.size(); ++n)
    if (set.numeric[n].active)
      Append(text, Piece(set.numeric[n], kWords[n]));
  if (set.ilsActive)
    Append(text, set.withIls ? "With ILS" : "Without ILS");
  return text;
}

}  // namespace zerbal::data
