// Reading page 0, the header, and encoded files: each page but the header is encrypted with a key stream of
// its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_image.h"

namespace zerbal::jet {

struct FileHeader {
  Format format = Format::kJet4;
  std::uint16_t codePage = 0;  ///< of every text in a 1997 file
  SortOrder sortOrder;
  std::uint32_t databaseKey = 0;  ///< not 0 where the pages are encoded with it
};

/// Reads the header of `file`. Throws Damage when it is too short or of another format.
FileHeader ReadFileHeader(ByteView file);

/// The key stream of the RC4 cipher for a key of four bytes.
class KeyStream {
 public:
  explicit KeyStream(const std::array<std::uint8_t, 4>& key);
  std::uint8_t Next();

 private:
  std::array<std::uint8_t, 256> state_;
  std::uint8_t i_ = 0;
  std::uint8_t j_ = 0;
};

/// A decoded copy in memory. `databaseKey`, from the header, is not 0.
FileImage Decoded(const FileImage& image, std::size_t pageSize, std::uint32_t databaseKey);

}  // namespace zerbal::jet
