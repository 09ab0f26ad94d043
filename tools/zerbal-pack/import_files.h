// Writes what an import makes: three CSV files, the list of what was left out, and a database.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/import_options.h"
#include "zerbal-pack/imported_schedule.h"
#include "zerbal-pack/left_out.h"

namespace zerbal::pack {

inline constexpr const char* kRejectedFile = "rejected.csv";

/// The records of one input file that are left out.
struct LeftOutFile {
  std::filesystem::path file;
  std::vector<LeftOut> records;  ///< in the order of lines
};

struct ImportResult {
  const ImportedSchedule& schedule;
  const AirportTable& airports;
  const std::vector<LeftOutFile>& leftOut;
};

/// The airports of the flights, ordered by their codes.
std::vector<AirportIndex> UsedAirports(const ImportResult& result, AirportCodes codes);

/// All files appear when all of them are complete. The list of what was left out is written, or removed when
/// nothing was. Throws base::Error.
void WriteImport(const ImportResult& result, const ImportOptions& options);

}  // namespace zerbal::pack
