// One row of a table: where its values are.
#pragma once

#include <cstddef>
#include <optional>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/data_page_layout.h"
#include "jet/read/table_definition.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// A view of the bytes of a row, with its outline checked: count of columns, null mask, table of offsets.
class Row {
 public:
  Row() = default;
  /// Throws Damage when the row is too short for what it says of itself.
  Row(ByteView bytes, Format format, bool hasVariableColumns);

  /// The column's bit in the null mask: set = there is a value, or the value of a boolean. Columns that are
  /// younger than the row have none.
  bool Has(unsigned columnNumber) const {
    return columnNumber < columnCount_ &&
           (bytes_.Data()[bytes_.Size() - NullMaskSize(columnCount_) + columnNumber / 8] >> columnNumber % 8 &
            1) != 0;
  }

  /// The stored bytes of a column's value, nothing for Null. Not for booleans, whose value is Has().
  std::optional<ByteView> Value(const ColumnInfo& column, const ColumnPlace& place) const {
    ZERBAL_ASSERT(column.type != ColumnType::kBoolean);
    if (!Has(place.number))
      return std::nullopt;
    return column.fixed ? Fixed(place.fixedOffset, place.fixedLength) : Variable(place.variableIndex);
  }

 private:
  ByteView Fixed(std::size_t offset, std::size_t length) const;
  std::optional<ByteView> Variable(unsigned index) const;
  std::size_t VariableOffset(unsigned index) const;
  bool IsJet3() const { return format_ == Format::kJet3; }
  void OutlineJet3(std::size_t maskStart);
  void OutlineJet4(std::size_t maskStart);

  ByteView bytes_;
  Format format_ = Format::kJet4;
  unsigned columnCount_ = 0;    ///< columns that there were when the row was written
  unsigned variableCount_ = 0;  ///< entries of the table of offsets
  unsigned jumps_ = 0;          ///< 1997 format: entries of the jump table that count
  std::size_t jumpEnd_ = 0;     ///< behind the jump table, which is stored backwards
  std::size_t offsets_ = 0;     ///< where the offset of variable part 0 is; those of the others precede it
  std::size_t valuesEnd_ = 0;   ///< behind the last value
};

}  // namespace zerbal::jet
