// Sets of pages, as the file stores them.
#pragma once

#include <cstdint>

#include "jet/format/bytes.h"
#include "jet/read/data_page.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// A set of page numbers that lies in the file: a bitmap in a row, or a row of pointers to bitmap pages.
/// Pages that the file does not have are no members. Of a map that cannot be read every page is a member:
/// each says itself whose it is.
class UsageMap {
 public:
  UsageMap() = default;
  UsageMap(const FilePages& pages, RecordPointer where);

  /// The first page of the set after `page`, or 0 when there is none.
  std::uint32_t Next(std::uint32_t page) const;
  /// The last page of the set before `page`, or 0.
  std::uint32_t Previous(std::uint32_t page) const;

 private:
  enum class Kind { kInline, kReference, kEveryPage };

  void Read(RecordPointer where);
  /// The bitmap that holds `page`, if there is one; `first` and `end` become the range of pages it covers.
  ByteView BitmapOf(std::uint64_t page, std::uint64_t& first, std::uint64_t& end) const;

  const FilePages* pages_ = nullptr;
  ByteView row_;
  Kind kind_ = Kind::kInline;
  std::uint64_t start_ = 0;    ///< first page covered
  std::uint64_t end_ = 0;      ///< behind the last page covered that the file has
  std::uint64_t perPage_ = 0;  ///< pages covered by one bitmap page
};

}  // namespace zerbal::jet
