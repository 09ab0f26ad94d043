// Reading data pages and the rows on them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// A view of one data page. Its directory of rows lies within the page.
class DataPage {
 public:
  DataPage() = default;
  DataPage(const FilePages& pages, std::uint32_t number);

  std::uint32_t Owner() const { return LoadU32(page_.Data() + kOwnerAt); }  ///< the table's definition page
  unsigned RowCount() const { return rowCount_; }

  std::uint16_t Flags(unsigned row) const { return static_cast<std::uint16_t>(Entry(row) & ~kRowStartMask); }
  /// The bytes of a row; throws Damage when there is no such row or it does not lie on the page.
  ByteView Row(unsigned row) const {
    if (row >= rowCount_)
      ThrowNoRow();
    const Extent extent = ExtentOf(row);
    if (!IsOnPage(extent))
      ThrowOffPage();
    return {page_.Data() + extent.start, extent.end - extent.start};
  }
  /// Whether a row of the directory lies between the directory and the page's end.
  bool Holds(unsigned row) const { return IsOnPage(ExtentOf(row)); }

  [[noreturn]] static void ThrowOffPage();  ///< Damage: a row is not between the directory and the page's end

  const std::uint8_t* Directory() const { return page_.Data() + directory_; }
  std::size_t DirectoryEnd() const { return directory_ + kDirectoryEntrySize * rowCount_; }
  ByteView Bytes() const { return page_; }

 private:
  [[noreturn]] static void ThrowNoRow();
  struct Extent {
    std::size_t start;
    std::size_t end;
  };
  Extent ExtentOf(unsigned row) const {
    const std::size_t end = row == 0 ? page_.Size() : Entry(row - 1) & kRowStartMask;
    return {std::size_t{Entry(row)} & kRowStartMask, end};
  }
  bool IsOnPage(const Extent& extent) const {
    return extent.start >= DirectoryEnd() && extent.start <= extent.end && extent.end <= page_.Size();
  }
  std::uint16_t Entry(unsigned row) const { return page_.U16(directory_ + kDirectoryEntrySize * row); }

  ByteView page_;
  std::size_t directory_ = 0;
  unsigned rowCount_ = 0;
};

/// The bytes that a moved row, given as `pointer` on its page, has elsewhere. Throws Damage.
ByteView FollowPointer(const FilePages& pages, ByteView pointer, std::uint32_t owner);

/// The bytes of a row of the table `owner`, also when the row has moved. `row` is not hidden. Throws Damage.
inline ByteView FollowRow(const FilePages& pages, const DataPage& page, unsigned row, std::uint32_t owner) {
  const ByteView bytes = page.Row(row);
  return (page.Flags(row) & kRowMoved) == 0 ? bytes : FollowPointer(pages, bytes, owner);
}

/// The row that a pointer names, whatever the owner of its page. Throws Damage.
ByteView RowAt(const FilePages& pages, RecordPointer pointer);

}  // namespace zerbal::jet
