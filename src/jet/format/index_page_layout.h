// Pages of an index tree. An entry is the key, then the page and row of its record, then, on nodes, the page
// of the child; these numbers are big-endian, so that whole entries can be compared as byte strings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "jet/format/page.h"

namespace zerbal::jet {

struct IndexPageLayout {
  unsigned links;    ///< 32 bits each: see below
  unsigned prefix;   ///< how many bytes all entries share with the first; 8 bits in 1997, else 16
  unsigned mask;     ///< bit n is set where an entry ends at byte n of the entries
  unsigned entries;  ///< up to the end of the page
};

constexpr IndexPageLayout IndexPageLayoutOf(Format format) {
  return format == Format::kJet3 ? IndexPageLayout{0x08, 0x14, 0x16, 0xF8}
                                 : IndexPageLayout{0x0C, 0x18, 0x1B, 0x1E0};
}

// Offsets from `links`.
inline constexpr std::size_t kPreviousPage = 0;
inline constexpr std::size_t kNextPage = 4;
inline constexpr std::size_t kTailChild = 8;  ///< the child after the last entry; 0 = none

inline constexpr std::size_t kIndexLevelAt = 0x1A;  ///< 8 bits, 2000 format: 0 for leaves

inline constexpr std::size_t kEntryPointerSize = 4;  ///< bytes of page and row
inline constexpr std::size_t kEntryChildSize = 4;    ///< bytes of the child's page

/// A record pointer or a child's page as an entry holds it.
constexpr std::array<std::uint8_t, 4> BigEndian(std::uint32_t value) {
  return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16 & 0xFF),
          static_cast<std::uint8_t>(value >> 8 & 0xFF), static_cast<std::uint8_t>(value & 0xFF)};
}

}  // namespace zerbal::jet
