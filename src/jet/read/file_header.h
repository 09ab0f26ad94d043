// Page 0 of a database file.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/bytes.h"

namespace zerbal::jet {

enum class Format { kJet3, kJet4 };

/// Which rule orders texts in an index.
struct SortOrder {
  std::uint16_t language = 0;
  std::uint8_t version = 0;
  bool operator==(const SortOrder&) const = default;
};

/// The one order whose keys are known.
inline constexpr SortOrder kGeneralSortOrder{0x0409, 0};

struct FileHeader {
  Format format = Format::kJet4;
  std::uint16_t codePage = 0;  ///< of every text in a 1997 file
  SortOrder sortOrder;
  std::uint32_t databaseKey = 0;  ///< not 0 where the pages are encoded with it
};

/// Reads the header out of the whole file. Throws Damage for a foreign, newer or too short file.
FileHeader ReadFileHeader(ByteView file);

inline std::size_t PageSizeOf(Format format) {
  return format == Format::kJet3 ? 2048 : 4096;
}

}  // namespace zerbal::jet
