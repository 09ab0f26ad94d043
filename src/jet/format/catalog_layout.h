// The catalog, a table that lists all objects of a file, and the other system tables.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zerbal::jet {

// The system tables; their definitions are on the pages from kCatalogPage on.
inline constexpr std::array<std::string_view, 4> kSystemTableNames = {"MSysObjects", "MSysACEs",
                                                                      "MSysQueries", "MSysRelationships"};
inline constexpr std::string_view kCatalogName = kSystemTableNames[0];
inline constexpr std::uint32_t kCatalogPage = 2;

// Columns of the catalog.
inline constexpr std::string_view kObjectId = "Id";      ///< Long; low three bytes: a table's definition page
inline constexpr std::string_view kObjectName = "Name";  ///< Text
inline constexpr std::string_view kObjectType = "Type";  ///< Integer
inline constexpr std::string_view kObjectFlags = "Flags";  ///< Long

inline constexpr std::int16_t kTableObject = 1;  ///< among the object types: a table of this file
// Object flags. A table with one of them belongs to the engine.
inline constexpr std::uint32_t kSystemObject = 0x80000000;
inline constexpr std::uint32_t kHiddenSystemObject = 0x00000002;

}  // namespace zerbal::jet
