// The rows of a table sorted in the order of an index: replaces a damaged index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "jet/format/index_keys.h"
#include "jet/read/data_page.h"
#include "jet/read/database_state.h"
#include "jet/read/index_cursor.h"
#include "jet/read/table_definition.h"

namespace zerbal::jet {

/// Moves like an IndexCursor. Holds the keys of all rows in memory. Texts whose keys are not known come last.
class SortedRows {
 public:
  using Place = IndexCursor::Place;

  /// Not on a row. Throws Damage when a page of the table cannot be read. A damaged row is sorted as if all
  /// its values were Null.
  SortedRows(const DatabaseState& database, const TableDefinition& table, const PhysicalIndex& tree);

  // Each returns whether there is such a row; otherwise the position does not change.
  bool MoveFirst() { return StandOn(0); }
  bool MoveNext() { return StandOn(at_ + 1); }
  bool MovePrevious() { return at_ > 0 && StandOn(at_ - 1); }
  /// To the first row whose key is not less than `key`.
  bool MoveTo(std::span<const std::uint8_t> key);
  /// To a row of the table; to the last row when it is not among them.
  void StandOnRow(RecordPointer row);

  bool StartsWith(std::span<const std::uint8_t> key) const;
  RecordPointer Row() const { return RowOf(at_); }  ///< a null pointer while there are no rows

  Place Here() const { return {1, static_cast<std::uint32_t>(at_)}; }
  void GoTo(const Place& place) { at_ = place.entry; }

 private:
  bool StandOn(std::size_t at);
  RecordPointer RowOf(std::size_t at) const;

  IndexKeys keys_;
  std::size_t at_ = 0;
};

}  // namespace zerbal::jet
