#include "paint/ink.h"

#include "paint/ink_rows.h"
#include "paint/processor.h"

namespace zerbal::paint {

void Ink::Cover(const PixelBlock& block, const std::uint8_t* coverage, std::ptrdiff_t coverageStride) const {
#ifdef ZERBAL_AVX2
  if (HasAvx2()) {
    CoverByAvx2(background_, colour_, block, coverage, coverageStride);
    return;
  }
#endif
  InkRows(background_, colour_).Cover(block, coverage, coverageStride);
}

}  // namespace zerbal::paint
