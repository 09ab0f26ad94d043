// A cursor over the rows of one table, in stored order or in the order of one of its indexes.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/error.h"
#include "jet/field.h"
#include "jet/schema.h"

namespace zerbal::jet {

class Database;
class TableCursor;  // private

/// Bounds on the values of two columns of type Single, inclusive.
struct SingleBox {
  struct Range {
    int field = 0;  ///< position in Columns()
    float from = 0;
    float to = 0;  ///< when less than `from`: all numbers but those between them

    bool Contains(float value) const {
      return from <= to ? from <= value && value <= to : from <= value || value <= to;
    }
  };
  Range first;
  Range second;
};

class Recordset {
 public:
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  const std::string& TableName() const;
  const std::vector<ColumnInfo>& Columns() const;  ///< in column-number order
  const std::vector<IndexInfo>& Indexes() const;   ///< in stored order, which is by name
  /// The number of rows that the table's definition states. Wrong after a crash of the writing program.
  std::uint32_t NotedRows() const;

  /// Selects the index that gives the order of rows and is searched by Seek, and moves to the first row; ""
  /// selects stored order. Throws EngineError when the table has no such index. Ignores letter case.
  void SetIndex(std::string_view name);

  /// Moves to the first row in index order whose first index column equals `key`: texts exactly, including
  /// letter case and trailing blanks, numbers by value. Without such a row NoMatch() and Eof() become true.
  /// Throws EngineError unless an index is selected.
  void Seek(std::string_view key);
  bool NoMatch() const;

  /// Whether the selected index has proved damaged so far. The order then comes from the sorted rows.
  bool IndexDamaged() const;

  void MoveFirst();
  void MoveNext();      ///< after the last row: Eof; stays at Eof
  void MovePrevious();  ///< before the first row: Bof; stays at Bof
  // The same as MoveFirst and MoveNext, but they pass over rows that hold two singles outside of the box.
  // Rows that hold anything else are not passed over.
  void MoveFirstWithin(const SingleBox& box);
  void MoveNextWithin(const SingleBox& box);
  bool Eof() const;
  bool Bof() const;

  /// Position of a field in Columns(). Throws EngineError when there is none. Ignores letter case.
  int FieldIndex(std::string_view name) const;
  /// The same; nullopt when there is none.
  std::optional<int> FindField(std::string_view name) const;

  /// A field of the current row. Throws EngineError at Eof or Bof and when there is no such field.
  Field operator[](std::string_view name) const;
  Field At(int fieldIndex) const;

 private:
  friend class Database;
  friend class PairReader;
  explicit Recordset(std::unique_ptr<TableCursor> cursor);
  std::unique_ptr<TableCursor> cursor_;
};

}  // namespace zerbal::jet
