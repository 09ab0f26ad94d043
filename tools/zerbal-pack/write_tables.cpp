#include "zerbal-pack/write_tables.h"

#include <initializer_list>

#include "jet/writer.h"

namespace zerbal::pack {

namespace {

void WriteTable(jet::DatabaseWriter& writer, const CsvTable& table) {
  writer.BeginTable(table.layout->Spec());
  for (const CsvRow& row : table.rows)
    writer.AddRow(row.values);
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

void WriteProgramData(const std::filesystem::path& file, const ProgramData& data) {
  WriteTables(file, {&data.colours, &data.fonts, &data.regions});
}

void WriteAirports(const std::filesystem::path& file, const CsvTable& airports) {
  WriteTables(file, {&airports});
}

}  // namespace zerbal::pack
