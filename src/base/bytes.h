// Little-endian numbers in bytes of any alignment.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zerbal::base {

/// One load instruction on most machines; compilers do not always find it in a sum of bytes.
template <class Number>
Number LoadLittleEndian(const std::uint8_t* at) {
  Number value = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&value, at, sizeof value);
  } else {
    for (std::size_t i = 0; i < sizeof value; ++i)
      value = static_cast<Number>(value | static_cast<Number>(Number{at[i]} << 8 * i));
  }
  return value;
}

inline std::uint16_t LoadU16(const std::uint8_t* at) {
  return LoadLittleEndian<std::uint16_t>(at);
}
inline std::uint32_t LoadU32(const std::uint8_t* at) {
  return LoadLittleEndian<std::uint32_t>(at);
}
inline std::uint64_t LoadU64(const std::uint8_t* at) {
  return LoadLittleEndian<std::uint64_t>(at);
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
