// Blends thin lines of one colour into a picture, pixel by pixel.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zerbal::paint {

/// A pixel that several lines of the colour touch gets the largest of their coverages, in whatever order they
/// are drawn: joints do not show, and a line drawn again changes nothing. Over other colours, a pixel that is
/// already as close to the colour as one drawing on the background would make it is left unchanged, too.
class LineInk {
 public:
  static constexpr std::int32_t kFull = 256;  ///< the coverage of a whole pixel

  LineInk() = default;
  /// Both are pixels of a 32-bit picture.
  LineInk(std::uint32_t background, std::uint32_t colour);

  bool Is(std::uint32_t background, std::uint32_t colour) const {
    return background_ == background && colour_ == colour;
  }

  std::uint32_t Colour() const { return colour_; }

  /// What blending without tables needs.
  struct Rule {
    std::uint32_t background;
    std::uint32_t colour;
    // The component in which background and colour differ most tells how much of the colour a pixel has. Its
    // value, inverted where the colour has less of it than the background, is the pixel's level.
    std::uint32_t shift;
    std::uint32_t flip;       ///< 0xFF or 0
    std::int32_t difference;  ///< of background and colour in that component
    std::int32_t reciprocal;  ///< 2^16 divided by it
  };
  Rule ToRule() const {
    return {background_, colour_,     shift_,
            flip_,       difference_, kReciprocals[static_cast<std::size_t>(difference_)]};
  }

  /// What a loop over many pixels needs of an ink. It is valid as long as the ink.
  class Brush {
   public:
    /// Blends the colour into one pixel. `coverage` is 0..kFull.
    void Cover(std::uint32_t& pixel, std::int32_t coverage) const {
      const std::uint32_t below = pixel;
      const std::uint32_t level = (below >> shift_ & 0xFF) ^ flip_;
      if (below == ink_->blends_[level]) [[likely]]
        pixel = ink_->blends_[std::max<std::uint32_t>(level,
                                                      ink_->levels_[static_cast<std::uint32_t>(coverage)])];
      else
        pixel = ink_->OverOthers(below, coverage);
    }

   private:
    friend class LineInk;
    explicit Brush(const LineInk& ink) : ink_(&ink), shift_(ink.shift_), flip_(ink.flip_) {}

    const LineInk* ink_;
    // Copies, which need not be read again after each pixel.
    std::uint32_t shift_;
    std::uint32_t flip_;
  };
  Brush ToBrush() const { return Brush(*this); }
  void Cover(std::uint32_t& pixel, std::int32_t coverage) const { ToBrush().Cover(pixel, coverage); }

 private:
  // Inline, because flights are drawn over other colours nearly everywhere.
  std::uint32_t OverOthers(std::uint32_t below, std::int32_t coverage) const;
  /// The largest distance of a component.
  static std::int32_t Distance(std::uint32_t pixel, std::uint32_t other);
  /// The colour with `part` (in 2^-16) of its difference from `other` left.
  static std::uint32_t Near(std::uint32_t colour, std::uint32_t other, std::int32_t part);

  /// 2^16 divided by each number, rounded.
  static constexpr std::array<std::int32_t, 256> kReciprocals = [] {
    std::array<std::int32_t, 256> result = {};
    for (std::int32_t i = 1; i < 256; ++i)
      result[static_cast<std::size_t>(i)] = ((1 << 16) + i / 2) / i;
    return result;
  }();

  std::uint32_t background_ = 0;
  std::uint32_t colour_ = 0;
  std::uint32_t shift_ = 0;  ///< these three as in Rule
  std::uint32_t flip_ = 0;
  std::int32_t difference_ = 0;
  std::array<std::uint32_t, 256> blends_ = {};       ///< per level; no pixel where no blend has it
  std::array<std::uint8_t, kFull + 1> levels_ = {};  ///< on the background, per coverage
};

inline std::int32_t LineInk::Distance(std::uint32_t pixel, std::uint32_t other) {
  // All components at once, in the first bytes of a vector.
  using Bytes = std::uint8_t __attribute__((vector_size(16)));
  using Pixels = std::uint32_t __attribute__((vector_size(16)));
  const auto a = std::bit_cast<Bytes>(Pixels{pixel, 0, 0, 0});
  const auto b = std::bit_cast<Bytes>(Pixels{other, 0, 0, 0});
  const std::uint32_t apart = std::bit_cast<Pixels>((a > b ? a : b) - (a < b ? a : b))[0];
  return static_cast<std::int32_t>(std::max({apart & 0xFF, apart >> 8 & 0xFF, apart >> 16 & 0xFF}));
}

inline std::uint32_t LineInk::Near(std::uint32_t colour, std::uint32_t other, std::int32_t part) {
  // Red and blue are multiplied together, 32 bits apart. Differences below 0 wrap round, but no sum does.
  const auto redAndBlue = [](std::uint32_t pixel) {
    return std::uint64_t{pixel & 0xFF0000} << 16 | (pixel & 0xFF);
  };
  const auto green = [](std::uint32_t pixel) { return pixel >> 8 & 0xFF; };
  const auto factor = static_cast<std::uint32_t>(part);
  const std::uint64_t two =
      (redAndBlue(colour) << 16) + 0x0000'8000'0000'8000 + (redAndBlue(other) - redAndBlue(colour)) * factor;
  const std::uint32_t one = (green(colour) << 16) + 0x8000 + (green(other) - green(colour)) * factor;
  return 0xFF000000 | static_cast<std::uint32_t>(two >> 32 & 0xFF0000) | (one >> 8 & 0xFF00) |
         static_cast<std::uint32_t>(two >> 16 & 0xFF);
}

inline std::uint32_t LineInk::OverOthers(std::uint32_t below, std::int32_t coverage) const {
  const std::int32_t distance = Distance(below, colour_);
  const std::int32_t left = kFull - coverage;
  const std::int32_t plain = (difference_ * left + kFull / 2) / kFull;
  if (distance <= plain)
    return below;
  return Near(colour_, below,
              std::max(plain * kReciprocals[static_cast<std::size_t>(distance)], left * (1 << 16) / kFull));
}

}  // namespace zerbal::paint
