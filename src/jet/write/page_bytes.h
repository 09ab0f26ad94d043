// The bytes of pages that are being written. Page size, numbers and layouts are those of the 2000 format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

namespace zerbal::jet {

inline constexpr std::size_t kPageSize = 4096;
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  ///< "LVAL" in the owner field of a data page

/// One page, all zeros at first. Numbers are little-endian.
struct PageBytes {
  std::array<std::uint8_t, kPageSize> bytes{};

  void Put8(std::size_t at, std::size_t value) { bytes[at] = static_cast<std::uint8_t>(value); }
  void Put16(std::size_t at, std::size_t value) { PutNumber(at, 2, value); }
  void Put32(std::size_t at, std::size_t value) { PutNumber(at, 4, value); }
  void Put(std::size_t at, std::span<const std::uint8_t> data) {
    if (!data.empty())
      std::memcpy(bytes.data() + at, data.data(), data.size());
  }
  void SetBit(std::size_t at, std::size_t bit) {
    bytes[at + bit / 8] = static_cast<std::uint8_t>(bytes[at + bit / 8] | 1u << bit % 8);
  }

 private:
  void PutNumber(std::size_t at, std::size_t size, std::size_t value) {
    for (std::size_t i = 0; i < size; ++i)
      Put8(at + i, value >> 8 * i & 0xFF);
  }
};

/// Appends the lowest `size` bytes of `value`, lowest first, to a string or a vector of bytes.
template <class Bytes>
void AppendLittleEndian(Bytes& out, std::size_t size, std::uint64_t value) {
  for (std::size_t i = 0; i < size; ++i)
    out.push_back(static_cast<typename Bytes::value_type>(value >> 8 * i & 0xFF));
}

/// How the file names a row: the row in the low byte.
inline std::uint32_t PointerTo(std::uint32_t page, std::uint8_t row) {
  return page << 8 | row;
}

/// A page of rows, filled from its end downwards.
class DataPageBuilder {
 public:
  static constexpr std::size_t kMaxRows = 255;  ///< a row's number is one byte

  explicit DataPageBuilder(std::uint32_t owner) {
    page_.Put16(0, 0x0101);
    page_.Put32(4, owner);
  }

  bool Fits(std::size_t size) const {
    return rows_ < kMaxRows && size + kDirectory + 2 * (rows_ + 1) <= start_;
  }

  /// Adds a row that fits and returns its number.
  std::uint8_t Add(std::span<const std::uint8_t> row) {
    start_ -= row.size();
    page_.Put(start_, row);
    page_.Put16(kDirectory + 2 * rows_, start_);
    return static_cast<std::uint8_t>(rows_++);
  }

  bool Empty() const { return rows_ == 0; }
  std::size_t Free() const { return start_ - kDirectory - 2 * rows_; }
  /// Worth trying when another row is to be put somewhere.
  bool HasUsefulRoom() const { return rows_ < kMaxRows && Free() >= 64; }

  const PageBytes& Finished() {
    page_.Put16(2, Free());
    page_.Put16(12, rows_);
    return page_;
  }

 private:
  static constexpr std::size_t kDirectory = 14;
  PageBytes page_;
  std::size_t rows_ = 0;
  std::size_t start_ = kPageSize;  ///< of the lowest row
};

inline std::span<const std::uint8_t> AsBytes(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace zerbal::jet
