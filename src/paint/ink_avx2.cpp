// Compiled for processors with AVX2.
#include "paint/ink_rows.h"

namespace zerbal::paint {

void CoverByAvx2(std::uint32_t background, std::uint32_t colour, const PixelBlock& block,
                 const std::uint8_t* coverage, std::ptrdiff_t coverageStride) {
  InkRows(background, colour).Cover(block, coverage, coverageStride);
}

}  // namespace zerbal::paint
