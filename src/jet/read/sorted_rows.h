// The rows of a table in the order of an index, made from the rows themselves: for an index that is damaged.
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

/// Moves like an IndexCursor. Holds the keys of all rows in memory; texts whose keys are not known stand
/// behind the others.
class SortedRows {
 public:
  using Place = IndexCursor::Place;

  /// On no row. Throws Damage when the table's pages cannot be read; a damaged row counts as one of Nulls,
  /// for whoever arrives there to find out.
  SortedRows(const DatabaseState& database, const TableDefinition& table, const PhysicalIndex& tree);

  // Each says whether there is such a row; when there is none the place stays.
  bool MoveFirst() { return StandOn(0); }
  bool MoveNext() { return StandOn(at_ + 1); }
  bool MovePrevious() { return at_ > 0 && StandOn(at_ - 1); }
  /// The first row whose key is not below `key`.
  bool MoveTo(std::span<const std::uint8_t> key);
  /// Stands on a row of the table; where it is not among them, on the last.
  void StandOnRow(RecordPointer row);

  bool StartsWith(std::span<const std::uint8_t> key) const;
  RecordPointer Row() const { return RowOf(at_); }  ///< no row's pointer while there are none

  Place Here() const { return {1, static_cast<std::uint32_t>(at_)}; }
  void GoTo(const Place& place) { at_ = place.entry; }

 private:
  bool StandOn(std::size_t at);
  RecordPointer RowOf(std::size_t at) const;

  IndexKeys keys_;
  std::size_t at_ = 0;
};

}  // namespace zerbal::jet
