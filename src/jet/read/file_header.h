// Reading page 0, the header.
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

/// Reads the header of `file`. Throws Damage when it is too short or of another format.
FileHeader ReadFileHeader(ByteView file);

}  // namespace zerbal::jet
