#include "paint/ink.h"

#include "paint/ink_rows.h"

namespace zerbal::paint {

void Ink::Cover(const PixelBlock& block, const std::uint8_t* coverage, std::ptrdiff_t coverageStride) const {
#ifdef ZERBAL_INK_AVX2
  static const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
  if (hasAvx2) {
    CoverByAvx2(background_, colour_, block, coverage, coverageStride);
    return;
  }
#endif
  InkRows(background_, colour_).Cover(block, coverage, coverageStride);
}

}  // namespace zerbal::paint
