// Blends thin lines of one colour into a picture, pixel by pixel.
#pragma once

#include <algorithm>
#include <array>
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
  std::uint32_t OverOthers(std::uint32_t below, std::int32_t coverage) const;

  std::uint32_t background_ = 0;
  std::uint32_t colour_ = 0;
  // The component in which background and colour differ most tells how much of the colour a pixel has. Its
  // value, inverted where the colour has less of it than the background, is the pixel's level.
  std::uint32_t shift_ = 0;
  std::uint32_t flip_ = 0;
  std::int32_t difference_ = 0;                      ///< of background and colour in that component
  std::array<std::uint32_t, 256> blends_ = {};       ///< per level; no pixel where no blend has it
  std::array<std::uint8_t, kFull + 1> levels_ = {};  ///< on the background, per coverage
};

}  // namespace zerbal::paint
