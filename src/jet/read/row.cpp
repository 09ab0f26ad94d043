#include "jet/read/row.h"

#include <algorithm>

namespace zerbal::jet {

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

std::size_t Row::VariableOffsetJet3(unsigned index) const {
  // Offsets have eight bits. Each jump names the first part from which on offsets are 256 more.
  unsigned passed = 0;
  for (unsigned part = 0; passed < jumps_ && part <= index; ++part) {
    while (passed < jumps_ && bytes_.U8(jumpEnd_ - 1 - passed) == part)
      ++passed;
  }
  return bytes_.U8(offsets_ - index) + std::size_t{256} * passed;
}

void Row::ThrowBroken() {
  throw Damage("a row is damaged");
}

void Row::ThrowTooShort() {
  throw Damage("a row is too short for a value in its fixed part");
}

void Row::ThrowOverlap() {
  throw Damage("the values of a row overlap");
}

}  // namespace zerbal::jet
