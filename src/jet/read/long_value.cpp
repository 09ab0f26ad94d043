#include "jet/read/long_value.h"

#include <algorithm>

#include "jet/read/data_page.h"

namespace zerbal::jet {
namespace {

[[noreturn]] void ThrowShort() {
  throw Damage("a long value ends before its stated length");
}

}  // namespace

LongValue::LongValue(const FilePages& pages, ByteView stored, std::size_t limit)
    : pages_(pages), stored_(stored) {
  if (stored.Empty()) {
    return;
  }
  if (stored.Size() < kDescriptorSize)
    throw Damage("the descriptor of a long value is too short");
  const std::uint32_t word = stored.U32(0);
  length_ = word & kMaxLongValue;
  if (length_ != 0)
    kind_ = static_cast<LongValueKind>(word >> kLongValueKindShift);
  if (kind_ > LongValueKind::kInline)
    throw Damage("a long value is stored in an unknown way");
  if (length_ > limit)
    throw Damage("a long value is larger than allowed");
  if (length_ > pages.FileSize())
    throw Damage("a long value is larger than the file");
}

std::optional<ByteView> LongValue::InPlace() const {
  if (length_ == 0)
    return ByteView();
  if (kind_ == LongValueKind::kChain)
    return std::nullopt;
  const ByteView bytes = kind_ == LongValueKind::kInline
                             ? stored_.From(kDescriptorSize)
                             : RowAt(pages_, RecordPointer::FromU32(stored_.U32(kDescriptorPointerAt)));
  if (bytes.Size() < length_)
    ThrowShort();
  return bytes.Sub(0, length_);
}

std::vector<std::uint8_t> LongValue::Joined() const {
  std::vector<std::uint8_t> value;
  // Finds circles: compares every pointer with one before it, which is replaced at each power of two.
  std::uint32_t pointer = stored_.U32(kDescriptorPointerAt);
  std::uint32_t landmark = 0;
  for (std::size_t pieces = 1; value.size() < length_; ++pieces) {
    if (pointer == 0)
      ThrowShort();
    if (pointer == landmark)
      throw Damage("the pieces of a long value form a circle");
    if ((pieces & (pieces - 1)) == 0)
      landmark = pointer;
    const ByteView piece = RowAt(pages_, RecordPointer::FromU32(pointer));
    pointer = piece.U32(0);
    const std::size_t wanted = std::min(length_ - value.size(), piece.Size() - kChainPointerSize);
    const std::uint8_t* const first = piece.Data() + kChainPointerSize;
    value.insert(value.end(), first, first + wanted);
  }
  return value;
}

}  // namespace zerbal::jet
