#include "jet/write/usage_map_writer.h"

#include <algorithm>
#include <utility>

#include "base/assert.h"
#include "jet/format/page_layout.h"
#include "jet/write/page_bytes.h"

namespace zerbal::jet {
namespace {

using MapRow = std::vector<std::uint8_t>;

constexpr std::size_t kRowSize = 69;
constexpr std::size_t kInlinePages = (kRowSize - kInlineBitmapAt) * 8;
constexpr std::size_t kPagesPerBitmap = PagesPerMapPage(Format::kJet4);
constexpr std::size_t kLargestInlineGlobalMap = 8000;  // pages; its row still leaves room on page 1

void SetBit(MapRow& row, std::size_t bit) {
  std::uint8_t& byte = row[kInlineBitmapAt + bit / 8];
  byte = static_cast<std::uint8_t>(byte | 1u << bit % 8);
}

MapRow EmptyReferenceMap() {
  MapRow row(kRowSize, 0);
  row[0] = static_cast<std::uint8_t>(UsageMapKind::kReference);
  return row;
}

MapRow InlineMap(const PageList& members, std::uint32_t start) {
  MapRow row(kRowSize, 0);
  StoreLittleEndian(&row[kInlineStartAt], 4, start);
  for (std::uint32_t member : members)
    SetBit(row, member - start);
  return row;
}

MapRow ReferenceMap(OutputFile& file, const PageList& members) {
  MapRow row = EmptyReferenceMap();
  for (auto member = members.begin(); member != members.end();) {
    const std::size_t range = *member / kPagesPerBitmap;
    PageBytes bitmap(PageKind::kUsageMap);
    for (; member != members.end() && *member / kPagesPerBitmap == range; ++member)
      bitmap.SetBit(kMapPageBitmapAt, *member % kPagesPerBitmap);
    const std::uint32_t page = file.Allocate();
    file.Write(page, bitmap);
    StoreLittleEndian(&row[kMapPagesAt + kMapPageSize * range], 4, page);
  }
  return row;
}

MapRow EncodeMap(OutputFile& file, const PageList& members) {
  if (members.empty() || members.back() < kInlinePages)
    return InlineMap(members, 0);
  const std::uint32_t start = members.front() / 8 * 8;
  if (members.back() - start < kInlinePages)
    return InlineMap(members, start);
  return ReferenceMap(file, members);
}

MapRow InlineGlobalMap(std::size_t pageCount) {
  MapRow row(std::max(kRowSize, kInlineBitmapAt + 4 * ((pageCount + 31) / 32)), 0);
  for (std::size_t page = pageCount; page < (row.size() - kInlineBitmapAt) * 8; ++page)
    SetBit(row, page);
  return row;
}

MapRow ReferenceGlobalMap(OutputFile& file) {
  // The bitmap pages are themselves pages of the file.
  PageList bitmaps;
  while (bitmaps.size() * kPagesPerBitmap < file.PageCount())
    bitmaps.push_back(file.Allocate());
  MapRow row = EmptyReferenceMap();
  for (std::size_t i = 0; i < bitmaps.size(); ++i) {
    PageBytes bitmap(PageKind::kUsageMap);
    const std::size_t first = i * kPagesPerBitmap;
    const std::size_t used = std::min(kPagesPerBitmap, file.PageCount() - first);
    for (std::size_t page = used; page < kPagesPerBitmap; ++page)
      bitmap.SetBit(kMapPageBitmapAt, page);
    file.Write(bitmaps[i], bitmap);
    StoreLittleEndian(&row[kMapPagesAt + kMapPageSize * i], 4, bitmaps[i]);
  }
  return row;
}

}  // namespace

UsageMapPages::UsageMapPages(OutputFile& file, std::size_t count, PageList pages)
    : file_(file), pages_(std::move(pages)), rows_(count, MapRow(kRowSize, 0)) {
  while (pages_.size() * kMapsPerPage < count)
    pages_.push_back(file_.Allocate());
}

RecordPointer UsageMapPages::Reserve() {
  ZERBAL_ASSERT(reserved_ < rows_.size());
  const std::size_t index = reserved_++;
  return {pages_[index / kMapsPerPage], static_cast<std::uint8_t>(index % kMapsPerPage)};
}

void UsageMapPages::Set(RecordPointer place, const PageList& members) {
  const auto page = std::ranges::find(pages_, place.page);
  ZERBAL_ASSERT(page != pages_.end());
  const auto index = static_cast<std::size_t>(page - pages_.begin()) * kMapsPerPage + place.row;
  rows_[index] = EncodeMap(file_, members);
}

void UsageMapPages::Write() {
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    DataPageBuilder page(0);
    for (std::size_t row = i * kMapsPerPage; row < std::min(rows_.size(), (i + 1) * kMapsPerPage); ++row)
      page.Add(rows_[row]);
    file_.Write(pages_[i], page.Finished());
  }
}

void WriteGlobalMap(OutputFile& file) {
  const bool isInline = file.PageCount() <= kLargestInlineGlobalMap;
  DataPageBuilder page(1);
  page.Add(isInline ? InlineGlobalMap(file.PageCount()) : ReferenceGlobalMap(file));
  page.Add(MapRow(kRowSize, 0));
  file.Write(1, page.Finished());
}

}  // namespace zerbal::jet
