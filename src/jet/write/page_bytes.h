// The bytes of pages that are being written. Page size, numbers and layouts are those of the 2000 format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"

namespace zerbal::jet {

inline constexpr std::size_t kPageSize = PageSizeOf(Format::kJet4);

/// One page, all zeros but its kind at first. Numbers are little-endian. What is put must fit the page, and a
/// number its size.
struct PageBytes {
  explicit PageBytes(PageKind kind) : bytes{static_cast<std::uint8_t>(kind), 1} {}

  std::array<std::uint8_t, kPageSize> bytes;

  void Put8(std::size_t at, std::size_t value) { PutNumber(at, 1, value); }
  void Put16(std::size_t at, std::size_t value) { PutNumber(at, 2, value); }
  void Put32(std::size_t at, std::size_t value) { PutNumber(at, 4, value); }
  void Put(std::size_t at, std::span<const std::uint8_t> data) {
    ZERBAL_ASSERT(at <= kPageSize && data.size() <= kPageSize - at);
    if (!data.empty())
      std::memcpy(bytes.data() + at, data.data(), data.size());
  }
  void SetBit(std::size_t at, std::size_t bit) {
    ZERBAL_ASSERT(at + bit / 8 < kPageSize);
    bytes[at + bit / 8] = static_cast<std::uint8_t>(bytes[at + bit / 8] | 1u << bit % 8);
  }

 private:
  void PutNumber(std::size_t at, std::size_t size, std::size_t value) {
    ZERBAL_ASSERT(at + size <= kPageSize && value >> 8 * size == 0);
    StoreLittleEndian(&bytes[at], size, value);
  }
};

/// A data page that is filled with rows from its end downwards.
class DataPageBuilder {
 public:
  static constexpr std::size_t kMaxRows = 255;  ///< a row's number is one byte

  explicit DataPageBuilder(std::uint32_t owner) { page_.Put32(kOwnerAt, owner); }

  bool Fits(std::size_t size) const { return rows_ < kMaxRows && size + DirectoryEntry(rows_ + 1) <= start_; }

  /// Adds a row, which fits, and returns its number.
  std::uint8_t Add(std::span<const std::uint8_t> row) {
    ZERBAL_ASSERT(Fits(row.size()));
    start_ -= row.size();
    page_.Put(start_, row);
    page_.Put16(DirectoryEntry(rows_), start_);
    return static_cast<std::uint8_t>(rows_++);
  }

  bool Empty() const { return rows_ == 0; }
  std::size_t Free() const { return start_ - DirectoryEntry(rows_); }
  /// Whether the page is listed among those with room for another row.
  bool HasUsefulRoom() const { return rows_ < kMaxRows && Free() >= 64; }

  const PageBytes& Finished() {
    page_.Put16(kFreeBytesAt, Free());
    page_.Put16(kLayout.rowCount, rows_);
    return page_;
  }

 private:
  static constexpr DataPageLayout kLayout = DataPageLayoutOf(Format::kJet4);
  static constexpr std::size_t DirectoryEntry(std::size_t row) {
    return kLayout.directory + kDirectoryEntrySize * row;
  }

  PageBytes page_{PageKind::kData};
  std::size_t rows_ = 0;
  std::size_t start_ = kPageSize;  ///< of the lowest row
};

}  // namespace zerbal::jet
