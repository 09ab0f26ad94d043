// A colour that is laid over a picture through shapes of coverage.
#pragma once

#include <array>
#include <cstdint>

namespace zerbal::paint {

/// Soft edges do not harden where the same shape is drawn again and again, as airports are for each flight: a
/// pixel that is already as near to the colour as one drawing on the background would bring it stays as it
/// is.
class Ink {
 public:
  Ink() = default;
  /// Both are pixels of a 32-bit picture.
  Ink(std::uint32_t background, std::uint32_t colour);

  bool Is(std::uint32_t background, std::uint32_t colour) const {
    return background_ == background && colour_ == colour;
  }

  /// Lays the colour over a run of pixels, each with its coverage (0..255).
  void Cover(std::uint32_t* at, const std::uint8_t* coverage, int count) const;

 private:
  std::uint32_t background_ = 0;
  std::uint32_t colour_ = 0;
  /// By coverage: how far the components of the plain background remain from the colour.
  std::array<std::uint64_t, 256> distances_ = {};
};

}  // namespace zerbal::paint
