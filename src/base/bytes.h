// Little-endian numbers in bytes of any alignment.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zerbal::base {

inline std::uint16_t LoadU16(const std::uint8_t* at) {
  return static_cast<std::uint16_t>(at[0] | at[1] << 8);
}
inline std::uint32_t LoadU32(const std::uint8_t* at) {
  return std::uint32_t{at[0]} | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16 |
         std::uint32_t{at[3]} << 24;
}
inline std::uint64_t LoadU64(const std::uint8_t* at) {
  return LoadU32(at) | static_cast<std::uint64_t>(LoadU32(at + 4)) << 32;
}

/// Stores the lowest `size` bytes of `value`.
template <class Byte>
void StoreLittleEndian(Byte* at, std::size_t size, std::uint64_t value) {
  for (std::size_t i = 0; i < size; ++i)
    at[i] = static_cast<Byte>(value >> 8 * i & 0xFF);
}

/// Appends the lowest `size` bytes of `value` to a string or a vector of bytes.
template <class Bytes>
void AppendLittleEndian(Bytes& out, std::size_t size, std::uint64_t value) {
  for (std::size_t i = 0; i < size; ++i)
    out.push_back(static_cast<typename Bytes::value_type>(value >> 8 * i & 0xFF));
}

}  // namespace zerbal::base
