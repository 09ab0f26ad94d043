#include "zerbal-pack/write_tables.h"

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "jet/writer.h"

namespace zerbal::pack {

namespace {

void WriteTable(jet::DatabaseWriter& writer, const CsvTable& table) {
  writer.BeginTable(table.layout->Spec());
  std::vector<jet::Value> values;
  for (const CsvRow& row : table.rows) {
    values.clear();
    for (std::size_t i = 0; i < row.values.size(); ++i) {
      if (table.layout->columns[i].stored)
        values.push_back(row.values[i]);
    }
    writer.AddRow(values);
  }
  writer.EndTable();
}

void WriteTables(const std::filesystem::path& file, std::initializer_list<const CsvTable*> tables) {
  jet::DatabaseWriter writer(file);
  for (const CsvTable* table : tables)
    WriteTable(writer, *table);
  writer.Finish();
}

}  // namespace

void WriteSchedule(const std::filesystem::path& file, const Schedule& schedule) {
  WriteTables(file, {&schedule.services, &schedule.destinations, &schedule.flights});
}

void WriteSchedule(const std::filesystem::path& file, const CsvTable& services, const CsvTable& destinations,
                   const std::function<void(const RowSink&)>& flights) {
  jet::DatabaseWriter writer(file);
  WriteTable(writer, services);
  WriteTable(writer, destinations);
  writer.BeginTable(FlightLayout().Spec());
  flights([&](const std::vector<jet::Value>& row) { writer.AddRow(row); });
  writer.EndTable();
  writer.Finish();
}

void WriteProgramData(const std::filesystem::path& file, const ProgramData& data) {
  WriteTables(file, {&data.colours, &data.fonts, &data.regions});
}

void WriteAirports(const std::filesystem::path& file, const CsvTable& airports) {
  WriteTables(file, {&airports});
}

}  // namespace zerbal::pack
