// Compiled for processors with AVX2.
#include "paint/line_vectors.h"

namespace zerbal::paint {

void CoverSlicesByAvx2(const LineInk::Rule& rule, const LineSlices& slices) {
  LineVectors(rule).Cover(slices);
}

void CoverStrokeByAvx2(const LineInk::Rule& rule, const LineSlices& slices, const StrokeEnds& ends) {
  LineVectors(rule).Cover(slices, ends);
}

}  // namespace zerbal::paint
