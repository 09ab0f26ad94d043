// The columns and indexes of a database's tables as a CSV file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "jet/database.h"
#include "jet/schema.h"

namespace zerbal::pack {

inline constexpr const char* kSchemaFile = "schema.csv";

/// Writes one record per column and index of `tables`, except tables that cannot be read.
void WriteSchemaCsv(const jet::Database& database, const std::vector<std::string>& tables,
                    const std::filesystem::path& file);

/// "Text(255)", "Long" and so on.
std::string TypeText(const jet::ColumnInfo& column);

}  // namespace zerbal::pack
