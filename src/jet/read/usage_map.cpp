#include "jet/read/usage_map.h"

#include <algorithm>
#include <bit>
#include <string>

#include "jet/format/page_layout.h"

namespace zerbal::jet {
namespace {

constexpr std::uint64_t kNone = ~std::uint64_t{0};

/// The first set bit at or after `from`; kNone when there is none.
std::uint64_t FirstSetBit(ByteView bitmap, std::uint64_t from) {
  std::uint64_t at = from / 8;
  if (at >= bitmap.Size())
    return kNone;
  unsigned byte = bitmap.Data()[at] & (0xFFu << from % 8);
  while (byte == 0) {
    if (++at >= bitmap.Size())
      return kNone;
    byte = bitmap.Data()[at];
  }
  return at * 8 + static_cast<unsigned>(std::countr_zero(byte));
}

/// The last set bit before `before`; kNone when there is none.
std::uint64_t LastSetBit(ByteView bitmap, std::uint64_t before) {
  before = std::min<std::uint64_t>(before, bitmap.Size() * 8);
  if (before == 0)
    return kNone;
  std::uint64_t at = (before - 1) / 8;
  unsigned byte = bitmap.Data()[at] & (0xFFu >> (7 - (before - 1) % 8));
  while (byte == 0) {
    if (at-- == 0)
      return kNone;
    byte = bitmap.Data()[at];
  }
  return at * 8 + static_cast<unsigned>(std::bit_width(byte)) - 1;
}

}  // namespace

UsageMap::UsageMap(const FilePages& pages, RecordPointer where)
    : pages_(&pages), perPage_(PagesPerMapPage(pages.FileFormat())) {
  try {
    Read(where);
  } catch (const Damage&) {
    kind_ = Kind::kEveryPage;
    start_ = 0;
    end_ = pages.PageCount();
  }
}

void UsageMap::Read(RecordPointer where) {
  row_ = RowAt(*pages_, where);
  const std::uint8_t kind = row_.U8(0);
  const std::uint64_t pageCount = pages_->PageCount();
  if (kind == static_cast<std::uint8_t>(UsageMapKind::kInline)) {
    start_ = row_.U32(kInlineStartAt);
    end_ = std::min<std::uint64_t>(start_ + (row_.Size() - kInlineBitmapAt) * 8, pageCount);
  } else if (kind == static_cast<std::uint8_t>(UsageMapKind::kReference)) {
    kind_ = Kind::kReference;
    // Pointers for pages after the end of the file may be invalid.
    end_ = std::min<std::uint64_t>((row_.Size() - kMapPagesAt) / kMapPageSize * perPage_, pageCount);
    std::uint64_t first = 0, end = 0;
    for (std::uint64_t page = 0; page < end_; page += perPage_)
      BitmapOf(page, first, end);
  } else {
    throw Damage("a usage map is of unknown kind " + std::to_string(kind));
  }
}

ByteView UsageMap::BitmapOf(std::uint64_t page, std::uint64_t& first, std::uint64_t& end) const {
  if (kind_ == Kind::kInline) {
    first = start_;
    end = end_;
    return row_.From(kInlineBitmapAt);
  }
  const std::uint64_t range = page / perPage_;
  first = range * perPage_;
  end = first + perPage_;
  const std::uint32_t pointer = row_.U32(kMapPagesAt + kMapPageSize * range);
  return pointer == 0 ? ByteView() : pages_->Page(pointer, PageKind::kUsageMap).From(kMapPageBitmapAt);
}

std::uint32_t UsageMap::Next(std::uint32_t page) const {
  std::uint64_t at = std::max<std::uint64_t>(std::uint64_t{page} + 1, start_);
  while (at < end_) {
    if (kind_ == Kind::kEveryPage)
      return static_cast<std::uint32_t>(at);
    std::uint64_t first = 0, end = 0;
    const ByteView bitmap = BitmapOf(at, first, end);
    if (const std::uint64_t bit = FirstSetBit(bitmap, at - first); bit != kNone)
      return first + bit < end_ ? static_cast<std::uint32_t>(first + bit) : 0;
    at = end;
  }
  return 0;
}

std::uint32_t UsageMap::Previous(std::uint32_t page) const {
  std::uint64_t before = std::min<std::uint64_t>(page, end_);
  while (before > start_) {
    if (kind_ == Kind::kEveryPage)
      return static_cast<std::uint32_t>(before - 1);
    std::uint64_t first = 0, end = 0;
    const ByteView bitmap = BitmapOf(before - 1, first, end);
    if (const std::uint64_t bit = LastSetBit(bitmap, before - first); bit != kNone)
      return static_cast<std::uint32_t>(first + bit);
    before = first;
  }
  return 0;
}

}  // namespace zerbal::jet
