#include "jet/pair_reader.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "jet/error.h"
#include "jet/read/data_page.h"
#include "jet/read/row.h"
#include "jet/read/row_walk.h"
#include "jet/read/table_cursor.h"
#include "jet/read/table_definition.h"
#include "jet/read/usage_map.h"
#include "jet/recordset.h"
#include "jet/schema.h"

namespace zerbal::jet {
namespace {

bool IsFixedLong(const ColumnInfo& column, const ColumnPlace& place) {
  return column.type == ColumnType::kLong && column.fixed && place.fixedLength == 4;
}

/// Where the two values are in a row of a given length and number of columns. Nearly all rows of a table
/// without variable columns have the same layout, so it is kept from row to row.
struct PairLayout {
  std::size_t rowLength = 0;
  unsigned columnCount = ~0u;
  std::size_t first = 0;  ///< offsets from the row's beginning
  std::size_t second = 0;
  std::size_t firstMask = 0;
  std::size_t secondMask = 0;
  std::uint8_t firstBit = 0;
  std::uint8_t secondBit = 0;

  /// Of both values, in the last eight bytes of the row; 0 when they are not there.
  std::uint64_t NullBits() const {
    constexpr std::size_t kSize = sizeof(std::uint64_t);
    if (rowLength < kSize || rowLength > std::min(firstMask, secondMask) + kSize)
      return 0;
    const std::size_t start = rowLength - kSize;
    return std::uint64_t{firstBit} << 8 * (firstMask - start) | std::uint64_t{secondBit}
                                                                    << 8 * (secondMask - start);
  }
};

/// The directory of a page whose rows all have the same length, none of them moved or hidden.
class PlainDirectory {
 public:
  void Make(std::size_t pageSize, std::size_t rowLength) {
    if (rowLength == rowLength_)
      return;
    rowLength_ = rowLength;
    bytes_.clear();
    for (std::size_t start = pageSize; start >= rowLength + bytes_.size();) {
      start -= rowLength;
      base::AppendLittleEndian(bytes_, kDirectoryEntrySize, start);
    }
  }
  /// Whether `page` begins with `rows` such rows.
  bool IsOf(const DataPage& page, std::size_t rows) const {
    const std::size_t size = kDirectoryEntrySize * rows;
    return size <= bytes_.size() && std::memcmp(page.Directory(), bytes_.data(), size) == 0;
  }

 private:
  std::size_t rowLength_ = 0;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace

struct PairReader::State {
  State(const TableCursor& source, int first, int second)
      : database(source.SharedDatabase()),
        table(source.SharedTable()),
        firstColumn(static_cast<std::size_t>(first)),
        secondColumn(static_cast<std::size_t>(second)),
        columnCountMask(database->pages.IsJet3() ? 0xFF : 0xFFFF) {
    const bool plain = !table->hasVariableColumns &&
                       IsFixedLong(table->columns[firstColumn], table->places[firstColumn]) &&
                       IsFixedLong(table->columns[secondColumn], table->places[secondColumn]);
    if (plain)
      owned = UsageMap(database->pages, table->ownedPages);
    else
      rows.emplace(Recordset(std::make_unique<TableCursor>(database, table)));
  }

  void ReadPages(std::span<LongPair> out, std::size_t& count);
  std::size_t ReadPlainRows(std::span<LongPair> out);
  void ReadRowsOfPage(std::span<LongPair> out, std::size_t& count);
  LongPair ReadRow(const std::uint8_t* row, std::size_t length);
  void SetLayout(ByteView row);
  void Convert(std::span<LongPair> out, std::size_t& count);
  [[noreturn]] void RefuseNull(std::size_t column) const;

  std::shared_ptr<const DatabaseState> database;
  std::shared_ptr<const TableDefinition> table;
  std::size_t firstColumn;
  std::size_t secondColumn;
  unsigned columnCountMask;    ///< of the first two bytes of a row
  std::exception_ptr failure;  ///< thrown by the next Read; null = none

  // Both columns are fixed Longs: rows are decoded in place.
  UsageMap owned;
  std::uint32_t pageNumber = 0;
  DataPage page;
  unsigned nextRow = 0;
  PairLayout layout;
  PlainDirectory plainDirectory;

  // Other columns: every row is converted.
  std::optional<Recordset> rows;
};

void PairReader::State::ReadPages(std::span<LongPair> out, std::size_t& count) {
  while (count < out.size()) {
    if (nextRow < page.RowCount()) {
      const std::size_t plainRows = ReadPlainRows(out.subspan(count));
      count += plainRows;
      if (plainRows == 0)
        ReadRowsOfPage(out, count);
      continue;
    }
    const std::uint32_t next = owned.Next(pageNumber);
    if (next == 0)
      return;
    page = TablePage(database->pages, next, table->page).value_or(DataPage());
    pageNumber = next;
    nextRow = 0;
  }
}

/// Reads the next rows of the page, if they have the layout and lie side by side. Returns how many.
std::size_t PairReader::State::ReadPlainRows(std::span<LongPair> out) {
  const std::size_t length = layout.rowLength;
  const std::size_t count = std::min<std::size_t>(out.size(), page.RowCount() - nextRow);
  const ByteView bytes = page.Bytes();
  const std::size_t last = nextRow + count;
  const std::uint64_t nullBits = layout.NullBits();
  if (nullBits == 0 || length * last > bytes.Size() - page.DirectoryEnd())
    return 0;
  plainDirectory.Make(bytes.Size(), length);
  if (!plainDirectory.IsOf(page, last))
    return 0;
  const std::uint8_t* row = bytes.Data() + bytes.Size() - length * nextRow;
  const std::size_t first = layout.first;
  const std::size_t second = layout.second;
  const std::uint64_t columnCount = layout.columnCount;
  std::uint64_t different = 0;
  std::uint64_t present = nullBits;
  const auto decode = [&](const auto& load) {
    for (LongPair& pair : out.first(count)) {
      row -= length;
      Prefetch(row, bytes.Size());
      different |= LoadU64(row) ^ columnCount;
      present &= LoadU64(row + length - sizeof present);
      pair = load();
    }
  };
  if (second == first + sizeof(LongPair::first))  // the columns are neighbours, as in all map files
    decode([&] {
      const std::uint64_t both = LoadU64(row + first);
      return LongPair{static_cast<std::int32_t>(both), static_cast<std::int32_t>(both >> 32)};
    });
  else
    decode([&] {
      return LongPair{static_cast<std::int32_t>(LoadU32(row + first)),
                      static_cast<std::int32_t>(LoadU32(row + second))};
    });
  if ((different & columnCountMask) != 0 || present != nullBits)
    return 0;
  nextRow += static_cast<unsigned>(count);
  return count;
}

void PairReader::State::ReadRowsOfPage(std::span<LongPair> out, std::size_t& count) {
  const ByteView bytes = page.Bytes();
  const std::uint8_t* directory = page.Directory();
  const std::size_t directoryEnd = page.DirectoryEnd();
  const unsigned rowCount = page.RowCount();
  std::size_t end =
      nextRow == 0 ? bytes.Size() : LoadU16(directory + kDirectoryEntrySize * (nextRow - 1)) & kRowStartMask;
  unsigned rowNumber = nextRow;
  for (; rowNumber < rowCount && count < out.size(); ++rowNumber) {
    const std::uint16_t entry = LoadU16(directory + kDirectoryEntrySize * rowNumber);
    const std::size_t start = entry & kRowStartMask;
    if ((entry & kRowHidden) == 0) {
      if ((entry & kRowMoved) != 0) {
        const ByteView moved = FollowRow(database->pages, page, rowNumber, table->page);
        out[count] = ReadRow(moved.Data(), moved.Size());
      } else {
        if (start < directoryEnd || start > end || end > bytes.Size())
          DataPage::ThrowOffPage();
        out[count] = ReadRow(bytes.Data() + start, end - start);
      }
      ++count;
    }
    end = start;
  }
  nextRow = rowNumber;
}

inline LongPair PairReader::State::ReadRow(const std::uint8_t* row, std::size_t length) {
  if (length != layout.rowLength || length < 2 || (LoadU16(row) & columnCountMask) != layout.columnCount)
    SetLayout({row, length});
  if ((row[layout.firstMask] & layout.firstBit) == 0)
    RefuseNull(firstColumn);
  if ((row[layout.secondMask] & layout.secondBit) == 0)
    RefuseNull(secondColumn);
  return {static_cast<std::int32_t>(LoadU32(row + layout.first)),
          static_cast<std::int32_t>(LoadU32(row + layout.second))};
}

/// Sets `layout` for `row`. Throws when the row does not hold both values.
void PairReader::State::SetLayout(ByteView row) {
  layout = PairLayout();
  const Format format = database->pages.FileFormat();
  const Row checked(row, format, false);
  for (const std::size_t column : {firstColumn, secondColumn}) {
    if (!checked.Value(table->columns[column], table->places[column]))
      RefuseNull(column);
  }
  const ColumnPlace& a = table->places[firstColumn];
  const ColumnPlace& b = table->places[secondColumn];
  const std::size_t head = RowHeadSize(format);
  const unsigned columnCount = format == Format::kJet3 ? row.U8(0) : row.U16(0);
  const std::size_t mask = row.Size() - NullMaskSize(columnCount);
  layout.rowLength = row.Size();
  layout.columnCount = columnCount;
  layout.first = head + a.fixedOffset;
  layout.second = head + b.fixedOffset;
  layout.firstMask = mask + a.number / 8u;
  layout.secondMask = mask + b.number / 8u;
  layout.firstBit = static_cast<std::uint8_t>(1u << a.number % 8);
  layout.secondBit = static_cast<std::uint8_t>(1u << b.number % 8);
}

void PairReader::State::Convert(std::span<LongPair> out, std::size_t& count) {
  const int first = static_cast<int>(firstColumn);
  const int second = static_cast<int>(secondColumn);
  while (count < out.size() && !rows->Eof()) {
    out[count] = {rows->At(first).AsLong(), rows->At(second).AsLong()};
    ++count;
    rows->MoveNext();
  }
}

void PairReader::State::RefuseNull(std::size_t column) const {
  throw ConversionError(database->fileName, table->name,
                        "field '" + table->columns[column].name + "' is Null");
}

PairReader::PairReader(const Recordset& table, std::string_view firstColumn, std::string_view secondColumn) {
  const int first = table.FieldIndex(firstColumn);
  const int second = table.FieldIndex(secondColumn);
  const TableCursor& cursor = *table.cursor_;
  state_ = cursor.Guarded([&] { return std::make_unique<State>(cursor, first, second); });
}

PairReader::PairReader(PairReader&&) noexcept = default;
PairReader::~PairReader() = default;

std::size_t PairReader::Read(std::span<LongPair> out) {
  State& state = *state_;
  if (state.failure)
    std::rethrow_exception(state.failure);
  std::size_t count = 0;
  try {
    state.database->Guarded(state.table->name, [&] {
      if (state.rows)
        state.Convert(out, count);
      else
        state.ReadPages(out, count);
    });
  } catch (const EngineError&) {
    // Rows before the damaged one are returned first, unless the file was truncated: then all may be zeros.
    state.failure = std::current_exception();
    if (count == 0 || state.database->pages.Shrunk())
      throw;
  }
  return count;
}

}  // namespace zerbal::jet
