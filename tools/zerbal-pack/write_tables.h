// The airline's tables and the reference tables as database files.
#pragma once

#include <filesystem>

#include "zerbal-pack/airline.h"

namespace zerbal::pack {

/// Each writes one whole database file. Throws jet::EngineError.
void WriteSchedule(const std::filesystem::path& file, const Schedule& schedule);
void WriteProgramData(const std::filesystem::path& file, const ProgramData& data);
void WriteAirports(const std::filesystem::path& file, const CsvTable& airports);

}  // namespace zerbal::pack
