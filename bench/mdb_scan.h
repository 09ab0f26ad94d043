// Reads tables with libmdb, for comparison with our own reader.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace zerbal::bench {

/// A database that stays open between scans, like ours.
class MdbScan {
 public:
  explicit MdbScan(const std::filesystem::path& file);
  ~MdbScan();
  MdbScan(const MdbScan&) = delete;
  MdbScan& operator=(const MdbScan&) = delete;

  /// Fetches these columns of every row; returns the number of rows, 0 when there is no such table.
  std::size_t Scan(const std::string& table, const std::vector<std::string>& columns);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::bench
