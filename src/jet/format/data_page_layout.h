// Data pages, which hold the rows of tables, pieces of long values, and usage maps; and the layout of a row.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/page.h"

namespace zerbal::jet {

/// Offsets on a data page. Rows fill it from its end downwards, in the order of the directory.
struct DataPageLayout {
  std::size_t rowCount;   ///< 16 bits
  std::size_t directory;  ///< 16 bits per row: the offset of its first byte, and flags
};

constexpr DataPageLayout DataPageLayoutOf(Format format) {
  return format == Format::kJet3 ? DataPageLayout{0x08, 0x0A} : DataPageLayout{0x0C, 0x0E};
}

inline constexpr std::size_t kDirectoryEntrySize = 2;  ///< bytes
inline constexpr std::uint16_t kRowStartMask = 0x1FFF;
// Flags of a directory entry. A deleted row has both.
inline constexpr std::uint16_t kRowMoved = 0x4000;   ///< the row is a RecordPointer to where its bytes are
inline constexpr std::uint16_t kRowHidden = 0x8000;  ///< the row is the target of such a pointer, or deleted

inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  ///< "LVAL"; owns all pages of long values

/// Bytes of the number of columns, with which a row begins.
constexpr std::size_t RowHeadSize(Format format) {
  return format == Format::kJet3 ? 1 : 2;
}
/// Bytes of the null mask, with which a row ends: one bit per column, from the lowest bit of the first byte.
constexpr std::size_t NullMaskSize(std::size_t columnCount) {
  return (columnCount + 7) / 8;
}

}  // namespace zerbal::jet
