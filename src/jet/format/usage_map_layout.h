// Usage maps: sets of page numbers. A map is a row of a data page and begins with its kind.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/page.h"

namespace zerbal::jet {

enum class UsageMapKind : std::uint8_t {
  kInline = 0,     ///< a bitmap in the row, for the pages from a given one on
  kReference = 1,  ///< the numbers of usage map pages, each with the bitmap of a fixed range; 0 = none of it
};

inline constexpr std::size_t kInlineStartAt = 1;    ///< 32 bits: the page of the bitmap's first bit
inline constexpr std::size_t kInlineBitmapAt = 5;   ///< to the end of the row
inline constexpr std::size_t kMapPagesAt = 1;       ///< 32 bits each
inline constexpr std::size_t kMapPageSize = 4;      ///< bytes of each
inline constexpr std::size_t kMapPageBitmapAt = 4;  ///< on a usage map page, up to its end

/// How many pages one usage map page covers.
constexpr std::size_t PagesPerMapPage(Format format) {
  return (PageSizeOf(format) - kMapPageBitmapAt) * 8;
}

}  // namespace zerbal::jet
