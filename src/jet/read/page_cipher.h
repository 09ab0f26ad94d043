// Encoded files: each page but the header is encrypted with a key stream of its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "jet/read/file_image.h"

namespace zerbal::jet {

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
