// What every database has: header and the engine's own four tables.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/write/output_file.h"

namespace zerbal::jet {

/// Pages with fixed places.
inline constexpr std::uint32_t kSystemPages = 16;  ///< the first page for users' tables

struct WrittenTable {
  std::string name;
  std::uint32_t page = 0;  ///< of the table's definition
};

/// Writes the four system tables with the catalog of `tables`. The system pages have been allocated.
void WriteSystemTables(OutputFile& file, const std::vector<WrittenTable>& tables);

void WriteHeader(OutputFile& file);

}  // namespace zerbal::jet
