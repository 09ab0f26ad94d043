// Writing what every database has: the header and the four system tables.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/write/output_file.h"

namespace zerbal::jet {

inline constexpr std::uint32_t kSystemPages = 16;  ///< reserved for header and system tables

struct WrittenTable {
  std::string name;
  std::uint32_t page = 0;  ///< of the table's definition
};

/// Writes the system tables, with `tables` in the catalog. The first kSystemPages pages are allocated.
void WriteSystemTables(OutputFile& file, const std::vector<WrittenTable>& tables);

void WriteHeader(OutputFile& file);

}  // namespace zerbal::jet
