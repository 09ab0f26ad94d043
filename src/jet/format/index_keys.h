// Collects and sorts the keys of one index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/assert.h"
#include "jet/format/page_layout.h"

namespace zerbal::jet {

/// Keys with the pointers to their rows, in memory: about 24 bytes per entry and the key.
class IndexKeys {
 public:
  /// The longest key in bytes; at least two entries fit on every page.
  static constexpr std::size_t kMaxKey = 1800;

  /// `ordinal` is the row's number in messages.
  void Add(std::span<const std::uint8_t> key, RecordPointer row, std::uint32_t ordinal);

  /// Sorts the entries in the order of the index. Precedes all functions below.
  void Sort();

  std::size_t Count() const { return entries_.size(); }
  /// The bytes of an entry on a leaf: key, page, row.
  std::span<const std::uint8_t> Entry(std::size_t i) const {
    ZERBAL_ASSERT(i < entries_.size());
    return {bytes_.data() + entries_[i].start, entries_[i].length};
  }
  std::uint32_t Ordinal(std::size_t i) const { return entries_[i].ordinal; }
  /// Whether the entry has the same key as the one before it.
  bool RepeatsKey(std::size_t i) const;
  std::uint32_t DistinctKeys() const;

 private:
  struct Place {
    std::uint64_t prefix;  ///< the first eight bytes as a number: decides most comparisons
    std::uint64_t start;
    std::uint32_t length;
    std::uint32_t ordinal;
  };
  bool Less(const Place& a, const Place& b) const;

  std::vector<std::uint8_t> bytes_;
  std::vector<Place> entries_;
};

}  // namespace zerbal::jet
