// A place in the stored order of a table: ascending pages, on each page ascending rows.
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
  /// On no row.
  RowWalk(const FilePages& pages, const TableDefinition& table);

  // Each says whether there is such a row; when there is none the walk stays where it is.
  bool MoveFirst();
  bool MoveNext();
  bool MovePrevious();

  /// The place that an index names; nothing for a row whose number is too large for that.
  std::optional<RecordPointer> Here() const {
    if (row_ > 0xFF)
      return std::nullopt;
    return RecordPointer{number_, static_cast<std::uint8_t>(row_)};
  }
  /// The bytes of the row that the walk is on, wherever it has moved.
  ByteView RowBytes() const {
    ZERBAL_ASSERT(row_ < page_.RowCount());
    return FollowRow(*pages_, page_, row_, owner_);
  }

 private:
  bool Find(std::uint32_t number, bool forward);
  bool IsVisible(unsigned row) const { return (page_.Flags(row) & kRowHidden) == 0; }

  const FilePages* pages_ = nullptr;
  std::uint32_t owner_ = 0;
  UsageMap owned_;
  std::uint32_t number_ = 0;  ///< of the current page
  DataPage page_;
  unsigned row_ = 0;
};

/// A data page of the table `owner`; nothing when the page is none, be it freed or somebody else's.
std::optional<DataPage> TablePage(const FilePages& pages, std::uint32_t number, std::uint32_t owner);

}  // namespace zerbal::jet
