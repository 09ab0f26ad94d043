#include "paint/line_ink.h"

#include <cstdlib>

namespace zerbal::paint {
namespace {

constexpr std::array<std::uint32_t, 3> kShifts = {0, 8, 16};

std::int32_t Component(std::uint32_t pixel, std::uint32_t shift) {
  return static_cast<std::int32_t>(pixel >> shift & 0xFF);
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

}  // namespace zerbal::paint
