#include "jet/write/table_layout.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "jet/format/key.h"
#include "jet/write/page_bytes.h"
#include "jet/write/refusal.h"
#include "jet/write/stored_text.h"

namespace zerbal::jet {
namespace {

constexpr std::size_t kMaxName = 64;  // characters
constexpr std::size_t kMaxColumns = 255;
constexpr std::size_t kMaxIndexes = 32;
constexpr std::size_t kMaxIndexColumns = 10;
constexpr int kMaxText = 255;      // characters
constexpr int kMaxBinary = 510;    // bytes
constexpr int kMaxPrecision = 28;  // digits

// Column flags.
constexpr std::uint8_t kFixed = 0x01;
constexpr std::uint8_t kUsual = 0x02;
constexpr std::uint8_t kAutonumber = 0x04;
// Index flags.
constexpr std::uint8_t kUnique = 0x01;
constexpr std::uint8_t kIgnoreNulls = 0x02;
constexpr std::uint8_t kRequired = 0x08;
constexpr std::uint8_t kAlways = 0x80;

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

bool IsStoredFixed(ColumnType type) {
  return type != ColumnType::kText && type != ColumnType::kBinary && type != ColumnType::kMemo &&
         type != ColumnType::kOle;
}

// Names that are the same but for letter case and trailing blanks have the same key.
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
    throw Refusal(what + " '" + name + "': a name has 1 to " + std::to_string(kMaxName) + " characters");
  const bool proper =
      text.front() != ' ' && std::ranges::none_of(text, [](char16_t unit) {
        return unit < 0x20 || unit == '.' || unit == '!' || unit == '`' || unit == '[' || unit == ']';
      });
  if (!proper)
    throw Refusal(what + " '" + name + "': the name has a character that names cannot have");
}

template <class Items>
void CheckNames(const std::string& what, const Items& items, std::size_t most) {
  if (items.size() > most)
    throw Refusal("a table has at most " + std::to_string(most) + " of '" + what + "'");
  std::vector<std::vector<std::uint8_t>> seen;
  for (const auto& item : items) {
    CheckName(what, item.name);
    const std::vector<std::uint8_t> key = NameKey(item.name);
    if (std::ranges::find(seen, key) != seen.end())
      throw Refusal(what + " '" + item.name + "' is there twice");
    seen.push_back(key);
  }
}

void CheckRange(const ColumnInfo& column, const std::string& what, int value, int low, int high) {
  if (value < low || value > high)
    throw Refusal("column '" + column.name + "': a " + what + " of " + std::to_string(value) + " is not in " +
                  std::to_string(low) + " to " + std::to_string(high));
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

// The catalog has an index of names.
void CheckTableName(const std::string& name) {
  CheckName("table", name);
  std::vector<std::uint8_t> key;
  if (!AppendTextKeyJet4(ToUtf16Strictly(name), true, key))
    throw Refusal("the table's name has a character that the catalog cannot sort");
  for (const char* system : {"MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships"}) {
    if (IsSameName(name, system))
      throw Refusal("a system table has this name");
  }
}

bool CanBeIndexed(ColumnType type) {
  return type != ColumnType::kMemo && type != ColumnType::kOle && type != ColumnType::kNumeric;
}

IndexLayout::Part LayOutPart(const TableLayout& table, const IndexInfo& index, const IndexColumn& part) {
  const auto column = std::ranges::find_if(
      table.columns, [&](const ColumnLayout& one) { return IsSameName(one.info.name, part.name); });
  const std::string where = "index '" + index.name + "': column '" + part.name + "' ";
  if (column == table.columns.end())
    throw Refusal(where + "is not in the table");
  if (!CanBeIndexed(column->info.type))
    throw Refusal(where + "is of a type that cannot be indexed");
  return {column->number, part.ascending};
}

IndexLayout LayOutIndex(const TableLayout& table, const IndexInfo& index) {
  if (index.columns.empty() || index.columns.size() > kMaxIndexColumns)
    throw Refusal("index '" + index.name + "' must have 1 to " + std::to_string(kMaxIndexColumns) +
                  " columns");
  if (index.foreignKey)
    throw Refusal("index '" + index.name + "': relationships cannot be written");
  IndexLayout layout;
  layout.name = index.name;
  for (const IndexColumn& part : index.columns) {
    layout.parts.push_back(LayOutPart(table, index, part));
    for (std::size_t i = 0; i + 1 < layout.parts.size(); ++i) {
      if (layout.parts[i].column == layout.parts.back().column)
        throw Refusal("index '" + index.name + "' has column '" + part.name + "' twice");
    }
  }
  layout.primary = index.primary;
  layout.unique = index.unique || index.primary;
  layout.required = index.required || index.primary;
  layout.ignoreNulls = index.ignoreNulls;
  layout.type = index.primary ? 1 : 0;
  layout.flags =
      static_cast<std::uint8_t>(kAlways | (layout.unique ? kUnique : 0) |
                                (layout.ignoreNulls ? kIgnoreNulls : 0) | (layout.required ? kRequired : 0));
  return layout;
}

// The definition under construction.
class Definition {
 public:
  void Add(std::size_t size, std::uint64_t value) { AppendLittleEndian(bytes_, size, value); }
  void Zeros(std::size_t count) { bytes_.resize(bytes_.size() + count); }
  void AddName(const std::string& name) {
    const std::u16string text = ToUtf16Strictly(name);
    Add(2, 2 * text.size());
    for (char16_t unit : text)
      Add(2, unit);
  }
  std::vector<std::uint8_t> Finished() {
    const std::size_t length = bytes_.size();
    for (std::size_t i = 0; i < 4; ++i)
      bytes_[8 + i] = static_cast<std::uint8_t>(length >> 8 * i & 0xFF);
    return std::move(bytes_);
  }

 private:
  std::vector<std::uint8_t> bytes_;
};

constexpr std::uint32_t kDefinitionMark = 0x659;
constexpr std::uint32_t kIndexMark = 0x783;
constexpr std::uint32_t kGeneralSortOrder = 0x0409;

void AddHead(Definition& out, const TableLayout& table, const TableCounts& counts) {
  out.Add(2, 0x0102);
  out.Zeros(10);  // free bytes, next page, length: later
  out.Add(4, kDefinitionMark);
  out.Add(4, counts.rows);
  out.Add(4, counts.lastAutonumber);
  out.Add(4, 1);
  out.Zeros(12);
  out.Add(1, table.system ? 'S' : 'N');
  out.Add(2, table.columns.size());
  out.Add(2, table.variableCount);
  out.Add(2, table.columns.size());
  out.Add(4, table.indexes.size());
  out.Add(4, table.indexes.size());
  out.Add(4, table.ownedMap);
  out.Add(4, table.freeMap);
}

void AddColumn(Definition& out, const ColumnLayout& column) {
  out.Add(1, static_cast<std::uint8_t>(column.info.type));
  out.Add(4, kDefinitionMark);
  out.Add(2, column.number);
  out.Add(2, column.variableIndex);
  out.Add(2, column.displayPosition);
  if (column.info.type == ColumnType::kNumeric) {
    out.Add(1, static_cast<std::uint64_t>(column.info.precision));
    out.Add(1, static_cast<std::uint64_t>(column.info.scale));
  } else {
    out.Add(2, kGeneralSortOrder);
  }
  out.Add(2, 0);
  out.Add(1, column.flags);
  out.Add(1, column.info.compressed ? 1 : 0);
  out.Add(4, 0);
  out.Add(2, column.fixedOffset);
  out.Add(2, column.storedLength);
}

void AddPhysicalIndex(Definition& out, const IndexLayout& index) {
  out.Add(4, kIndexMark);
  for (std::size_t i = 0; i < kMaxIndexColumns; ++i) {
    out.Add(2, i < index.parts.size() ? index.parts[i].column : 0xFFFF);
    out.Add(1, i < index.parts.size() && index.parts[i].ascending ? 1 : 0);
  }
  out.Add(4, index.map);
  out.Add(4, index.rootPage);
  out.Add(4, 0);
  out.Add(1, index.flags);
  out.Zeros(5);
}

void AddLogicalIndex(Definition& out, const IndexLayout& index, std::size_t number) {
  constexpr std::uint32_t kNone = 0xFFFFFFFF;
  constexpr std::uint8_t kNoRelationship = 4;
  out.Add(4, kDefinitionMark);
  out.Add(4, number);
  out.Add(4, number);  // of the physical index
  out.Add(1, 0);
  out.Add(4, kNone);  // index and table of the other side
  out.Add(4, 0);
  out.Add(1, kNoRelationship);
  out.Add(1, kNoRelationship);
  out.Add(1, index.type);
  out.Add(4, 0);
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
    out.AddName(table.indexes[i].name);
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
    column.info.fixed = IsStoredFixed(column.info.type);
    column.variableIndex = layout.variableCount;
    column.storedLength = StoredLength(column.info);
    column.displayPosition = layout.system ? std::uint16_t{0} : column.number;
    if (!layout.system)
      column.flags = static_cast<std::uint8_t>(kUsual | (column.info.fixed ? kFixed : 0) |
                                               (column.info.autonumber ? kAutonumber : 0));
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
  if (std::ranges::count_if(layout.indexes, &IndexLayout::primary) > 1)
    throw Refusal("the table has two primary keys");
  return layout;
}

std::vector<std::uint8_t> DefinitionBytes(const TableLayout& layout, const TableCounts& counts) {
  Definition out;
  AddHead(out, layout, counts);
  for (std::uint32_t distinct : counts.distinctKeys) {
    out.Add(4, 0);
    out.Add(4, distinct);
    out.Add(4, 0);
  }
  for (std::size_t i : layout.recordOrder)
    AddColumn(out, layout.columns[i]);
  for (std::size_t i : layout.recordOrder)
    out.AddName(layout.columns[i].info.name);
  AddIndexes(out, layout);
  for (std::size_t i : layout.recordOrder) {
    const ColumnLayout& column = layout.columns[i];
    if (!column.IsLong())
      continue;
    out.Add(2, column.number);
    out.Add(4, column.ownedLongMap);
    out.Add(4, column.freeLongMap);
  }
  out.Add(2, 0xFFFF);
  return out.Finished();
}

}  // namespace zerbal::jet
