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

class Recordset {
 public:
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) noexcept;
  ~Recordset();

  const std::string& TableName() const;
  const std::vector<ColumnInfo>& Columns() const;  ///< in column-number order
  const std::vector<IndexInfo>& Indexes() const;   ///< sorted by name, as stored
  /// How many rows the file says that the table has. Not always true, but fewer may mean lost ones.
  std::uint32_t NotedRows() const;

  /// Walks and seeks by this index from now on, standing on its first row; "" is stored order.
  /// Throws EngineError when the table has no index of that name (letter case does not matter).
  void SetIndex(std::string_view name);

  /// Looks for the row whose (one) index column is exactly `key`, letter case and trailing blanks included,
  /// and stands on the first such row in index order; NoMatch() tells whether there was none, and the cursor
  /// then stands on no row (Eof). A number column is matched by the number that `key` spells. Needs an index.
  void Seek(std::string_view key);
  bool NoMatch() const;

  /// Whether the chosen index has been found damaged, so far; the rows then come sorted anew.
  bool IndexDamaged() const;

  void MoveFirst();
  void MoveNext();      ///< at Eof stays there
  void MovePrevious();  ///< before the first row: Bof
  bool Eof() const;
  bool Bof() const;

  /// Position of a field by name (letter case does not matter); throws EngineError when there is none.
  int FieldIndex(std::string_view name) const;
  std::optional<int> FindField(std::string_view name) const;

  /// The field of the current row. Throws EngineError at Eof or Bof.
  Field operator[](std::string_view name) const;
  Field At(int fieldIndex) const;

 private:
  friend class Database;
  friend class PairReader;
  explicit Recordset(std::unique_ptr<TableCursor> cursor);
  std::unique_ptr<TableCursor> cursor_;
};

}  // namespace zerbal::jet
