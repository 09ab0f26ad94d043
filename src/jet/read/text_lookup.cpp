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
  std::ranges::stable_sort(entries_, {}, &Entry::hash);  // equal texts stay in index order
}

std::vector<TextLookup::Entry>::const_iterator TextLookup::FirstWith(std::uint64_t hash) const {
  return std::ranges::lower_bound(entries_, hash, {}, &Entry::hash);
}

}  // namespace zerbal::jet
