// Page 0 of a database file.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/bytes.h"
#include "jet/format/header_layout.h"
#include "jet/format/page.h"

namespace zerbal::jet {

struct FileHeader {
  Format format = Format::kJet4;
  std::uint16_t codePage = 0;  ///< of every text in a 1997 file
  SortOrder sortOrder;
  std::uint32_t databaseKey = 0;  ///< not 0 where the pages are encoded with it
};

/// Reads the header out of the whole file. Throws Damage for a foreign, newer or too short file.
FileHeader ReadFileHeader(ByteView file);

}  // namespace zerbal::jet
