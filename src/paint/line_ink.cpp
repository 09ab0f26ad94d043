#include "paint/line_ink.h"

#include <cstdlib>

namespace zerbal::paint {
namespace {

constexpr std::array<std::uint32_t, 3> kShifts = {0, 8, 16};
constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::int32_t kHalfOne = 1 << 15;

std::int32_t Component(std::uint32_t pixel, std::uint32_t shift) {
  return static_cast<std::int32_t>(pixel >> shift & 0xFF);
}

/// 2^16 divided by each number, rounded.
constexpr std::array<std::int32_t, 256> kReciprocals = [] {
  std::array<std::int32_t, 256> result = {};
  for (std::int32_t i = 1; i < 256; ++i)
    result[static_cast<std::size_t>(i)] = ((1 << 16) + i / 2) / i;
  return result;
}();

/// The colour with `part` (in 2^-16) of its difference from `other` left.
std::uint32_t Near(std::uint32_t colour, std::uint32_t other, std::int32_t part) {
  std::uint32_t result = kOpaque;
  for (const std::uint32_t shift : kShifts) {
    const std::int32_t own = Component(colour, shift);
    const std::int32_t rest = ((Component(other, shift) - own) * part + kHalfOne) >> 16;
    result |= static_cast<std::uint32_t>(own + rest) << shift;
  }
  return result;
}

}  // namespace

LineInk::LineInk(std::uint32_t background, std::uint32_t colour) : background_(background), colour_(colour) {
  for (const std::uint32_t shift : kShifts) {
    const std::int32_t difference = std::abs(Component(colour, shift) - Component(background, shift));
    if (difference >= difference_) {
      difference_ = difference;
      shift_ = shift;
    }
  }
  const std::int32_t full = Component(colour, shift_);
  const bool less = full < Component(background, shift_);
  flip_ = less ? 0xFF : 0;
  const auto level = [&](std::int32_t left) {
    return static_cast<std::uint32_t>(less ? full + left : full - left) ^ flip_;
  };
  for (std::int32_t left = 0; left <= difference_; ++left)
    blends_[level(left)] =
        Near(colour, background, left * kReciprocals[static_cast<std::size_t>(difference_)]);
  blends_[level(difference_)] = background;
  for (std::int32_t coverage = 0; coverage <= kFull; ++coverage)
    levels_[static_cast<std::size_t>(coverage)] =
        static_cast<std::uint8_t>(level((difference_ * (kFull - coverage) + kFull / 2) / kFull));
}

std::uint32_t LineInk::OverOthers(std::uint32_t below, std::int32_t coverage) const {
  std::int32_t distance = 0;
  for (const std::uint32_t shift : kShifts)
    distance = std::max(distance, std::abs(Component(below, shift) - Component(colour_, shift)));
  const std::int32_t left = kFull - coverage;
  const std::int32_t plain = (difference_ * left + kFull / 2) / kFull;
  if (distance <= plain)
    return below;
  return Near(colour_, below,
              std::max(plain * kReciprocals[static_cast<std::size_t>(distance)], left * (1 << 16) / kFull));
}

}  // namespace zerbal::paint
