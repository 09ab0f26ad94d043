// The airline's tables and the reference tables as database files.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "jet/value.h"
#include "zerbal-pack/airline.h"

namespace zerbal::pack {

/// Takes one row: a value for each column of the layout.
using RowSink = std::function<void(const std::vector<jet::Value>&)>;

/// Each writes one whole database file. Throws jet::EngineError.
void WriteSchedule(const std::filesystem::path& file, const Schedule& schedule);
/// The same with flights that are not kept as a table: `flights` gives all of them to its argument.
void WriteSchedule(const std::filesystem::path& file, const CsvTable& services, const CsvTable& destinations,
                   const std::function<void(const RowSink&)>& flights);
void WriteProgramData(const std::filesystem::path& file, const ProgramData& data);
void WriteAirports(const std::filesystem::path& file, const CsvTable& airports);

}  // namespace zerbal::pack
