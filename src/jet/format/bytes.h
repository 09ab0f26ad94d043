// Reading the bytes of a file. Offsets that come from a file are checked by ByteView.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "base/error.h"

namespace zerbal::jet {

/// What is wrong in a file. Thrown inside the reader; DatabaseState::Guarded turns it into an EngineError
/// that names file and table.
class Damage : public base::Error {
 public:
  using base::Error::Error;
};

[[noreturn]] void ThrowOutside();  ///< throws Damage: an offset points outside its page or row

using base::AppendLittleEndian;
using base::LoadU16;
using base::LoadU32;
using base::LoadU64;
using base::StoreLittleEndian;

/// Index entries hold big-endian numbers.
inline std::uint32_t LoadU32Be(const std::uint8_t* at) {
  return std::uint32_t{at[0]} << 24 | std::uint32_t{at[1]} << 16 | std::uint32_t{at[2]} << 8 |
         std::uint32_t{at[3]};
}

/// Asks the processor to load what is `distance` bytes after `at`, in the file or not. For reading page after
/// page: rows fill a page from its end, so processors do not expect the step to the next one.
inline void Prefetch(const std::uint8_t* at, std::size_t distance) {
  // A pointer must not leave its file, an address may. NOLINTNEXTLINE(performance-no-int-to-ptr)
  __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(at) + distance));
}

inline std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// A view of bytes. Reading outside of it throws Damage.
class ByteView {
 public:
  ByteView() = default;
  ByteView(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  const std::uint8_t* Data() const { return data_; }
  std::size_t Size() const { return size_; }
  bool Empty() const { return size_ == 0; }

  std::uint8_t U8(std::size_t at) const { return *Checked(at, 1); }
  std::uint16_t U16(std::size_t at) const { return LoadU16(Checked(at, 2)); }
  std::uint32_t U32(std::size_t at) const { return LoadU32(Checked(at, 4)); }
  std::uint64_t U64(std::size_t at) const { return LoadU64(Checked(at, 8)); }

  ByteView Sub(std::size_t at, std::size_t size) const { return {Checked(at, size), size}; }
  ByteView From(std::size_t at) const {
    const std::uint8_t* start = Checked(at, 0);
    return {start, size_ - at};
  }
  std::string_view Chars() const { return {reinterpret_cast<const char*>(data_), size_}; }

 private:
  const std::uint8_t* Checked(std::size_t at, std::size_t size) const {
    if (at > size_ || size > size_ - at)
      ThrowOutside();
    return data_ + at;
  }

  const std::uint8_t* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace zerbal::jet
