// Memo and OLE values: in the row itself, in one row of another page, or in a chain of such rows.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "jet/bytes.h"
#include "jet/file_pages.h"

namespace zerbal::jet {

/// The value of a memo or OLE column. `stored` is what the row holds: a descriptor, perhaps with data behind.
class LongValue {
 public:
  /// Throws Damage for an impossible descriptor or a value larger than `limit` bytes.
  LongValue(const FilePages& pages, ByteView stored, std::size_t limit);

  /// The bytes where they are in the file; nothing for a value in several pieces.
  std::optional<ByteView> InPlace() const;
  /// A copy of the bytes, pieces put together.
  std::vector<std::uint8_t> Copy() const;

 private:
  const FilePages& pages_;
  ByteView stored_;
  std::size_t length_ = 0;
  unsigned kind_ = 0;
};

}  // namespace zerbal::jet
