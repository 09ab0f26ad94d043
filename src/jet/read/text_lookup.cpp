#include "jet/read/text_lookup.h"

#include <algorithm>
#include <functional>

namespace zerbal::jet {

std::uint64_t TextLookup::HashOf(std::string_view text) {
  return std::hash<std::string_view>()(text);
}

void TextLookup::Add(std::string_view text, const IndexCursor::Place& place) {
  entries_.push_back({HashOf(text), place});
}

void TextLookup::Finish() {
  // Stable, so that equal texts stay in index order.
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const Entry& a, const Entry& b) { return a.hash < b.hash; });
}

std::vector<TextLookup::Entry>::const_iterator TextLookup::FirstWith(std::uint64_t hash) const {
  return std::lower_bound(entries_.begin(), entries_.end(), hash,
                          [](const Entry& entry, std::uint64_t wanted) { return entry.hash < wanted; });
}

}  // namespace zerbal::jet
