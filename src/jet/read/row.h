// Finding the values in a row of a table.
#pragma once

#include <cstddef>
#include <optional>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/table_definition.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// A view of a row whose number of columns, null mask and table of offsets have been checked.
class Row {
 public:
  Row() = default;
  /// Throws Damage when the row is too short for its number of columns and its offsets.
  Row(ByteView bytes, Format format, bool hasVariableColumns);

  /// The column's bit in the null mask: whether there is a value; of a boolean the value. False for columns
  /// that were added after the row was written.
  bool Has(unsigned columnNumber) const {
    return columnNumber < columnCount_ &&
           (bytes_.Data()[bytes_.Size() - NullMaskSize(columnCount_) + columnNumber / 8] >> columnNumber % 8 &
            1) != 0;
  }

  /// The stored bytes of a value; nullopt for Null. Not for booleans: Has() is their value. Throws Damage.
  std::optional<ByteView> Value(const ColumnInfo& column, const ColumnPlace& place) const {
    ZERBAL_ASSERT(column.type != ColumnType::kBoolean);
    if (!Has(place.number))
      return std::nullopt;
    return column.fixed ? Fixed(place.fixedOffset, place.fixedLength) : Variable(place.variableIndex);
  }

 private:
  ByteView Fixed(std::size_t offset, std::size_t length) const {
    const std::size_t start = RowHeadSize(format_) + offset;
    if (start + length > valuesEnd_)
      ThrowTooShort();
    return {bytes_.Data() + start, length};
  }
  [[noreturn]] static void ThrowTooShort();
  std::optional<ByteView> Variable(unsigned index) const;
  std::size_t VariableOffset(unsigned index) const;
  bool IsJet3() const { return format_ == Format::kJet3; }
  void OutlineJet3(std::size_t maskStart);
  void OutlineJet4(std::size_t maskStart);

  ByteView bytes_;
  Format format_ = Format::kJet4;
  unsigned columnCount_ = 0;    ///< of the table when the row was written
  unsigned variableCount_ = 0;  ///< entries of the table of offsets
  unsigned jumps_ = 0;          ///< 1997 format: entries of the jump table that are in use
  std::size_t jumpEnd_ = 0;     ///< after the jump table, which is stored backwards
  std::size_t offsets_ = 0;     ///< where the offset of variable part 0 is; the others precede it
  std::size_t valuesEnd_ = 0;   ///< after the last value
};

}  // namespace zerbal::jet
