// Pages: what a file consists of, and what is the same on all of them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zerbal::jet {

/// The format of 1997, and that of 2000 to 2003.
enum class Format { kJet3, kJet4 };

constexpr std::size_t PageSizeOf(Format format) {
  return format == Format::kJet3 ? 2048 : 4096;
}

inline constexpr std::uint32_t kMaxPageCount = 1u << 24;           ///< page numbers have three bytes
inline constexpr std::size_t kMaxFileSize = std::size_t{2} << 30;  ///< bytes; what the format allows

/// The first byte of a page. The second one is always 1.
enum class PageKind : std::uint8_t {
  kHeader = 0,
  kData = 1,
  kTableDefinition = 2,
  kIndexNode = 3,
  kIndexLeaf = 4,
  kUsageMap = 5,
};

// Offsets of fields that several kinds of pages have.
inline constexpr std::size_t kPageKindAt = 0;
inline constexpr std::size_t kFreeBytesAt = 2;  ///< 16 bits; on data, index and definition pages
inline constexpr std::size_t kOwnerAt = 4;  ///< 32 bits: the table's definition page; on data and index pages

constexpr bool IsOfKind(const std::uint8_t* page, PageKind kind) {
  return page[kPageKindAt] == static_cast<std::uint8_t>(kind);
}

/// Names one row of the file.
struct RecordPointer {
  std::uint32_t page = 0;
  std::uint8_t row = 0;

  /// As stored in tables and rows: the row in the low byte.
  static constexpr RecordPointer FromU32(std::uint32_t value) {
    return {value >> 8, static_cast<std::uint8_t>(value & 0xFF)};
  }
  constexpr std::uint32_t ToU32() const { return page << 8 | row; }
  bool operator==(const RecordPointer&) const = default;
};

}  // namespace zerbal::jet
