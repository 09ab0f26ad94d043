// Finds rows by the text of their first index column when index keys cannot be computed.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jet/read/index_cursor.h"

namespace zerbal::jet {

/// Hashes of texts and their places in the index; sixteen bytes per row.
class TextLookup {
 public:
  /// Called for every row in index order; then Finish.
  void Add(std::string_view text, const IndexCursor::Place& place);
  void Finish();

  /// Calls `accept` with the places of texts that may equal `text`, in index order, until it returns true.
  template <class Accept>
  bool Find(std::string_view text, Accept&& accept) const {
    const std::uint64_t hash = HashOf(text);
    for (auto at = FirstWith(hash); at != entries_.end() && at->hash == hash; ++at) {
      if (accept(at->place))
        return true;
    }
    return false;
  }

 private:
  struct Entry {
    std::uint64_t hash = 0;
    IndexCursor::Place place;
  };
  static std::uint64_t HashOf(std::string_view text);
  std::vector<Entry>::const_iterator FirstWith(std::uint64_t hash) const;

  std::vector<Entry> entries_;
};

}  // namespace zerbal::jet
