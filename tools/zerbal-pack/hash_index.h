// A compact hash table from hashes to numbers, for millions of entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zerbal::pack {

class HashIndex {
 public:
  /// Makes room for so many more entries.
  void Reserve(std::size_t entries) {
    if ((size_ + entries) * 2 > slots_.size())
      Resize((size_ + entries) * 2);
  }

  /// Whether there is an entry of this hash whose value `matches`. Otherwise adds one.
  template <typename Matches>
  bool FindOrAdd(std::uint64_t hash, std::uint32_t value, const Matches& matches) {
    Reserve(1);
    hash = hash == kFree ? 1 : hash;
    std::size_t at = Place(hash);
    for (; slots_[at].hash != kFree; at = (at + 1) & (slots_.size() - 1)) {
      if (slots_[at].hash == hash && matches(slots_[at].value))
        return true;
    }
    slots_[at] = {hash, value};
    ++size_;
    return false;
  }

 private:
  static constexpr std::uint64_t kFree = 0;

  struct Slot {
    std::uint64_t hash = kFree;
    std::uint32_t value = 0;
  };

  std::size_t Place(std::uint64_t hash) const {
    return static_cast<std::size_t>((hash * 0x9E3779B97F4A7C15U) >> 20U) & (slots_.size() - 1);
  }

  void Resize(std::size_t least) {
    std::size_t count = 64;
    while (count < least)
      count *= 2;
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(count));
    for (const Slot& slot : old) {
      if (slot.hash == kFree)
        continue;
      std::size_t at = Place(slot.hash);
      while (slots_[at].hash != kFree)
        at = (at + 1) & (slots_.size() - 1);
      slots_[at] = slot;
    }
  }

  std::vector<Slot> slots_;  // a power of two of them, at most half of them used
  std::size_t size_ = 0;
};

}  // namespace zerbal::pack
