#include "jet/writer.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "jet/error.h"
#include "jet/write/output_file.h"
#include "jet/write/refusal.h"
#include "jet/write/system_tables.h"
#include "jet/write/table_layout.h"
#include "jet/write/table_writer.h"
#include "jet/write/usage_map_writer.h"

namespace zerbal::jet {
namespace {

/// Assigns pages and usage maps to a user table.
UsageMapPages AssignPages(OutputFile& file, TableLayout& layout) {
  layout.page = file.Allocate();
  UsageMapPages maps(file, layout.MapCount());
  ReserveRowMaps(layout, maps);
  for (IndexLayout& index : layout.indexes) {
    index.rootPage = file.Allocate();
    index.map = maps.Reserve();
  }
  ReserveLongValueMaps(layout, maps);
  return maps;
}

}  // namespace

struct DatabaseWriter::State {
  std::string fileName;
  std::optional<OutputFile> file;
  std::vector<WrittenTable> catalog;
  std::optional<UsageMapPages> maps;  ///< of the current table
  std::optional<TableWriter> table;
  bool broken = false;  ///< ending a table has failed, so the file cannot be finished
  bool finished = false;

  /// Runs `step`. Turns a failure into an EngineError that names file and table, and only then calls
  /// `tableName`.
  template <class Step, class Name>
  void Guard(Step step, Name tableName) {
    try {
      step();
    } catch (const Refusal& refusal) {
      throw EngineError(fileName, tableName(), refusal.what());
    } catch (const base::FileError& error) {
      throw EngineError(fileName, tableName(), error.Reason());
    }
  }

  template <class Step>
  void Run(const std::string& tableName, Step step) {
    const auto checked = [&] {
      if (broken || finished)
        throw Refusal(finished ? "the database is finished" : "the database has failed already");
      step();
    };
    Guard(checked, [&] { return tableName; });
  }

  std::string TableName() const { return table ? table->Layout().name : std::string(); }

  TableWriter& Table() {
    if (!table)
      throw Refusal("no table has been begun");
    return *table;
  }

  void BeginTable(const TableSpec& spec) {
    if (table)
      throw Refusal("table '" + TableName() + "' has not been ended");
    TableLayout layout = LayOutTable(spec);
    if (std::ranges::any_of(catalog, [&](const auto& other) { return IsSameName(other.name, spec.name); }))
      throw Refusal("there is a table of this name already");
    maps.emplace(AssignPages(*file, layout));
    table.emplace(*file, std::move(layout));
  }

  void EndTable() {
    TableWriter& ending = Table();
    broken = true;  // until the table has ended
    ending.End(*maps);
    maps->Write();
    catalog.push_back({ending.Layout().name, ending.Layout().page});
    table.reset();
    broken = false;
  }

  void Finish() {
    if (table)
      throw Refusal("table '" + TableName() + "' has not been ended");
    broken = true;
    WriteSystemTables(*file, catalog);
    WriteGlobalMap(*file);
    WriteHeader(*file);
    file->Commit();
    finished = true;
  }
};

DatabaseWriter::DatabaseWriter(const std::filesystem::path& file) : state_(std::make_unique<State>()) {
  state_->fileName = file.string();
  state_->Run("", [&] {
    state_->file.emplace(file);
    while (state_->file->PageCount() < kSystemPages)
      state_->file->Allocate();
  });
}

DatabaseWriter::~DatabaseWriter() = default;

void DatabaseWriter::BeginTable(const TableSpec& table) {
  state_->Run(table.name, [&] { state_->BeginTable(table); });
}

void DatabaseWriter::AddRow(std::span<const Value> row) {
  state_->Run(state_->TableName(), [&] { state_->Table().AddRow(row); });
}

void DatabaseWriter::AddPair(std::int32_t first, std::int32_t second) {
  if (!state_->table || state_->broken)
    return state_->Run("", [&] { state_->Table(); });
  // Called for every point of a map: the table's name is copied only for a message.
  state_->Guard([&] { state_->table->AddPair(first, second); }, [&] { return state_->TableName(); });
}

void DatabaseWriter::EndTable() {
  state_->Run(state_->TableName(), [&] { state_->EndTable(); });
}

void DatabaseWriter::Finish() {
  state_->Run("", [&] { state_->Finish(); });
}

}  // namespace zerbal::jet
