// Reading memo and OLE values.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// The value of a memo or OLE column. `stored` is its part of the row: the descriptor and inline data.
class LongValue {
 public:
  /// Throws Damage when the descriptor is invalid or the value larger than `limit` bytes.
  LongValue(const FilePages& pages, ByteView stored, std::size_t limit);

  /// Calls `use` with the bytes: in place, or with a copy when the value has several pieces. Throws Damage.
  template <class Use>
  auto With(Use&& use) const {
    if (const std::optional<ByteView> bytes = InPlace())
      return use(*bytes);
    const std::vector<std::uint8_t> copy = Joined();
    return use(ByteView(copy.data(), copy.size()));
  }

 private:
  std::optional<ByteView> InPlace() const;  ///< nullopt when the value has several pieces
  std::vector<std::uint8_t> Joined() const;

  const FilePages& pages_;
  ByteView stored_;
  std::size_t length_ = 0;
  LongValueKind kind_ = LongValueKind::kInline;
};

}  // namespace zerbal::jet
