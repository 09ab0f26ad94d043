#include "jet/format/index_keys.h"

#include <algorithm>
#include <cstring>

#include "jet/format/page_layout.h"

namespace zerbal::jet {

void IndexKeys::Add(std::span<const std::uint8_t> key, RecordPointer row, std::uint32_t ordinal) {
  Place place{0, bytes_.size(), static_cast<std::uint32_t>(key.size() + kEntryPointerSize), ordinal};
  bytes_.insert(bytes_.end(), key.begin(), key.end());
  const std::array<std::uint8_t, kEntryPointerSize> pointer = BigEndian(row.ToU32());
  bytes_.insert(bytes_.end(), pointer.begin(), pointer.end());
  for (std::size_t i = 0; i < sizeof(place.prefix); ++i)
    place.prefix = place.prefix << 8 | (i < place.length ? bytes_[place.start + i] : 0);
  entries_.push_back(place);
}

bool IndexKeys::Less(const Place& a, const Place& b) const {
  if (a.prefix != b.prefix)
    return a.prefix < b.prefix;
  const int order =
      std::memcmp(bytes_.data() + a.start, bytes_.data() + b.start, std::min(a.length, b.length));
  return order != 0 ? order < 0 : a.length < b.length;
}

void IndexKeys::Sort() {
  std::ranges::sort(entries_, [this](const Place& a, const Place& b) { return Less(a, b); });
}

bool IndexKeys::RepeatsKey(std::size_t i) const {
  if (i == 0 || entries_[i].length != entries_[i - 1].length)
    return false;
  return std::memcmp(Entry(i).data(), Entry(i - 1).data(), entries_[i].length - kEntryPointerSize) == 0;
}

std::uint32_t IndexKeys::DistinctKeys() const {
  std::uint32_t distinct = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i)
    distinct += RepeatsKey(i) ? 0 : 1;
  return distinct;
}

}  // namespace zerbal::jet
