// A position in the stored order of a table: by page, then by row, both ascending.
#pragma once

#include <cstdint>
#include <optional>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/read/data_page.h"
#include "jet/read/file_pages.h"
#include "jet/read/table_definition.h"
#include "jet/read/usage_map.h"

namespace zerbal::jet {

class RowWalk {
 public:
  RowWalk() = default;
  /// Not on a row.
  RowWalk(const FilePages& pages, const TableDefinition& table);

  // Each returns whether there is such a row; otherwise the walk stays where it is. All throw Damage.
  bool MoveFirst() { return Find(owned_.Next(0), true); }
  bool MoveNext() { return Step(true); }
  bool MovePrevious() { return Step(false); }

  /// The pointer to the row; nullopt when the row's number does not fit a pointer.
  std::optional<RecordPointer> Here() const {
    if (row_ > 0xFF)
      return std::nullopt;
    return RecordPointer{number_, static_cast<std::uint8_t>(row_)};
  }
  /// The bytes of the row that the walk is on, also when the row has moved.
  ByteView RowBytes() const {
    ZERBAL_ASSERT(row_ < page_.RowCount());
    return FollowRow(*pages_, page_, row_, owner_);
  }
  /// Whether the row lies on its page; otherwise RowBytes throws.
  bool RowIsOnPage() const { return page_.Holds(row_); }

 private:
  bool Find(std::uint32_t number, bool forward);
  bool Step(bool forward);
  bool IsVisible(unsigned row) const { return (page_.Flags(row) & kRowHidden) == 0; }

  const FilePages* pages_ = nullptr;
  std::uint32_t owner_ = 0;
  UsageMap owned_;
  std::uint32_t number_ = 0;  ///< of the current page
  DataPage page_;
  unsigned row_ = 0;
};

/// A data page of the table `owner`; nullopt when the page has another kind or owner. Throws Damage.
std::optional<DataPage> TablePage(const FilePages& pages, std::uint32_t number, std::uint32_t owner);

}  // namespace zerbal::jet
