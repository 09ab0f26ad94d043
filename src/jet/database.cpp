#include "jet/database.h"

#include <utility>

#include "jet/error.h"
#include "jet/read/database_state.h"
#include "jet/read/file_image.h"
#include "jet/read/table_cursor.h"
#include "jet/read/table_definition.h"
#include "jet/recordset.h"

namespace zerbal::jet {

void DatabaseState::ThrowShrunk(const std::string& table) const {
  throw EngineError(fileName, table, "the file became shorter while it was open");
}

Database::Database(std::shared_ptr<const DatabaseState> state) : state_(std::move(state)) {}

Database Database::Open(const std::filesystem::path& file, const OpenOptions& options) {
  try {
    return FromImage(MapFile(file), file.string(), options);
  } catch (const Damage& damage) {
    throw EngineError(file.string(), "", damage.what());
  }
}

Database Database::FromBytes(std::vector<std::uint8_t> bytes, const std::string& name,
                             const OpenOptions& options) {
  return FromImage(ImageOf(std::move(bytes)), name, options);
}

Database Database::FromImage(FileImage image, const std::string& name, const OpenOptions& options) {
  std::shared_ptr<DatabaseState> state;
  try {
    state = std::make_shared<DatabaseState>(name, std::move(image), options);
  } catch (const Damage& damage) {
    throw EngineError(name, "", damage.what());
  }
  state->catalog = ReadCatalog(state);
  return Database(std::move(state));
}

std::vector<std::string> Database::TableNames() const {
  std::vector<std::string> names;
  for (const CatalogEntry& entry : state_->catalog) {
    if (!entry.system)
      names.push_back(entry.name);
  }
  return names;
}

bool Database::HasTable(std::string_view name) const {
  return FindTable(*state_, name) != nullptr;
}

Recordset Database::OpenTable(std::string_view name) const {
  const CatalogEntry* entry = FindTable(*state_, name);
  if (entry == nullptr)
    throw EngineError(state_->fileName, std::string(name), "there is no such table");
  auto definition = state_->Guarded(entry->name, [&] {
    return std::make_shared<const TableDefinition>(
        ReadTableDefinition(state_->pages, entry->definitionPage, entry->name));
  });
  return Recordset(std::make_unique<TableCursor>(state_, std::move(definition)));
}

}  // namespace zerbal::jet
