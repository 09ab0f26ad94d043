#include "jet/read/table_definition.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "jet/format/bytes.h"
#include "jet/format/text.h"

namespace zerbal::jet {
namespace {

constexpr unsigned kMostColumns = 1024;  // the engine that made the files stops at 255
constexpr unsigned kMostIndexes = 1024;  // and at 32

// Offsets within the records of a definition.
struct Layout {
  std::size_t rows;
  std::size_t maxColumns, variableColumns, columns, logicalIndexes, physicalIndexes, ownedPages, fixedEnd;
  std::size_t counterSize;
  std::size_t columnSize, columnNumber, columnVariableIndex, columnSortOrder, columnFlags, columnFixedOffset,
      columnLength;
  std::size_t physicalSize, physicalParts, physicalRoot, physicalFlags;
  std::size_t logicalSize, logicalPhysical, logicalKind;
};

constexpr Layout kJet3Layout = {0x0C,                                      //
                                0x15, 0x17, 0x19, 0x1B, 0x1F, 0x23, 0x2B,  //
                                8,                                         //
                                18,   0x01, 0x03, 0x09, 0x0D, 0x0E, 0x10,  //
                                39,   0x00, 0x22, 0x26,                    //
                                20,   0x04, 0x13};
constexpr Layout kJet4Layout = {0x10,                                      //
                                0x29, 0x2B, 0x2D, 0x2F, 0x33, 0x37, 0x3F,  //
                                12,                                        //
                                25,   0x05, 0x07, 0x0B, 0x0F, 0x15, 0x17,  //
                                52,   0x04, 0x26, 0x2E,                    //
                                28,   0x08, 0x17};

/// The pages of a definition put together, cut to its length.
class Joined {
 public:
  Joined(const FilePages& pages, std::uint32_t first) {
    const ByteView page = pages.Page(first, PageKind::kTableDefinition);
    const std::size_t length = page.U32(8);
    std::uint32_t next = page.U32(4);
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
      bytes_.insert(bytes_.end(), more.Data() + 8, more.Data() + more.Size());
      next = more.U32(4);
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
        layout_(jet3_ ? kJet3Layout : kJet4Layout),
        bytes_(bytes),
        table_(table) {}

  void Parse() {
    ReadCounts();
    at_ = layout_.fixedEnd + physicalCount_ * layout_.counterSize;
    ReadColumns();
    for (std::size_t i = 0; i < physicalCount_; ++i)
      table_.trees.push_back(ReadTree(Take(layout_.physicalSize)));
    ReadIndexes();
  }

 private:
  void ReadCounts() {
    maxColumns_ = bytes_.U16(layout_.maxColumns);
    variableColumns_ = bytes_.U16(layout_.variableColumns);
    columnCount_ = bytes_.U16(layout_.columns);
    logicalCount_ = bytes_.U32(layout_.logicalIndexes);
    physicalCount_ = bytes_.U32(layout_.physicalIndexes);
    table_.notedRows = bytes_.U32(layout_.rows);
    table_.ownedPages = RecordPointer::FromU32(bytes_.U32(layout_.ownedPages));
    table_.hasVariableColumns = variableColumns_ > 0;
    if (columnCount_ > kMostColumns || logicalCount_ > kMostIndexes || physicalCount_ > kMostIndexes)
      throw Damage("the table's definition claims more columns or indexes than a table can have");
    const std::uint64_t least = layout_.fixedEnd + std::uint64_t{columnCount_} * layout_.columnSize +
                                physicalCount_ * std::uint64_t{layout_.counterSize + layout_.physicalSize} +
                                logicalCount_ * std::uint64_t{layout_.logicalSize};
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
      char buffer[4];
      name.append(buffer, static_cast<std::size_t>(EncodeUtf8(c, buffer)));
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
      const ByteView record = Take(layout_.columnSize);
      infos.push_back(ReadColumnInfo(record));
      places.push_back(ReadColumnPlace(record, infos.back()));
    }
    for (ColumnInfo& info : infos)
      info.name = TakeName();
    SortByNumber(std::move(infos), std::move(places));
  }

  ColumnInfo ReadColumnInfo(ByteView record) const {
    ColumnInfo info;
    info.type = static_cast<ColumnType>(record.U8(0));
    const std::uint8_t flags = record.U8(layout_.columnFlags);
    info.fixed = (flags & 0x01) != 0;
    info.autonumber = (flags & 0x04) != 0;
    const int length = record.U16(layout_.columnLength);
    const int typeSize = SizeOfType(info.type);
    info.length = typeSize != 0 ? typeSize : length;
    if (info.type == ColumnType::kText && !jet3_)
      info.length = length / 2;
    if (info.type == ColumnType::kText || info.type == ColumnType::kMemo)
      info.compressed = !jet3_ && (record.U8(0x10) & 0x01) != 0;
    if (info.type == ColumnType::kNumeric && !jet3_) {
      info.precision = record.U8(0x0B);
      info.scale = record.U8(0x0C);
      if (info.scale > 28)
        throw Damage("a numeric column has more decimals than there can be");
    }
    return info;
  }

  ColumnPlace ReadColumnPlace(ByteView record, const ColumnInfo& info) const {
    ColumnPlace place;
    place.number = record.U16(layout_.columnNumber);
    place.fixedOffset = record.U16(layout_.columnFixedOffset);
    place.fixedLength = record.U16(layout_.columnLength);
    place.variableIndex = record.U16(layout_.columnVariableIndex);
    place.sortOrder.language = record.U16(layout_.columnSortOrder);
    place.sortOrder.version = jet3_ ? std::uint8_t{0} : record.U8(0x0E);
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
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return places[a].number < places[b].number; });
    for (const std::size_t i : order) {
      if (!table_.places.empty() && table_.places.back().number == places[i].number)
        throw Damage("two columns have the same number");
      table_.columns.push_back(std::move(infos[i]));
      table_.places.push_back(places[i]);
    }
  }

  PhysicalIndex ReadTree(ByteView record) const {
    constexpr std::size_t kParts = 10;
    PhysicalIndex tree;
    for (std::size_t i = 0; i < kParts; ++i) {
      const std::size_t at = layout_.physicalParts + 3 * i;
      const std::uint16_t number = record.U16(at);
      if (number != 0xFFFF)
        tree.parts.push_back({ColumnOfNumber(number), (record.U8(at + 2) & 0x01) != 0});
    }
    tree.rootPage = record.U32(layout_.physicalRoot);
    tree.flags = record.U8(layout_.physicalFlags);
    return tree;
  }

  int ColumnOfNumber(std::uint16_t number) const {
    const auto found = std::find_if(table_.places.begin(), table_.places.end(),
                                    [&](const ColumnPlace& place) { return place.number == number; });
    if (found == table_.places.end())
      throw Damage("an index names a column that the table does not have");
    return static_cast<int>(found - table_.places.begin());
  }

  void ReadIndexes() {
    for (std::size_t i = 0; i < logicalCount_; ++i) {
      const ByteView record = Take(layout_.logicalSize);
      const std::uint32_t physical = record.U32(layout_.logicalPhysical);
      if (physical >= physicalCount_)
        throw Damage("an index names a tree that the table does not have");
      IndexInfo index;
      const PhysicalIndex& tree = table_.trees[physical];
      for (const PhysicalIndex::Part& part : tree.parts)
        index.columns.push_back({table_.columns[static_cast<std::size_t>(part.column)].name, part.ascending});
      index.primary = record.U8(layout_.logicalKind) == 1;
      index.foreignKey = record.U8(layout_.logicalKind) == 2;
      index.unique = index.primary || (tree.flags & 0x01) != 0;
      index.ignoreNulls = (tree.flags & 0x02) != 0;
      index.required = (tree.flags & 0x08) != 0;
      table_.indexes.push_back(std::move(index));
      table_.treeOf.push_back(physical);
    }
    for (IndexInfo& index : table_.indexes)
      index.name = TakeName();
  }

  const FilePages& pages_;
  const bool jet3_;
  const Layout& layout_;
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
