// The catalog: the table that lists all tables of a file.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "jet/read/database_state.h"

namespace zerbal::jet {

/// Reads the names and definition pages of all tables, in stored order. Throws EngineError.
std::vector<CatalogEntry> ReadCatalog(const std::shared_ptr<const DatabaseState>& database);

/// The entry with that name, ignoring letter case; null when there is none.
const CatalogEntry* FindTable(const DatabaseState& database, std::string_view name);

}  // namespace zerbal::jet
