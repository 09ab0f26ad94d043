// Memo and OLE values: in the row itself, in one row of another page, or in a chain of such rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "jet/format/bytes.h"
#include "jet/format/long_value_layout.h"
#include "jet/read/file_pages.h"

namespace zerbal::jet {

/// The value of a memo or OLE column. `stored` is what the row holds: a descriptor, perhaps with data behind.
class LongValue {
 public:
  /// Throws Damage for an impossible descriptor or a value larger than `limit` bytes.
  LongValue(const FilePages& pages, ByteView stored, std::size_t limit);

  /// Hands the bytes to `use` where they are in the file, or, of a value in several pieces, a copy put
  /// together.
  template <class Use>
  auto With(Use&& use) const {
    if (const std::optional<ByteView> bytes = InPlace())
      return use(*bytes);
    const std::vector<std::uint8_t> copy = PutTogether();
    return use(ByteView(copy.data(), copy.size()));
  }

 private:
  std::optional<ByteView> InPlace() const;  ///< nothing for a value in several pieces
  std::vector<std::uint8_t> PutTogether() const;

  const FilePages& pages_;
  ByteView stored_;
  std::size_t length_ = 0;
  LongValueKind kind_ = LongValueKind::kInline;
};

}  // namespace zerbal::jet
