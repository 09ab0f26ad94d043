// Compiled for processors with AVX2.
#include "paint/line_vectors.h"

namespace zerbal::paint {

void CoverSlicesByAvx2(const LineInk::Rule& rule, const LineSlices& slices, const SliceParts& parts) {
  LineVectors(rule).Cover(slices, parts);
}

void CoverStrokeByAvx2(const LineInk::Rule& rule, const LineSlices& slices, const StrokeEnds& ends) {
  LineVectors(rule).Cover(slices, ends);
}

}  // namespace zerbal::paint
