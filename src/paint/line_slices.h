// Slices of a line: rows or columns of pixels across it. Internal to `DrawSmoothLine`.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/coordinates.h"
#include "paint/line_ink.h"

namespace zerbal::paint {

/// Slices of a line. All pixels that `Rows()` of them could need are in the picture, also of slices after
/// them until their number is a multiple of kStep.
struct LineSlices {
  static constexpr int kStep = 8;
  static constexpr int kPositionBits = 32;

  std::uint32_t* pixels = nullptr;  ///< of the first slice, where positions are 0
  std::ptrdiff_t nextSlice = 0;     ///< pixels from one slice to the next
  std::ptrdiff_t next = 0;          ///< pixels to the next pixel of a slice
  std::int64_t begin = 0;           ///< position where the line begins in the first slice, in 2^-32 pixels
  std::int64_t step = 0;            ///< from one slice to the next
  std::int32_t extent = 0;          ///< of the line in a slice, in 256ths of a pixel; at least one pixel
  int count = 0;

  /// The most pixels of one slice that the line can cover.
  static std::int32_t Rows(std::int32_t extent) { return 1 + (extent + LineInk::kFull - 2) / LineInk::kFull; }
};

/// What a line has of its first and last slice, in 256ths.
struct SliceParts {
  std::int32_t first = LineInk::kFull;
  std::int32_t last = LineInk::kFull;
};

/// The ends of a stroke, which are across it.
struct StrokeEnds {
  // x is along, y across the slices. The first slice is at 0.
  FinePoint from;
  FinePoint to;
  float slope = 0;
  float cosine = 0;  ///< of the angle between slices and the stroke's ends
};

// Make the same pixels as `LineInk` does one by one. For processors with AVX2.

void CoverSlicesByAvx2(const LineInk::Rule& rule, const LineSlices& slices, const SliceParts& parts);
void CoverStrokeByAvx2(const LineInk::Rule& rule, const LineSlices& slices, const StrokeEnds& ends);

}  // namespace zerbal::paint
