#include "jet/read/sorted_rows.h"

#include <algorithm>
#include <bit>
#include <string>
#include <string_view>
#include <vector>

#include "base/assert.h"
#include "jet/format/key.h"
#include "jet/format/table_definition_layout.h"
#include "jet/format/text.h"
#include "jet/read/field_value.h"
#include "jet/read/row.h"
#include "jet/read/row_walk.h"
#include "jet/read/seek_key.h"

namespace zerbal::jet {
namespace {

/// Computes the keys of rows.
class RowKey {
 public:
  RowKey(const DatabaseState& database, const TableDefinition& table, const PhysicalIndex& tree)
      : database_(database), table_(table), tree_(tree) {}

  /// False for a row that has no entry in the index. The key of a damaged row is that of Null.
  bool Make(const RowWalk& walk) {
    // Thousands of rows may not lie on their pages; throwing for each takes long.
    if (walk.RowIsOnPage()) {
      try {
        return Append(walk.RowBytes());
      } catch (const Damage&) {
      }
    }
    key_.clear();
    for (const PhysicalIndex::Part& part : tree_.parts)
      AppendNullKey(part.ascending, key_);
    return true;
  }

  std::span<const std::uint8_t> Bytes() const { return key_; }

 private:
  /// False for a row that has no entry in the index.
  bool Append(ByteView bytes) {
    key_.clear();
    bool empty = true;
    const Row row(bytes, database_.pages.FileFormat(), table_.hasVariableColumns);
    for (const PhysicalIndex::Part& part : tree_.parts)
      empty = !Append(row, part) && empty;
    return !empty || (tree_.flags & kIndexIgnoreNulls) == 0;
  }

  /// False for Null.
  bool Append(const Row& row, const PhysicalIndex::Part& part) {
    const auto at = static_cast<std::size_t>(part.column);
    const ColumnInfo& column = table_.columns[at];
    const ColumnPlace& place = table_.places[at];
    if (column.type == ColumnType::kBoolean) {
      const char bit = row.Has(place.number) ? 1 : 0;
      AppendFixedKey(column.type, {&bit, 1}, part.ascending, key_);
      return true;
    }
    const std::optional<ByteView> value = row.Value(column, place);
    if (!value) {
      AppendNullKey(part.ascending, key_);
      return false;
    }
    if (IsTextType(column.type))
      database_.WithBytes(column.type, *value,
                          [&](ByteView bytes) { AppendText(bytes, column, place, part.ascending); });
    else if (column.type == ColumnType::kNumeric)
      AppendNumber(*value, column, part.ascending);
    else if (!AppendFixedKey(column.type, value->Chars(), part.ascending, key_))
      AppendBinaryKey(value->Chars(), part.ascending, key_);
    return true;
  }

  void AppendText(ByteView value, const ColumnInfo& column, const ColumnPlace& place, bool ascending) {
    text_.clear();
    AppendStoredText(value, database_.pages.TextCodePage(), text_);
    if (seekKey_.Make(text_, column, place, ascending, database_.pages.Header()) == SeekKey::Result::kReady)
      key_.insert(key_.end(), seekKey_.Bytes().begin(), seekKey_.Bytes().end());
    else
      AppendFoldedTextKey(text_, ascending, key_);
  }

  /// Numerics, whose keys are not known, are sorted by value.
  void AppendNumber(ByteView value, const ColumnInfo& column, bool ascending) {
    const std::optional<Number> number = NumberOf(column, value);
    std::string real;
    AppendLittleEndian(real, 8, std::bit_cast<std::uint64_t>(number ? number->real : 0.0));
    AppendFixedKey(ColumnType::kDouble, real, ascending, key_);
  }

  const DatabaseState& database_;
  const TableDefinition& table_;
  const PhysicalIndex& tree_;
  std::vector<std::uint8_t> key_;
  std::string text_;
  SeekKey seekKey_;
};

}  // namespace

SortedRows::SortedRows(const DatabaseState& database, const TableDefinition& table,
                       const PhysicalIndex& tree) {
  RowKey key(database, table, tree);
  RowWalk walk(database.pages, table);
  for (bool found = walk.MoveFirst(); found; found = walk.MoveNext()) {
    const std::optional<RecordPointer> row = walk.Here();
    if (row && key.Make(walk))
      keys_.Add(key.Bytes(), *row, 0);
  }
  keys_.Sort();
}

bool SortedRows::StandOn(std::size_t at) {
  if (at >= keys_.Count())
    return false;
  at_ = at;
  return true;
}

bool SortedRows::MoveTo(std::span<const std::uint8_t> key) {
  std::size_t low = 0;
  std::size_t high = keys_.Count();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    if (std::ranges::lexicographical_compare(keys_.Entry(middle), key))
      low = middle + 1;
    else
      high = middle;
  }
  return StandOn(low);
}

void SortedRows::StandOnRow(RecordPointer row) {
  std::size_t at = 0;
  while (at + 1 < keys_.Count() && RowOf(at) != row)
    ++at;
  at_ = at;
}

bool SortedRows::StartsWith(std::span<const std::uint8_t> key) const {
  ZERBAL_ASSERT(at_ < keys_.Count());
  const std::span<const std::uint8_t> entry = keys_.Entry(at_);
  return entry.size() >= key.size() && std::ranges::equal(entry.first(key.size()), key);
}

RecordPointer SortedRows::RowOf(std::size_t at) const {
  if (at >= keys_.Count())
    return {};
  return RecordPointer::FromU32(LoadU32Be(keys_.Entry(at).last(kEntryPointerSize).data()));
}

}  // namespace zerbal::jet
