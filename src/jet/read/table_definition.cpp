#include "jet/read/table_definition.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/utf8.h"
#include "jet/format/bytes.h"
#include "jet/format/table_definition_layout.h"
#include "jet/format/text.h"

namespace zerbal::jet {
namespace {

// What is accepted; higher than kMaxColumns and kMaxIndexes, since other programs write more.
constexpr unsigned kMostColumns = 1024;
constexpr unsigned kMostIndexes = 1024;

/// The bytes of a definition, joined when it has several pages.
class Joined {
 public:
  Joined(const FilePages& pages, std::uint32_t first) {
    const ByteView page = pages.Page(first, PageKind::kTableDefinition);
    const std::size_t length = page.U32(kDefinitionLengthAt);
    std::uint32_t next = page.U32(kNextDefinitionPageAt);
    if (length <= page.Size()) {
      view_ = page.Sub(0, length);
      return;
    }
    if (length > pages.FileSize())
      throw Damage("the table's definition is longer than the file");
    bytes_.assign(page.Data(), page.Data() + page.Size());
    std::vector<bool> visited(pages.PageCount());
    visited[first] = true;
    while (bytes_.size() < length) {
      if (next == 0)
        throw Damage("the table's definition is cut short");
      const ByteView more = pages.Page(next, PageKind::kTableDefinition);
      if (visited[next])
        throw Damage("the pages of the table's definition form a circle");
      visited[next] = true;
      bytes_.insert(bytes_.end(), more.Data() + kDefinitionPageHead, more.Data() + more.Size());
      next = more.U32(kNextDefinitionPageAt);
    }
    view_ = {bytes_.data(), length};
  }
  Joined(const Joined&) = delete;
  Joined& operator=(const Joined&) = delete;

  ByteView View() const { return view_; }

 private:
  std::vector<std::uint8_t> bytes_;
  ByteView view_;
};

class Parser {
 public:
  Parser(const FilePages& pages, ByteView bytes, TableDefinition& table)
      : pages_(pages),
        jet3_(pages.IsJet3()),
        layout_(jet3_ ? kJet3Definition : kJet4Definition),
        bytes_(bytes),
        table_(table) {}

  void Parse() {
    ReadCounts();
    at_ = layout_.head.size + physicalCount_ * layout_.counterSize;
    ReadColumns();
    for (std::size_t i = 0; i < physicalCount_; ++i)
      table_.trees.push_back(ReadTree(Take(layout_.physical.size)));
    ReadIndexes();
  }

 private:
  void ReadCounts() {
    maxColumns_ = bytes_.U16(layout_.head.maxColumns);
    variableColumns_ = bytes_.U16(layout_.head.variableColumns);
    columnCount_ = bytes_.U16(layout_.head.columns);
    logicalCount_ = bytes_.U32(layout_.head.logicalIndexes);
    physicalCount_ = bytes_.U32(layout_.head.physicalIndexes);
    table_.notedRows = bytes_.U32(layout_.head.rows);
    table_.ownedPages = RecordPointer::FromU32(bytes_.U32(layout_.head.ownedPages));
    table_.hasVariableColumns = variableColumns_ > 0;
    if (columnCount_ > kMostColumns || logicalCount_ > kMostIndexes || physicalCount_ > kMostIndexes)
      throw Damage("the table's definition claims more columns or indexes than a table can have");
    const std::uint64_t least = layout_.head.size + std::uint64_t{columnCount_} * layout_.column.size +
                                physicalCount_ * std::uint64_t{layout_.counterSize + layout_.physical.size} +
                                logicalCount_ * std::uint64_t{layout_.logical.size};
    if (least > bytes_.Size())
      throw Damage("the table's definition claims more columns or indexes than it holds");
  }

  ByteView Take(std::size_t size) {
    const ByteView taken = bytes_.Sub(at_, size);
    at_ += size;
    return taken;
  }

  std::string TakeName() {
    const std::size_t length = jet3_ ? Take(1).U8(0) : Take(2).U16(0);
    const ByteView stored = Take(length);
    std::string name;
    const auto append = [&name](char32_t c) {
      base::AppendUtf8(c, name);
      return true;
    };
    if (jet3_)
      pages_.TextCodePage()->Decode(stored, append);
    else
      DecodeUtf16(stored, append);
    if ((!jet3_ && length % 2 != 0) || name.find('\0') != std::string::npos)
      throw Damage("a column or index has a name that cannot be");
    return name;
  }

  void ReadColumns() {
    std::vector<ColumnInfo> infos;
    std::vector<ColumnPlace> places;
    for (unsigned i = 0; i < columnCount_; ++i) {
      const ByteView record = Take(layout_.column.size);
      infos.push_back(ReadColumnInfo(record));
      places.push_back(ReadColumnPlace(record, infos.back()));
    }
    for (ColumnInfo& info : infos)
      info.name = TakeName();
    SortByNumber(std::move(infos), std::move(places));
  }

  ColumnInfo ReadColumnInfo(ByteView record) const {
    ColumnInfo info;
    info.type = static_cast<ColumnType>(record.U8(layout_.column.type));
    const std::uint8_t flags = record.U8(layout_.column.flags);
    info.fixed = (flags & kColumnFixed) != 0;
    info.autonumber = (flags & kColumnAutonumber) != 0;
    const int length = record.U16(layout_.column.length);
    const int typeSize = SizeOfType(info.type);
    info.length = typeSize != 0 ? typeSize : length;
    if (info.type == ColumnType::kText && !jet3_)
      info.length = length / 2;
    if (IsTextType(info.type))
      info.compressed = !jet3_ && (record.U8(kColumnTextFlagsAt) & kColumnCompressed) != 0;
    if (info.type == ColumnType::kNumeric && !jet3_) {
      info.precision = record.U8(kColumnPrecisionAt);
      info.scale = record.U8(kColumnScaleAt);
      if (info.scale > kMaxPrecision)
        throw Damage("a numeric column has more decimals than there can be");
    }
    return info;
  }

  ColumnPlace ReadColumnPlace(ByteView record, const ColumnInfo& info) const {
    ColumnPlace place;
    place.number = record.U16(layout_.column.number);
    place.fixedOffset = record.U16(layout_.column.fixedOffset);
    place.fixedLength = record.U16(layout_.column.length);
    place.variableIndex = record.U16(layout_.column.variableIndex);
    place.sortOrder.language = record.U16(layout_.column.sortOrder);
    place.sortOrder.version = jet3_ ? std::uint8_t{0} : record.U8(kColumnSortVersionAt);
    if (place.sortOrder.language == 0)
      place.sortOrder = pages_.Header().sortOrder;
    if (place.number >= kMostColumns || place.number >= maxColumns_)
      throw Damage("a column has a number that the table does not have");
    const bool variable = !info.fixed && info.type != ColumnType::kBoolean;
    if (variable && place.variableIndex >= variableColumns_)
      throw Damage("a column names a variable part that the table does not have");
    return place;
  }

  void SortByNumber(std::vector<ColumnInfo> infos, std::vector<ColumnPlace> places) {
    std::vector<std::size_t> order(infos.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return places[i].number; });
    for (const std::size_t i : order) {
      if (!table_.places.empty() && table_.places.back().number == places[i].number)
        throw Damage("two columns have the same number");
      table_.columns.push_back(std::move(infos[i]));
      table_.places.push_back(places[i]);
    }
  }

  PhysicalIndex ReadTree(ByteView record) const {
    PhysicalIndex tree;
    for (std::size_t i = 0; i < kMaxIndexColumns; ++i) {
      const std::size_t at = layout_.physical.parts + kIndexColumnSize * i;
      const std::uint16_t number = record.U16(at);
      if (number != kNoColumn)
        tree.parts.push_back({ColumnOfNumber(number), (record.U8(at + 2) & kIndexAscending) != 0});
    }
    tree.rootPage = record.U32(layout_.physical.root);
    tree.flags = record.U8(layout_.physical.flags);
    return tree;
  }

  int ColumnOfNumber(std::uint16_t number) const {
    const auto found = std::ranges::find(table_.places, number, &ColumnPlace::number);
    if (found == table_.places.end())
      throw Damage("an index names a column that the table does not have");
    return static_cast<int>(found - table_.places.begin());
  }

  void ReadIndexes() {
    for (std::size_t i = 0; i < logicalCount_; ++i) {
      const ByteView record = Take(layout_.logical.size);
      const std::uint32_t physical = record.U32(layout_.logical.physical);
      if (physical >= physicalCount_)
        throw Damage("an index names a tree that the table does not have");
      IndexInfo index;
      const PhysicalIndex& tree = table_.trees[physical];
      for (const PhysicalIndex::Part& part : tree.parts)
        index.columns.push_back({table_.columns[static_cast<std::size_t>(part.column)].name, part.ascending});
      const auto kind = static_cast<IndexKind>(record.U8(layout_.logical.kind));
      index.primary = kind == IndexKind::kPrimaryKey;
      index.foreignKey = kind == IndexKind::kRelationship;
      index.unique = index.primary || (tree.flags & kIndexUnique) != 0;
      index.ignoreNulls = (tree.flags & kIndexIgnoreNulls) != 0;
      index.required = (tree.flags & kIndexRequired) != 0;
      table_.indexes.push_back(std::move(index));
      table_.treeOf.push_back(physical);
    }
    for (IndexInfo& index : table_.indexes)
      index.name = TakeName();
  }

  const FilePages& pages_;
  const bool jet3_;
  const TableDefinitionLayout& layout_;
  ByteView bytes_;
  TableDefinition& table_;
  std::size_t at_ = 0;
  unsigned maxColumns_ = 0;
  unsigned variableColumns_ = 0;
  unsigned columnCount_ = 0;
  std::size_t logicalCount_ = 0;
  std::size_t physicalCount_ = 0;
};

}  // namespace

TableDefinition ReadTableDefinition(const FilePages& pages, std::uint32_t page, std::string name) {
  TableDefinition table;
  table.page = page;
  table.name = std::move(name);
  const Joined joined(pages, page);
  Parser(pages, joined.View(), table).Parse();
  return table;
}

}  // namespace zerbal::jet
