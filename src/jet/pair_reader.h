// Reads two whole-number columns of a table in batches: the points of the map files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace zerbal::jet {

class Recordset;

struct LongPair {
  std::int32_t first = 0;
  std::int32_t second = 0;
};

/// Reads two columns of every row of a table in stored order. Long columns in the fixed part of the row are
/// decoded in place, without allocation; other columns are converted as Field::AsLong does.
class PairReader {
 public:
  /// Throws EngineError when a column is missing.
  PairReader(const Recordset& table, std::string_view firstColumn, std::string_view secondColumn);
  PairReader(PairReader&&) noexcept;
  ~PairReader();

  /// Fills `out` from its beginning and returns the number of rows; 0 at the end of the table.
  /// Throws EngineError at a row that is damaged or cannot be converted, after the rows before it were
  /// returned.
  std::size_t Read(std::span<LongPair> out);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::jet
