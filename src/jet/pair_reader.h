// The fast way through a table of points: two whole-number columns in stored order.
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

/// Reads two columns of every row of a table, in stored order, in batches. Where both are 32-bit columns in
/// the fixed part of the row (what the map files hold) rows are decoded in place, at memory speed and with no
/// allocation; other column types are converted as Field::AsLong does.
class PairReader {
 public:
  /// Throws EngineError when a column is missing.
  PairReader(const Recordset& table, std::string_view firstColumn, std::string_view secondColumn);
  PairReader(PairReader&&) noexcept;
  ~PairReader();

  /// Fills `out` from its beginning and returns the number of rows; 0 at the end of the table.
  /// A row that is damaged or cannot be converted throws once every row before it has been delivered.
  std::size_t Read(std::span<LongPair> out);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::jet
