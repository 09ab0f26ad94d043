// Memo and OLE values. The row holds a descriptor: length and kind in 32 bits, a record pointer, 32 zero
// bits.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zerbal::jet {

/// The two highest bits of the descriptor's first number.
enum class LongValueKind : std::uint8_t {
  kChain = 0,   ///< in rows of other pages; each begins with the record pointer of the next, 0 in the last
  kRow = 1,     ///< in one row of another page
  kInline = 2,  ///< in the row itself, after the descriptor
};
inline constexpr unsigned kLongValueKindShift = 30;
inline constexpr std::uint32_t kMaxLongValue = 0x3FFFFFFF;  ///< bytes; the bits of the length

inline constexpr std::size_t kDescriptorSize = 12;      ///< bytes
inline constexpr std::size_t kDescriptorPointerAt = 4;  ///< the first, or only, piece; 0 for inline values
inline constexpr std::size_t kChainPointerSize = 4;     ///< bytes at the beginning of each piece of a chain

}  // namespace zerbal::jet
