// The airline's tables and the reference tables, read from CSV files.
#pragma once

#include <filesystem>

#include "zerbal-pack/csv_table.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct Schedule {
  CsvTable services;
  CsvTable destinations;
  CsvTable flights;
};

struct ScheduleSources {
  std::filesystem::path services;
  std::filesystem::path destinations;
  std::filesystem::path flights;
};

/// Colours, fonts and regions: the program's own data.
struct ProgramData {
  CsvTable colours;
  CsvTable fonts;
  CsvTable regions;
};

/// Each reads its files and reports every fault in them, including those that concern several files. The
/// result is valid only when nothing was reported.
Schedule ReadSchedule(const ScheduleSources& sources, Problems& problems);
ProgramData ReadProgramData(const std::filesystem::path& folder, Problems& problems);
CsvTable ReadAirports(const std::filesystem::path& file, Problems& problems);

/// Rules that concern several rows or tables. The readers above call these.
void CheckSchedule(const Schedule& schedule, Problems& problems);
void CheckProgramData(const ProgramData& program, Problems& problems);

}  // namespace zerbal::pack
