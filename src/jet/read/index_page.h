// One page of an index tree. Entries are found through the bit mask in the page's header, one bit where an
// entry ends, so that a search looks only at the entries that it compares.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/index_page_layout.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// The bytes of an entry: those that it shares with the first entry of its page, and its own.
struct IndexEntry {
  ByteView shared;
  ByteView own;

  std::size_t Size() const { return shared.Size() + own.Size(); }
  std::uint8_t At(std::size_t i) const {
    return i < shared.Size() ? shared.Data()[i] : own.U8(i - shared.Size());
  }
  /// The last four bytes as a big-endian number. Throws Damage when there are fewer.
  std::uint32_t Tail() const;
  bool StartsWith(std::span<const std::uint8_t> key) const;
};

/// Below, at or above 0 as the first entry stands before, equals or stands behind the second, as byte
/// strings.
int Compare(const IndexEntry& a, const IndexEntry& b);
/// The same against a key; an entry that begins with the key is not below it.
bool IsBelow(const IndexEntry& entry, std::span<const std::uint8_t> key);

/// A view of an index page. Entries are named by the offset of their first byte among the entries' bytes.
class IndexPage {
 public:
  IndexPage() = default;
  /// Throws Damage when the page is no index page of the table `owner`.
  IndexPage(const FilePages& pages, std::uint32_t number, std::uint32_t owner);

  /// Looks at every entry: size and order. To be done once before a page is searched.
  void CheckEntries() const;

  std::uint32_t Number() const { return number_; }
  bool IsLeaf() const { return page_.Data()[kPageKindAt] == static_cast<std::uint8_t>(PageKind::kIndexLeaf); }
  std::uint32_t PreviousPage() const { return page_.U32(links_ + kPreviousPage); }
  std::uint32_t NextPage() const { return page_.U32(links_ + kNextPage); }
  std::uint32_t TailChild() const { return page_.U32(links_ + kTailChild); }

  bool Empty() const { return end_ == 0; }
  unsigned End() const { return end_; }  ///< behind the last entry
  unsigned After(unsigned entry) const {
    ZERBAL_ASSERT(entry < end_);
    return NextBoundary(entry + 1);
  }
  unsigned Before(unsigned entry) const {
    ZERBAL_ASSERT(entry > 0 && entry <= end_);
    return BoundaryAtOrBefore(entry - 1);
  }
  unsigned Last() const { return Before(end_); }
  IndexEntry Entry(unsigned entry) const;

  /// The first entry that is not below `key`; End() when there is none.
  unsigned LowerBound(std::span<const std::uint8_t> key) const;

 private:
  std::uint64_t MaskWord(unsigned word) const;
  unsigned NextBoundary(unsigned from) const;      ///< first boundary at or after `from`, else the end
  unsigned BoundaryAtOrBefore(unsigned at) const;  ///< last boundary at or before `at`, else 0

  ByteView page_;
  std::uint32_t number_ = 0;
  unsigned links_ = 0;  ///< offset of the numbers of the neighbouring pages
  unsigned mask_ = 0;   ///< offset of the bit mask
  unsigned base_ = 0;   ///< offset of the entries
  unsigned end_ = 0;
  unsigned firstEnd_ = 0;  ///< where the first entry ends
  unsigned prefix_ = 0;    ///< bytes that every entry shares with the first, which alone holds them
};

}  // namespace zerbal::jet
