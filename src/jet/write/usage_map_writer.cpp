#include "jet/write/usage_map_writer.h"

#include <algorithm>
#include <utility>

#include "jet/write/page_bytes.h"

namespace zerbal::jet {
namespace {

using Row = std::vector<std::uint8_t>;

constexpr std::size_t kRowSize = 69;
constexpr std::size_t kHead = 5;  // of an inline map: its type and the first page it covers
constexpr std::size_t kInlinePages = (kRowSize - kHead) * 8;
constexpr std::size_t kBitmap = 4;  // where the bitmap of a usage-map page begins
constexpr std::size_t kPagesPerBitmap = (kPageSize - kBitmap) * 8;
constexpr std::size_t kLargestInlineGlobalMap = 8000;  // pages; its row still leaves room on page 1

void PutNumber(Row& row, std::size_t at, std::size_t value) {
  for (std::size_t i = 0; i < 4; ++i)
    row[at + i] = static_cast<std::uint8_t>(value >> 8 * i & 0xFF);
}

PageBytes EmptyBitmap() {
  PageBytes page;
  page.Put16(0, 0x0105);
  return page;
}

Row InlineMap(const PageList& members, std::uint32_t start) {
  Row row(kRowSize, 0);
  PutNumber(row, 1, start);
  for (std::uint32_t member : members) {
    std::uint8_t& byte = row[kHead + (member - start) / 8];
    byte = static_cast<std::uint8_t>(byte | 1u << (member - start) % 8);
  }
  return row;
}

Row ReferenceMap(OutputFile& file, const PageList& members) {
  Row row(kRowSize, 0);
  row[0] = 1;
  for (auto member = members.begin(); member != members.end();) {
    const std::size_t range = *member / kPagesPerBitmap;
    PageBytes bitmap = EmptyBitmap();
    for (; member != members.end() && *member / kPagesPerBitmap == range; ++member)
      bitmap.SetBit(kBitmap, *member % kPagesPerBitmap);
    const std::uint32_t page = file.Allocate();
    file.Write(page, bitmap);
    PutNumber(row, 1 + 4 * range, page);
  }
  return row;
}

Row EncodeMap(OutputFile& file, const PageList& members) {
  if (members.empty() || members.back() < kInlinePages)
    return InlineMap(members, 0);
  const std::uint32_t start = members.front() / 8 * 8;
  if (members.back() - start < kInlinePages)
    return InlineMap(members, start);
  return ReferenceMap(file, members);
}

Row InlineGlobalMap(std::size_t pageCount) {
  Row row(kHead + std::max<std::size_t>(64, 4 * ((pageCount + 31) / 32)), 0);
  for (std::size_t page = pageCount; page < (row.size() - kHead) * 8; ++page)
    row[kHead + page / 8] = static_cast<std::uint8_t>(row[kHead + page / 8] | 1u << page % 8);
  return row;
}

Row ReferenceGlobalMap(OutputFile& file) {
  // The bitmap pages are pages of the file, too.
  PageList bitmaps;
  while (bitmaps.size() * kPagesPerBitmap < file.PageCount())
    bitmaps.push_back(file.Allocate());
  Row row(kRowSize, 0);
  row[0] = 1;
  for (std::size_t i = 0; i < bitmaps.size(); ++i) {
    PageBytes bitmap = EmptyBitmap();
    const std::size_t first = i * kPagesPerBitmap;
    const std::size_t used = std::min(kPagesPerBitmap, file.PageCount() - first);
    for (std::size_t page = used; page < kPagesPerBitmap; ++page)
      bitmap.SetBit(kBitmap, page);
    file.Write(bitmaps[i], bitmap);
    PutNumber(row, 1 + 4 * i, bitmaps[i]);
  }
  return row;
}

}  // namespace

UsageMapPages::UsageMapPages(OutputFile& file, std::size_t count, PageList pages)
    : file_(file), pages_(std::move(pages)), rows_(count, Row(kRowSize, 0)) {
  while (pages_.size() * kMapsPerPage < count)
    pages_.push_back(file_.Allocate());
}

std::uint32_t UsageMapPages::Reserve() {
  const std::size_t index = reserved_++;
  return PointerTo(pages_[index / kMapsPerPage], static_cast<std::uint8_t>(index % kMapsPerPage));
}

void UsageMapPages::Set(std::uint32_t pointer, const PageList& members) {
  const auto page = std::ranges::find(pages_, pointer >> 8);
  const auto index = static_cast<std::size_t>(page - pages_.begin()) * kMapsPerPage + (pointer & 0xFF);
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
  page.Add(Row(kRowSize, 0));
  file.Write(1, page.Finished());
}

}  // namespace zerbal::jet
