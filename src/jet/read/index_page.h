// Reading one page of an index tree. The bit mask of the page gives the ends of entries, so a binary search
// reads only the entries that it compares.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// An entry in two parts: the bytes that it shares with the first entry of its page, and its own.
struct IndexEntry {
  ByteView shared;
  ByteView own;

  std::size_t Size() const { return shared.Size() + own.Size(); }
  std::uint8_t At(std::size_t i) const {
    return i < shared.Size() ? shared.Data()[i] : own.U8(i - shared.Size());
  }
  /// The last four bytes as a big-endian number. Throws Damage when there are fewer.
  std::uint32_t Tail() const {
    constexpr std::size_t kSize = 4;
    return own.Size() >= kSize ? LoadU32Be(own.Data() + own.Size() - kSize) : TailInBoth();
  }
  bool StartsWith(std::span<const std::uint8_t> key) const;

 private:
  std::uint32_t TailInBoth() const;
};

/// Compares as byte strings: < 0, 0 or > 0 when `a` is less than, equal to or greater than `b`.
int Compare(const IndexEntry& a, const IndexEntry& b);
/// Whether an entry is less than a key. An entry that begins with the key is not.
bool IsLess(const IndexEntry& entry, std::span<const std::uint8_t> key);

/// A view of an index page. An entry is identified by the offset of its first byte from the first entry.
class IndexPage {
 public:
  IndexPage() = default;
  /// Throws Damage when the page is not an index page of the table `owner`.
  IndexPage(const FilePages& pages, std::uint32_t number, std::uint32_t owner);

  /// Throws Damage when an entry is too short or the order is wrong. Precedes any search of the page.
  void CheckEntries() const;

  std::uint32_t Number() const { return number_; }
  bool IsLeaf() const { return IsOfKind(page_.Data(), PageKind::kIndexLeaf); }
  std::uint32_t PreviousPage() const { return page_.U32(links_ + kPreviousPage); }
  std::uint32_t NextPage() const { return page_.U32(links_ + kNextPage); }
  std::uint32_t TailChild() const { return page_.U32(links_ + kTailChild); }

  bool Empty() const { return end_ == 0; }
  unsigned End() const { return end_; }  ///< after the last entry
  unsigned After(unsigned entry) const {
    ZERBAL_ASSERT(entry < end_);
    return NextBoundary(entry + 1);
  }
  unsigned Before(unsigned entry) const {
    ZERBAL_ASSERT(entry > 0 && entry <= end_);
    return BoundaryAtOrBefore(entry - 1);
  }
  unsigned Last() const { return Before(end_); }
  IndexEntry Entry(unsigned entry) const { return Entry(entry, After(entry)); }
  /// The same when its end is known.
  IndexEntry Entry(unsigned entry, unsigned end) const {
    const std::uint8_t* bytes = page_.Data() + base_;
    if (entry == 0)
      return {{}, {bytes, end}};
    return {{bytes, prefix_}, {bytes + entry, end - entry}};
  }

  /// The first entry that is not less than `key`; End() when there is none.
  unsigned LowerBound(std::span<const std::uint8_t> key) const;

 private:
  std::uint64_t MaskWord(unsigned word) const {
    return LoadU64(page_.Data() + mask_ + std::size_t{8} * word);
  }
  /// The first boundary at or after `from`, else the end.
  unsigned NextBoundary(unsigned from) const {
    if (from >= end_)
      return end_;
    unsigned word = from / 64;
    std::uint64_t bits = MaskWord(word) & ~std::uint64_t{0} << from % 64;
    while (bits == 0) {
      if (++word * 64 >= end_)
        return end_;
      bits = MaskWord(word);
    }
    return std::min(word * 64 + static_cast<unsigned>(std::countr_zero(bits)), end_);
  }
  unsigned BoundaryAtOrBefore(unsigned at) const;  ///< last boundary at or before `at`, else 0

  ByteView page_;
  std::uint32_t number_ = 0;
  unsigned links_ = 0;  ///< offsets on the page, as in IndexPageLayout
  unsigned mask_ = 0;
  unsigned base_ = 0;
  unsigned end_ = 0;
  unsigned firstEnd_ = 0;  ///< where the first entry ends
  unsigned prefix_ = 0;    ///< bytes that every entry shares with the first one
};

}  // namespace zerbal::jet
