// Reading usage maps.
#pragma once

#include <cstdint>

#include "jet/format/bytes.h"
#include "jet/read/data_page.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// A set of page numbers in the file. Pages after the end of the file are not members. If the map cannot be
/// read, every page is a member: callers check the owner that each page states.
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
  /// The bitmap with the bit of `page`, or an empty view; sets `first` and `end` to the pages that it covers.
  ByteView BitmapOf(std::uint64_t page, std::uint64_t& first, std::uint64_t& end) const;

  const FilePages* pages_ = nullptr;
  ByteView row_;
  Kind kind_ = Kind::kInline;
  std::uint64_t start_ = 0;    ///< first page covered
  std::uint64_t end_ = 0;      ///< after the last page that is covered and in the file
  std::uint64_t perPage_ = 0;  ///< pages that one bitmap page covers
};

}  // namespace zerbal::jet
