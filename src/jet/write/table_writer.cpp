#include "jet/write/table_writer.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/format.h>

#include "jet/format/bytes.h"
#include "jet/format/key.h"
#include "jet/format/page_layout.h"
#include "jet/format/table_definition_layout.h"
#include "jet/schema.h"
#include "jet/write/refusal.h"

namespace zerbal::jet {
namespace {

constexpr std::size_t kMaxRow = 4060;
constexpr std::size_t kRowHead = RowHeadSize(Format::kJet4);

// The largest sizes of a long value, in bytes: inline, in one row of a page, per piece of a chain.
constexpr std::size_t kInlineLongValue = 64;
constexpr std::size_t kSinglePieceLongValue = 4076;
constexpr std::size_t kChainPiece = 4072;

std::string Descriptor(std::size_t length, LongValueKind kind, RecordPointer where = {}) {
  std::string descriptor;
  AppendLittleEndian(descriptor, 4, length | static_cast<std::size_t>(kind) << kLongValueKindShift);
  AppendLittleEndian(descriptor, 4, where.ToU32());
  AppendLittleEndian(descriptor, 4, 0);
  return descriptor;
}

bool IsPairTable(const TableLayout& layout) {
  return layout.columns.size() == 2 && std::ranges::all_of(layout.columns, [](const ColumnLayout& column) {
           return column.info.type == ColumnType::kLong && !column.info.autonumber;
         });
}

}  // namespace

RowPages::RowPages(OutputFile& file, std::uint32_t owner, std::optional<std::uint32_t> firstPage)
    : file_(file), owner_(owner), firstPage_(firstPage), current_(owner) {}

std::uint32_t RowPages::NewPage() {
  const std::uint32_t page = firstPage_ ? *firstPage_ : file_.Allocate();
  firstPage_.reset();
  owned_.push_back(page);
  return page;
}

void RowPages::WriteCurrent() {
  if (current_.Empty())
    return;
  file_.Write(currentPage_, current_.Finished());
  current_ = DataPageBuilder(owner_);
}

RecordPointer RowPages::Add(std::span<const std::uint8_t> row) {
  if (!current_.Fits(row.size()))
    WriteCurrent();
  if (current_.Empty())
    currentPage_ = NewPage();
  return {currentPage_, current_.Add(row)};
}

RecordPointer RowPages::AddAlone(std::span<const std::uint8_t> row) {
  DataPageBuilder page(owner_);
  const std::uint32_t number = NewPage();
  const std::uint8_t place = page.Add(row);
  file_.Write(number, page.Finished());
  return {number, place};
}

void RowPages::End() {
  if (!current_.Empty() && current_.HasUsefulRoom())
    withRoom_.push_back(currentPage_);
  WriteCurrent();
}

void ReserveRowMaps(TableLayout& table, UsageMapPages& maps) {
  table.ownedMap = maps.Reserve();
  table.freeMap = maps.Reserve();
}

void ReserveLongValueMaps(TableLayout& table, UsageMapPages& maps) {
  for (ColumnLayout& column : table.columns) {
    if (!column.IsLong())
      continue;
    column.ownedLongMap = maps.Reserve();
    column.freeLongMap = maps.Reserve();
  }
}

TableWriter::TableWriter(OutputFile& file, TableLayout layout, std::optional<std::uint32_t> firstDataPage)
    : file_(file),
      layout_(std::move(layout)),
      rows_(file, layout_.page, firstDataPage),
      longValues_(layout_.columns.size()),
      keys_(layout_.indexes.size()),
      isPairTable_(IsPairTable(layout_)),
      values_(layout_.columns.size()),
      rowKeys_(layout_.indexes.size()) {
  for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
    if (layout_.columns[i].IsLong())
      longValues_[i].emplace(file, kLongValueOwner);
  }
}

void TableWriter::Refuse(std::size_t column, const std::string& reason) const {
  throw Refusal(
      fmt::format("row {}, column '{}': {}", counts_.rows + 1, layout_.columns[column].info.name, reason));
}

void TableWriter::AddRow(std::span<const Value> row) {
  if (row.size() != layout_.columns.size())
    throw Refusal(fmt::format("row {} has {} values for {} columns", counts_.rows + 1, row.size(),
                              layout_.columns.size()));
  EncodeValues(row);
  CheckRowSize();
  BuildKeys();
  BuildRow();
  CommitRow();
}

void TableWriter::AddPair(std::int32_t first, std::int32_t second) {
  if (!isPairTable_)
    throw Refusal("pairs of numbers go into tables of two Long columns only");
  if (!keys_.empty()) {
    const Value row[] = {first, second};
    return AddRow(row);
  }
  constexpr std::uint8_t kColumns = 2;
  constexpr std::uint8_t kNoNulls = 3;
  std::array<std::uint8_t, 11> bytes{kColumns, 0};
  StoreLittleEndian(&bytes[2], 4, static_cast<std::uint32_t>(first));
  StoreLittleEndian(&bytes[6], 4, static_cast<std::uint32_t>(second));
  bytes[10] = kNoNulls;
  rows_.Add(bytes);
  ++counts_.rows;
}

void TableWriter::EncodeValues(std::span<const Value> row) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    try {
      EncodeValue(layout_.columns[i].info, row[i], values_[i]);
    } catch (const Refusal& refusal) {
      Refuse(i, refusal.what());
    }
  }
}

void TableWriter::CheckRowSize() const {
  std::size_t size = kRowHead + layout_.fixedSize + NullMaskSize(layout_.columns.size());
  if (layout_.variableCount > 0)
    size += 4 + 2 * std::size_t{layout_.variableCount};
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const ColumnLayout& column = layout_.columns[i];
    if (column.info.fixed || values_[i].isNull)
      continue;
    const std::size_t content = values_[i].stored.size();
    size += !column.IsLong() ? content : kDescriptorSize + (content <= kInlineLongValue ? content : 0);
  }
  if (size > kMaxRow)
    throw Refusal(
        fmt::format("row {} takes {} bytes; a row has at most {}", counts_.rows + 1, size, kMaxRow));
}

void TableWriter::BuildKeys() {
  for (std::size_t i = 0; i < layout_.indexes.size(); ++i)
    BuildKey(layout_.indexes[i], rowKeys_[i]);
}

void TableWriter::BuildKey(const IndexLayout& index, std::vector<std::uint8_t>& key) const {
  key.clear();
  bool allNull = true;
  for (const IndexLayout::Part& part : index.parts) {
    const EncodedValue& value = values_[part.column];
    try {
      if (value.isNull && index.Has(kIndexRequired))
        throw Refusal("the value is Null, which index '" + index.name + "' does not allow");
      AppendValueKey(layout_.columns[part.column].info, value, part.ascending, key);
    } catch (const Refusal& refusal) {
      Refuse(part.column, refusal.what());
    }
    allNull = allNull && value.isNull;
  }
  if (key.size() > IndexKeys::kMaxKey)
    Refuse(index.parts.front().column, "the values are too long for index '" + index.name + "'");
  if (allNull && index.Has(kIndexIgnoreNulls))
    key.clear();
}

std::string TableWriter::StoreChain(RowPages& pages, std::string_view content) {
  // Each piece begins with the pointer to the next, so the last piece is written first.
  RecordPointer next;
  for (std::size_t start = (content.size() - 1) / kChainPiece * kChainPiece;; start -= kChainPiece) {
    std::string piece;
    AppendLittleEndian(piece, kChainPointerSize, next.ToU32());
    piece += content.substr(start, kChainPiece);
    next = pages.AddAlone(AsBytes(piece));
    if (start == 0)
      break;
  }
  return Descriptor(content.size(), LongValueKind::kChain, next);
}

std::string TableWriter::LongValueField(std::size_t column) {
  const std::string& content = values_[column].stored;
  RowPages& pages = *longValues_[column];
  if (content.size() <= kInlineLongValue)
    return Descriptor(content.size(), LongValueKind::kInline) + content;
  if (content.size() > kSinglePieceLongValue)
    return StoreChain(pages, content);
  return Descriptor(content.size(), LongValueKind::kRow, pages.Add(AsBytes(content)));
}

void TableWriter::BuildRow() {
  row_.clear();
  AppendLittleEndian(row_, kRowHead, layout_.columns.size());
  row_.resize(row_.size() + layout_.fixedSize);
  std::vector<std::size_t> offsets;
  std::string mask(NullMaskSize(layout_.columns.size()), '\0');
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const ColumnLayout& column = layout_.columns[i];
    const EncodedValue& value = values_[i];
    const bool isBoolean = column.info.type == ColumnType::kBoolean;
    if (!column.info.fixed)
      offsets.push_back(row_.size());
    if (isBoolean ? value.stored[0] == 0 : value.isNull)
      continue;
    mask[i / 8] = static_cast<char>(mask[i / 8] | 1 << i % 8);
    if (!column.info.fixed)
      row_ += column.IsLong() ? LongValueField(i) : value.stored;
    else if (!isBoolean)
      row_.replace(kRowHead + column.fixedOffset, value.stored.size(), value.stored);
  }
  if (!offsets.empty()) {
    offsets.push_back(row_.size());
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
      AppendLittleEndian(row_, 2, *offset);
    AppendLittleEndian(row_, 2, layout_.variableCount);
  }
  row_ += mask;
}

void TableWriter::CommitRow() {
  const RecordPointer place = rows_.Add(AsBytes(row_));
  ++counts_.rows;
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    if (!rowKeys_[i].empty())
      keys_[i].Add(rowKeys_[i], place, counts_.rows);
  }
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (layout_.columns[i].info.autonumber && !values_[i].isNull) {
      const std::uint32_t number = LoadU32(AsBytes(values_[i].stored).data());
      if (static_cast<std::int32_t>(number) > 0)  // negative numbers were not generated
        counts_.lastAutonumber = std::max(counts_.lastAutonumber, number);
    }
  }
}

void TableWriter::CheckUnique(std::size_t index) const {
  const IndexLayout& layout = layout_.indexes[index];
  const IndexKeys& keys = keys_[index];
  // Keys that are Null in every column may repeat.
  std::vector<std::uint8_t> allNull;
  for (const IndexLayout::Part& part : layout.parts)
    AppendNullKey(part.ascending, allNull);
  for (std::size_t i = 1; i < keys.Count(); ++i) {
    if (!keys.RepeatsKey(i))
      continue;
    const auto key = keys.Entry(i).first(keys.Entry(i).size() - kEntryPointerSize);
    if (std::ranges::equal(key, allNull))
      continue;
    throw Refusal(fmt::format("rows {} and {} are the same in the unique index '{}'", keys.Ordinal(i - 1),
                              keys.Ordinal(i), layout.name));
  }
}

void TableWriter::End(UsageMapPages& maps) {
  rows_.End();
  for (std::optional<RowPages>& pages : longValues_) {
    if (pages)
      pages->End();
  }
  WriteIndexes(maps);
  WriteMaps(maps);
  WriteDefinition();
}

void TableWriter::WriteIndexes(UsageMapPages& maps) {
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    const IndexLayout& index = layout_.indexes[i];
    keys_[i].Sort();
    if (index.Has(kIndexUnique))
      CheckUnique(i);
    counts_.distinctKeys.push_back(keys_[i].DistinctKeys());
    maps.Set(index.map, WriteIndexTree(file_, keys_[i], index.rootPage, layout_.page));
    keys_[i] = IndexKeys();  // frees its memory
  }
}

void TableWriter::WriteMaps(UsageMapPages& maps) {
  maps.Set(layout_.ownedMap, rows_.Owned());
  maps.Set(layout_.freeMap, rows_.WithRoom());
  for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
    if (!longValues_[i])
      continue;
    maps.Set(layout_.columns[i].ownedLongMap, longValues_[i]->Owned());
    maps.Set(layout_.columns[i].freeLongMap, longValues_[i]->WithRoom());
  }
}

void TableWriter::WriteDefinition() {
  const std::vector<std::uint8_t> bytes = DefinitionBytes(layout_, counts_);
  std::uint32_t page = layout_.page;
  for (std::size_t start = kDefinitionPageHead; start < bytes.size();) {
    const std::size_t size = std::min(bytes.size() - start, kPageSize - kDefinitionPageHead);
    PageBytes out(PageKind::kTableDefinition);
    out.Put(kDefinitionPageHead, std::span(bytes).subspan(start, size));
    start += size;
    const std::uint32_t next = start < bytes.size() ? file_.Allocate() : 0;
    const std::size_t used = kDefinitionPageHead + size;
    out.Put16(kFreeBytesAt, used + 8 <= kPageSize ? kPageSize - used - 8 : 0);
    out.Put32(kNextDefinitionPageAt, next);
    file_.Write(page, out);
    page = next;
  }
}

}  // namespace zerbal::jet
