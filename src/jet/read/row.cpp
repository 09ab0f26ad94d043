#include "jet/read/row.h"

#include <algorithm>

namespace zerbal::jet {
namespace {

[[noreturn]] void ThrowBroken() {
  throw Damage("a row is damaged");
}

}  // namespace

Row::Row(ByteView bytes, Format format, bool hasVariableColumns) : bytes_(bytes), format_(format) {
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

void Row::OutlineJet4(std::size_t maskStart) {
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

void Row::OutlineJet3(std::size_t maskStart) {
  const std::size_t jumpCount = (bytes_.Size() - 1) / 256;
  if (maskStart < 1 + 1 + jumpCount + 1)
    ThrowBroken();
  variableCount_ = bytes_.U8(maskStart - 1);
  jumpEnd_ = maskStart - 1;
  offsets_ = jumpEnd_ - jumpCount - 1;
  // One byte of offset per part, and one for the end of the data, between the number of columns and here.
  if (offsets_ < 1 + std::size_t{variableCount_})
    ThrowBroken();
  valuesEnd_ = offsets_ - variableCount_;
  jumps_ = static_cast<unsigned>(std::min(jumpCount, valuesEnd_ / 256));
  if (VariableOffset(variableCount_) != valuesEnd_)
    ThrowBroken();
}

std::size_t Row::VariableOffset(unsigned index) const {
  if (!IsJet3())
    return bytes_.U16(offsets_ - 2 * std::size_t{index});
  // Offsets have eight bits. Each jump names the first part from which on offsets are 256 more.
  unsigned passed = 0;
  for (unsigned part = 0; passed < jumps_ && part <= index; ++part) {
    while (passed < jumps_ && bytes_.U8(jumpEnd_ - 1 - passed) == part)
      ++passed;
  }
  return bytes_.U8(offsets_ - index) + std::size_t{256} * passed;
}

void Row::ThrowTooShort() {
  throw Damage("a row is too short for a value in its fixed part");
}

std::optional<ByteView> Row::Variable(unsigned index) const {
  if (index >= variableCount_)
    return std::nullopt;
  const std::size_t start = VariableOffset(index);
  const std::size_t end = VariableOffset(index + 1);
  if (start < RowHeadSize(format_) || start > end || end > valuesEnd_)
    throw Damage("the values of a row overlap");
  return bytes_.Sub(start, end - start);
}

}  // namespace zerbal::jet
