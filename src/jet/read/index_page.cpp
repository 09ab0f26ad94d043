#include "jet/read/index_page.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>

namespace zerbal::jet {
namespace {

int CompareBytes(const std::uint8_t* a, const std::uint8_t* b, std::size_t size) {
  return size == 0 ? 0 : std::memcmp(a, b, size);
}

}  // namespace

std::uint32_t IndexEntry::TailInBoth() const {
  constexpr std::size_t kSize = 4;
  const std::size_t at = Size() - kSize;  // too large for At() when there are fewer bytes
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < kSize; ++i)
    value = value << 8 | At(at + i);
  return value;
}

bool IndexEntry::StartsWith(std::span<const std::uint8_t> key) const {
  if (Size() < key.size())
    return false;
  const std::size_t inShared = std::min(key.size(), shared.Size());
  return CompareBytes(shared.Data(), key.data(), inShared) == 0 &&
         CompareBytes(own.Data(), key.data() + inShared, key.size() - inShared) == 0;
}

bool IsLess(const IndexEntry& entry, std::span<const std::uint8_t> key) {
  const std::size_t inShared = std::min(key.size(), entry.shared.Size());
  if (const int order = CompareBytes(entry.shared.Data(), key.data(), inShared); order != 0)
    return order < 0;
  const std::size_t rest = key.size() - inShared;
  const std::size_t inOwn = std::min(rest, entry.own.Size());
  if (const int order = CompareBytes(entry.own.Data(), key.data() + inShared, inOwn); order != 0)
    return order < 0;
  return inOwn < rest;
}

int Compare(const IndexEntry& a, const IndexEntry& b) {
  const std::size_t size = std::min(a.Size(), b.Size());
  for (std::size_t i = 0; i < size; ++i) {
    if (const int order = int{a.At(i)} - int{b.At(i)}; order != 0)
      return order;
  }
  return a.Size() < b.Size() ? -1 : a.Size() > b.Size() ? 1 : 0;
}

IndexPage::IndexPage(const FilePages& pages, std::uint32_t number, std::uint32_t owner)
    : page_(pages.Page(number)), number_(number) {
  if (!IsLeaf() && !IsOfKind(page_.Data(), PageKind::kIndexNode))
    throw Damage("page " + std::to_string(number) + " is not an index page");
  if (page_.U32(kOwnerAt) != owner)
    throw Damage("index page " + std::to_string(number) + " belongs to another table");
  const IndexPageLayout layout = IndexPageLayoutOf(pages.FileFormat());
  links_ = layout.links;
  mask_ = layout.mask;
  base_ = layout.entries;
  prefix_ = pages.IsJet3() ? page_.U8(layout.prefix) : page_.U16(layout.prefix);
  const auto capacity = static_cast<unsigned>(page_.Size()) - base_;
  end_ = BoundaryAtOrBefore(capacity);
  firstEnd_ = end_ == 0 ? 0 : NextBoundary(1);
  if (prefix_ > firstEnd_)
    throw Damage("an index page shares more bytes than its first entry has");
}

unsigned IndexPage::BoundaryAtOrBefore(unsigned at) const {
  unsigned word = at / 64;
  std::uint64_t bits = MaskWord(word) & ~std::uint64_t{0} >> (63 - at % 64);
  while (bits == 0) {
    if (word-- == 0)
      return 0;
    bits = MaskWord(word);
  }
  return word * 64 + static_cast<unsigned>(std::bit_width(bits)) - 1;
}

void IndexPage::CheckEntries() const {
  const std::size_t shortest = 1 + kEntryPointerSize + (IsLeaf() ? 0 : kEntryChildSize);
  IndexEntry before;
  for (unsigned at = 0; at < end_; at = After(at)) {
    const IndexEntry entry = Entry(at);
    if (entry.Size() < shortest)
      throw Damage("an entry of an index is too short");
    if (at != 0 && Compare(before, entry) >= 0)
      throw Damage("the entries of an index are out of order");
    before = entry;
  }
}

unsigned IndexPage::LowerBound(std::span<const std::uint8_t> key) const {
  unsigned low = 0;
  unsigned high = end_;
  while (low < high) {
    const unsigned start = BoundaryAtOrBefore((low + high) / 2);
    const unsigned middle = start < low ? low : start;
    if (IsLess(Entry(middle), key))
      low = After(middle);
    else
      high = middle;
  }
  return low;
}

}  // namespace zerbal::jet
