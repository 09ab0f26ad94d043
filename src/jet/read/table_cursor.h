// A table, a position in it and the row there: the implementation of Recordset and Field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/assert.h"
#include "jet/format/bytes.h"
#include "jet/read/database_state.h"
#include "jet/read/file_pages.h"
#include "jet/read/index_cursor.h"
#include "jet/read/row.h"
#include "jet/read/row_walk.h"
#include "jet/read/seek_key.h"
#include "jet/read/sorted_rows.h"
#include "jet/read/table_definition.h"
#include "jet/schema.h"

namespace zerbal::jet {

struct SingleBox;

class TableCursor {
 public:
  TableCursor(std::shared_ptr<const DatabaseState> database, std::shared_ptr<const TableDefinition> table);

  const TableDefinition& Table() const { return *table_; }
  const std::shared_ptr<const TableDefinition>& SharedTable() const { return table_; }
  const std::shared_ptr<const DatabaseState>& SharedDatabase() const { return database_; }
  const FilePages& Pages() const { return database_->pages; }

  void SetIndex(std::string_view name);
  void Seek(std::string_view key);
  bool NoMatch() const { return noMatch_; }
  bool IndexDamaged() const { return sorted_ != nullptr; }
  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  void MoveFirstWithin(const SingleBox& box);
  void MoveNextWithin(const SingleBox& box);
  bool Eof() const { return state_ == State::kAfterLast || state_ == State::kNowhere; }
  bool Bof() const { return state_ == State::kBeforeFirst || state_ == State::kNowhere; }
  bool OnRow() const { return state_ == State::kOnRow; }

  std::optional<int> FindField(std::string_view name) const;

  // The value of a column in the current row.
  bool Has(int column) const { return row_.Has(Place(column).number); }
  std::optional<ByteView> Value(int column) const { return row_.Value(Column(column), Place(column)); }
  const ColumnInfo& Column(int column) const { return table_->columns[Checked(column)]; }
  bool IsNull(int column) const;
  /// Appends the value as UTF-8 text; nothing for Null. Throws Damage.
  void AppendText(int column, std::string& out) const;
  bool StoredTextIs(int column, std::string_view text) const;

  /// DatabaseState::Guarded for this table.
  template <class Work>
  auto Guarded(Work&& work) const {
    return database_->Guarded(table_->name, work);
  }

  [[noreturn]] void Fail(std::string reason) const;

 private:
  enum class State { kBeforeFirst, kOnRow, kAfterLast, kNowhere };

  std::size_t Checked(int column) const {
    ZERBAL_ASSERT(column >= 0 && static_cast<std::size_t>(column) < table_->columns.size());
    return static_cast<std::size_t>(column);
  }
  const ColumnPlace& Place(int column) const { return table_->places[Checked(column)]; }
  bool ByIndex() const { return tree_ != nullptr; }
  template <class Step>
  bool InOrder(Step&& step);
  void SortRows();
  bool FindRow();
  bool Settle(bool found, bool forward);
  bool StepFirst();
  bool StepNext();
  bool StepPrevious();
  bool Stay(bool forward);
  ByteView RowBytes() const;
  void LoadRow();
  std::string LoadText(int column);
  void Arrive(bool found, State otherwise);
  void PassOver(const SingleBox& box);
  bool IsFixedSingle(int column) const;
  bool SeekByKey(std::string_view key);
  bool SeekByText(std::string_view key);
  std::unique_ptr<TextLookup> MakeLookup(int column);

  std::shared_ptr<const DatabaseState> database_;
  std::shared_ptr<const TableDefinition> table_;
  State state_ = State::kNowhere;
  bool noMatch_ = false;
  Row row_;

  RowWalk walk_;                         ///< the position in stored order
  const PhysicalIndex* tree_ = nullptr;  ///< the selected index; null = stored order
  IndexCursor index_;                    ///< the position in its order
  std::unique_ptr<SortedRows> sorted_;   ///< replaces index_ once the index has proved damaged
  RecordPointer pointer_;                ///< the row of the index entry
  std::uint32_t pageNumber_ = 0;         ///< of page_, which MoveFirst and Seek load anew; 0 = none
  DataPage page_;                        ///< the page of that row
  SeekKey seekKey_;
  std::unique_ptr<TextLookup> lookup_;  ///< for keys that cannot be computed; made when first needed
};

}  // namespace zerbal::jet
