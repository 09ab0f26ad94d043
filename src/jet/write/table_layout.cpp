#include "jet/write/table_layout.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include <fmt/format.h>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/key.h"
#include "jet/format/page_layout.h"
#include "jet/write/refusal.h"
#include "jet/write/value_encoding.h"

namespace zerbal::jet {
namespace {

constexpr std::size_t kMaxName = 64;  // characters
constexpr int kMaxText = 255;         // characters
constexpr int kMaxBinary = 510;       // bytes

std::uint16_t StoredLength(const ColumnInfo& column) {
  switch (column.type) {
    case ColumnType::kText:
      return static_cast<std::uint16_t>(2 * column.length);
    case ColumnType::kBinary:
      return static_cast<std::uint16_t>(column.length);
    case ColumnType::kOle:
    case ColumnType::kMemo:
      return 0;
    default:
      if (const int size = SizeOfType(column.type); size > 0)
        return static_cast<std::uint16_t>(size);
  }
  throw Refusal("column '" + column.name + "' is of an unknown type");
}

// The same for names that differ only in letter case and trailing blanks.
std::vector<std::uint8_t> NameKey(const std::string& name) {
  std::vector<std::uint8_t> key;
  const std::u16string text = ToUtf16Strictly(name);
  if (!AppendTextKeyJet4(text, true, key)) {
    for (char16_t unit : text) {
      key.push_back(static_cast<std::uint8_t>(unit >> 8));
      key.push_back(static_cast<std::uint8_t>(unit & 0xFF));
    }
  }
  return key;
}

void CheckName(const std::string& what, const std::string& name) {
  const std::u16string text = ToUtf16Strictly(name);
  if (text.empty() || text.size() > kMaxName)
    throw Refusal(fmt::format("{} '{}': a name has 1 to {} characters", what, name, kMaxName));
  const bool proper =
      text.front() != ' ' && std::ranges::none_of(text, [](char16_t unit) {
        return unit < 0x20 || unit == '.' || unit == '!' || unit == '`' || unit == '[' || unit == ']';
      });
  if (!proper)
    throw Refusal(fmt::format("{} '{}': the name has a character that names cannot have", what, name));
}

template <class Items>
void CheckNames(const std::string& what, const Items& items, std::size_t most) {
  if (items.size() > most)
    throw Refusal(fmt::format("a table has at most {} of '{}'", most, what));
  std::vector<std::vector<std::uint8_t>> seen;
  for (const auto& item : items) {
    CheckName(what, item.name);
    const std::vector<std::uint8_t> key = NameKey(item.name);
    if (std::ranges::find(seen, key) != seen.end())
      throw Refusal(fmt::format("{} '{}' is there twice", what, item.name));
    seen.push_back(key);
  }
}

void CheckRange(const ColumnInfo& column, const std::string& what, int value, int low, int high) {
  if (value < low || value > high)
    throw Refusal(
        fmt::format("column '{}': a {} of {} is not in {} to {}", column.name, what, value, low, high));
}

void CheckColumn(const ColumnInfo& column) {
  if (column.type == ColumnType::kText)
    CheckRange(column, "length", column.length, 1, kMaxText);
  if (column.type == ColumnType::kBinary)
    CheckRange(column, "length", column.length, 1, kMaxBinary);
  if (column.type == ColumnType::kNumeric) {
    CheckRange(column, "precision", column.precision, 1, kMaxPrecision);
    CheckRange(column, "scale", column.scale, 0, column.precision);
  }
  if (column.autonumber && column.type != ColumnType::kLong)
    throw Refusal("column '" + column.name + "': only a Long column can count by itself");
}

// The name is a key in an index of the catalog.
void CheckTableName(const std::string& name) {
  CheckName("table", name);
  std::vector<std::uint8_t> key;
  if (!AppendTextKeyJet4(ToUtf16Strictly(name), true, key))
    throw Refusal("the table's name has a character that the catalog cannot sort");
  for (const std::string_view system : kSystemTableNames) {
    if (IsSameName(name, std::string(system)))
      throw Refusal("a system table has this name");
  }
}

bool CanBeIndexed(ColumnType type) {
  return !IsLongValueType(type) && type != ColumnType::kNumeric;
}

IndexLayout::Part LayOutPart(const TableLayout& table, const IndexInfo& index, const IndexColumn& part) {
  const auto column = std::ranges::find_if(
      table.columns, [&](const ColumnLayout& one) { return IsSameName(one.info.name, part.name); });
  const bool missing = column == table.columns.end();
  if (missing || !CanBeIndexed(column->info.type))
    throw Refusal(fmt::format("index '{}': column '{}' {}", index.name, part.name,
                              missing ? "is not in the table" : "is of a type that cannot be indexed"));
  return {column->number, part.ascending};
}

IndexLayout LayOutIndex(const TableLayout& table, const IndexInfo& index) {
  if (index.columns.empty() || index.columns.size() > kMaxIndexColumns)
    throw Refusal(fmt::format("index '{}' must have 1 to {} columns", index.name, kMaxIndexColumns));
  if (index.foreignKey)
    throw Refusal("index '" + index.name + "': relationships cannot be written");
  IndexLayout layout;
  layout.name = index.name;
  for (const IndexColumn& part : index.columns) {
    layout.parts.push_back(LayOutPart(table, index, part));
    for (std::size_t i = 0; i + 1 < layout.parts.size(); ++i) {
      if (layout.parts[i].column == layout.parts.back().column)
        throw Refusal(fmt::format("index '{}' has column '{}' twice", index.name, part.name));
    }
  }
  layout.kind = index.primary ? IndexKind::kPrimaryKey : IndexKind::kOrdinary;
  layout.flags = static_cast<std::uint8_t>(kIndexAlways | (index.unique || index.primary ? kIndexUnique : 0) |
                                           (index.ignoreNulls ? kIndexIgnoreNulls : 0) |
                                           (index.required || index.primary ? kIndexRequired : 0));
  return layout;
}

constexpr std::uint32_t kDefinitionMark = 0x659;
constexpr std::uint32_t kIndexMark = 0x783;

// A definition being built. Begin adds a record of zeros, into which Put8, Put16 and Put32 write.
class Definition {
 public:
  void Begin(std::size_t size) {
    record_ = bytes_.size();
    bytes_.resize(record_ + size);
  }
  void Put8(std::size_t at, std::size_t value) { Put(at, 1, value); }
  void Put16(std::size_t at, std::size_t value) { Put(at, 2, value); }
  void Put32(std::size_t at, std::size_t value) { Put(at, 4, value); }

  void Append(std::size_t size, std::size_t value) { AppendLittleEndian(bytes_, size, value); }
  void AppendName(const std::string& name) {
    const std::u16string text = ToUtf16Strictly(name);
    Append(2, 2 * text.size());
    for (char16_t unit : text)
      Append(2, unit);
  }
  std::vector<std::uint8_t> Finished() {
    record_ = 0;
    Put32(kDefinitionLengthAt, bytes_.size());
    return std::move(bytes_);
  }

 private:
  void Put(std::size_t at, std::size_t size, std::size_t value) {
    ZERBAL_ASSERT(record_ + at + size <= bytes_.size() && value >> 8 * size == 0);
    StoreLittleEndian(&bytes_[record_ + at], size, value);
  }

  std::vector<std::uint8_t> bytes_;
  std::size_t record_ = 0;
};

void AddHead(Definition& out, const TableLayout& table, const TableCounts& counts) {
  constexpr TableDefinitionLayout::Head kHead = kJet4Definition.head;
  out.Begin(kHead.size);
  out.Put32(kDefinitionMarkAt, kDefinitionMark);
  out.Put32(kHead.rows, counts.rows);
  out.Put32(kLastAutonumberAt, counts.lastAutonumber);
  out.Put32(kAutonumberStepAt, 1);
  out.Put8(kTableTypeAt, table.system ? 'S' : 'N');
  out.Put16(kHead.maxColumns, table.columns.size());
  out.Put16(kHead.variableColumns, table.variableCount);
  out.Put16(kHead.columns, table.columns.size());
  out.Put32(kHead.logicalIndexes, table.indexes.size());
  out.Put32(kHead.physicalIndexes, table.indexes.size());
  out.Put32(kHead.ownedPages, table.ownedMap.ToU32());
  out.Put32(kFreePagesAt, table.freeMap.ToU32());
}

void AddCounters(Definition& out, const TableCounts& counts) {
  for (std::uint32_t distinct : counts.distinctKeys) {
    out.Begin(kJet4Definition.counterSize);
    out.Put32(kCounterDistinctKeysAt, distinct);
  }
}

void AddColumn(Definition& out, const ColumnLayout& column) {
  constexpr TableDefinitionLayout::Column kColumn = kJet4Definition.column;
  out.Begin(kColumn.size);
  out.Put8(kColumn.type, static_cast<std::uint8_t>(column.info.type));
  out.Put32(kColumnMarkAt, kDefinitionMark);
  out.Put16(kColumn.number, column.number);
  out.Put16(kColumn.variableIndex, column.variableIndex);
  out.Put16(kDisplayPositionAt, column.displayPosition);
  if (column.info.type == ColumnType::kNumeric) {
    out.Put8(kColumnPrecisionAt, static_cast<std::size_t>(column.info.precision));
    out.Put8(kColumnScaleAt, static_cast<std::size_t>(column.info.scale));
  } else {
    out.Put16(kColumn.sortOrder, kGeneralSortOrder.language);
  }
  out.Put8(kColumn.flags, column.flags);
  out.Put8(kColumnTextFlagsAt, column.info.compressed ? kColumnCompressed : 0);
  out.Put16(kColumn.fixedOffset, column.fixedOffset);
  out.Put16(kColumn.length, column.storedLength);
}

void AddPhysicalIndex(Definition& out, const IndexLayout& index) {
  constexpr TableDefinitionLayout::PhysicalIndex kIndex = kJet4Definition.physical;
  out.Begin(kIndex.size);
  out.Put32(kPhysicalMarkAt, kIndexMark);
  for (std::size_t i = 0; i < kMaxIndexColumns; ++i) {
    const std::size_t at = kIndex.parts + kIndexColumnSize * i;
    out.Put16(at, i < index.parts.size() ? index.parts[i].column : kNoColumn);
    out.Put8(at + 2, i < index.parts.size() && index.parts[i].ascending ? kIndexAscending : 0);
  }
  out.Put32(kIndexPagesAt, index.map.ToU32());
  out.Put32(kIndex.root, index.rootPage);
  out.Put8(kIndex.flags, index.flags);
}

void AddLogicalIndex(Definition& out, const IndexLayout& index, std::size_t number) {
  constexpr TableDefinitionLayout::LogicalIndex kIndex = kJet4Definition.logical;
  constexpr std::uint32_t kNoOtherIndex = 0xFFFFFFFF;
  constexpr std::uint8_t kNoRelationship = 4;
  out.Begin(kIndex.size);
  out.Put32(kLogicalMarkAt, kDefinitionMark);
  out.Put32(kLogicalNumberAt, number);
  out.Put32(kIndex.physical, number);
  out.Put32(kOtherIndexAt, kNoOtherIndex);
  out.Put8(kUpdateRuleAt, kNoRelationship);
  out.Put8(kDeleteRuleAt, kNoRelationship);
  out.Put8(kIndex.kind, static_cast<std::uint8_t>(index.kind));
}

void AddIndexes(Definition& out, const TableLayout& table) {
  for (const IndexLayout& index : table.indexes)
    AddPhysicalIndex(out, index);
  std::vector<std::size_t> byName(table.indexes.size());
  std::iota(byName.begin(), byName.end(), 0u);
  std::ranges::sort(byName, {}, [&](std::size_t i) { return NameKey(table.indexes[i].name); });
  for (std::size_t i : byName)
    AddLogicalIndex(out, table.indexes[i], i);
  for (std::size_t i : byName)
    out.AppendName(table.indexes[i].name);
}

void SortRecords(TableLayout& layout) {
  layout.recordOrder.resize(layout.columns.size());
  std::iota(layout.recordOrder.begin(), layout.recordOrder.end(), 0u);
  if (layout.system)
    std::ranges::sort(layout.recordOrder, {},
                      [&](std::size_t i) { return NameKey(layout.columns[i].info.name); });
}

}  // namespace

std::size_t TableLayout::MapCount() const {
  return 2 + indexes.size() +
         2 * static_cast<std::size_t>(std::ranges::count_if(columns, &ColumnLayout::IsLong));
}

bool IsSameName(const std::string& a, const std::string& b) {
  return NameKey(a) == NameKey(b);
}

void PlaceColumns(TableLayout& layout) {
  for (std::size_t i = 0; i < layout.columns.size(); ++i) {
    ColumnLayout& column = layout.columns[i];
    column.number = static_cast<std::uint16_t>(i);
    column.info.fixed = SizeOfType(column.info.type) != 0;
    column.variableIndex = layout.variableCount;
    column.storedLength = StoredLength(column.info);
    column.displayPosition = layout.system ? std::uint16_t{0} : column.number;
    if (!layout.system)
      column.flags = static_cast<std::uint8_t>(kColumnAlways | (column.info.fixed ? kColumnFixed : 0) |
                                               (column.info.autonumber ? kColumnAutonumber : 0));
    if (!column.info.fixed) {
      ++layout.variableCount;
    } else if (column.info.type != ColumnType::kBoolean) {
      column.fixedOffset = layout.fixedSize;
      layout.fixedSize = static_cast<std::uint16_t>(layout.fixedSize + column.storedLength);
    }
  }
  SortRecords(layout);
}

TableLayout LayOutTable(const TableSpec& table) {
  CheckTableName(table.name);
  if (table.columns.empty())
    throw Refusal("a table needs a column");
  CheckNames("column", table.columns, kMaxColumns);
  CheckNames("index", table.indexes, kMaxIndexes);
  TableLayout layout;
  layout.name = table.name;
  for (const ColumnInfo& column : table.columns) {
    CheckColumn(column);
    layout.columns.push_back({.info = column});
  }
  PlaceColumns(layout);
  for (const IndexInfo& index : table.indexes)
    layout.indexes.push_back(LayOutIndex(layout, index));
  if (std::ranges::count(layout.indexes, IndexKind::kPrimaryKey, &IndexLayout::kind) > 1)
    throw Refusal("the table has two primary keys");
  return layout;
}

std::vector<std::uint8_t> DefinitionBytes(const TableLayout& layout, const TableCounts& counts) {
  Definition out;
  AddHead(out, layout, counts);
  AddCounters(out, counts);
  for (std::size_t i : layout.recordOrder)
    AddColumn(out, layout.columns[i]);
  for (std::size_t i : layout.recordOrder)
    out.AppendName(layout.columns[i].info.name);
  AddIndexes(out, layout);
  for (std::size_t i : layout.recordOrder) {
    const ColumnLayout& column = layout.columns[i];
    if (!column.IsLong())
      continue;
    out.Append(2, column.number);
    out.Append(4, column.ownedLongMap.ToU32());
    out.Append(4, column.freeLongMap.ToU32());
  }
  out.Append(2, kNoColumn);
  return out.Finished();
}

}  // namespace zerbal::jet
