// Finding the values in a row of a table.
#pragma once

#include <cstddef>
#include <cstdint>
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
  Row(ByteView bytes, Format format, bool hasVariableColumns) : bytes_(bytes), format_(format) {
    const std::size_t head = RowHeadSize(format);
    if (bytes.Size() < head)
      ThrowBroken();
    columnCount_ = IsJet3() ? bytes.U8(0) : bytes.U16(0);
    const std::size_t maskSize = NullMaskSize(columnCount_);
    if (bytes.Size() < head + maskSize)
      ThrowBroken();
    valuesEnd_ = bytes.Size() - maskSize;
    if (!hasVariableColumns)
      return;
    if (IsJet3())
      OutlineJet3(valuesEnd_);
    else
      OutlineJet4(valuesEnd_);
  }

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

  /// Where a value in the fixed part is; null for Null and when the row is too short.
  const std::uint8_t* FixedValue(const ColumnPlace& place) const {
    const std::size_t start = RowHeadSize(format_) + place.fixedOffset;
    return Has(place.number) && start + place.fixedLength <= valuesEnd_ ? bytes_.Data() + start : nullptr;
  }

 private:
  ByteView Fixed(std::size_t offset, std::size_t length) const {
    const std::size_t start = RowHeadSize(format_) + offset;
    if (start + length > valuesEnd_)
      ThrowTooShort();
    return {bytes_.Data() + start, length};
  }
  std::optional<ByteView> Variable(unsigned index) const {
    if (index >= variableCount_)
      return std::nullopt;
    const std::size_t start = VariableOffset(index);
    const std::size_t end = VariableOffset(index + 1);
    if (start < RowHeadSize(format_) || start > end || end > valuesEnd_)
      ThrowOverlap();
    return ByteView(bytes_.Data() + start, end - start);
  }
  std::size_t VariableOffset(unsigned index) const {
    return IsJet3() ? VariableOffsetJet3(index) : bytes_.U16(offsets_ - 2 * std::size_t{index});
  }
  std::size_t VariableOffsetJet3(unsigned index) const;
  bool IsJet3() const { return format_ == Format::kJet3; }
  void OutlineJet3(std::size_t maskStart);
  void OutlineJet4(std::size_t maskStart) {
    if (maskStart < 6)
      ThrowBroken();
    variableCount_ = bytes_.U16(maskStart - 2);
    const std::size_t tableSize = 2 * (std::size_t{variableCount_} + 1) + 2;
    if (maskStart < 2 + tableSize)
      ThrowBroken();
    offsets_ = maskStart - 4;
    valuesEnd_ = VariableOffset(variableCount_);
    if (valuesEnd_ < 2 || valuesEnd_ > maskStart - tableSize)
      ThrowBroken();
  }
  // All throw Damage.
  [[noreturn]] static void ThrowBroken();
  [[noreturn]] static void ThrowTooShort();
  [[noreturn]] static void ThrowOverlap();

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
