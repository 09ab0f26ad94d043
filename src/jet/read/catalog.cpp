#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "base/case_folding.h"
#include "jet/error.h"
#include "jet/format/page_layout.h"
#include "jet/read/database_state.h"
#include "jet/read/field_value.h"
#include "jet/read/table_cursor.h"
#include "jet/read/table_definition.h"
#include "jet/schema.h"

namespace zerbal::jet {
namespace {

constexpr std::uint32_t kSystemFlags = kSystemObject | kHiddenSystemObject;

/// Positions of the catalog columns that are read.
struct CatalogColumns {
  int id, name, type, flags;
};

int ColumnOf(const TableCursor& cursor, std::string_view name, ColumnType type) {
  const std::optional<int> column = cursor.FindField(name);
  if (!column || cursor.Column(*column).type != type)
    throw Damage("the catalog has no proper column '" + std::string(name) + "'");
  return *column;
}

std::optional<std::int64_t> WholeNumber(const TableCursor& cursor, int column) {
  const std::optional<ByteView> value = cursor.Value(column);
  return value ? std::optional(NumberOf(cursor.Column(column), *value)->integer) : std::nullopt;
}

std::optional<CatalogEntry> ReadEntry(const TableCursor& cursor, const CatalogColumns& columns) {
  if (WholeNumber(cursor, columns.type) != kTableObject)
    return std::nullopt;
  CatalogEntry entry;
  cursor.AppendText(columns.name, entry.name);
  entry.foldedName = base::LowerEuropean(entry.name);
  entry.definitionPage =
      static_cast<std::uint32_t>(WholeNumber(cursor, columns.id).value_or(0)) & (kMaxPageCount - 1);
  entry.system =
      (static_cast<std::uint32_t>(WholeNumber(cursor, columns.flags).value_or(0)) & kSystemFlags) != 0;
  return entry;
}

}  // namespace

std::vector<CatalogEntry> ReadCatalog(const std::shared_ptr<const DatabaseState>& database) {
  auto definition = database->Guarded(std::string(kCatalogName), [&] {
    return std::make_shared<const TableDefinition>(
        ReadTableDefinition(database->pages, kCatalogPage, std::string(kCatalogName)));
  });
  TableCursor cursor(database, std::move(definition));
  return cursor.Guarded([&] {
    const CatalogColumns columns = {ColumnOf(cursor, kObjectId, ColumnType::kLong),
                                    ColumnOf(cursor, kObjectName, ColumnType::kText),
                                    ColumnOf(cursor, kObjectType, ColumnType::kInteger),
                                    ColumnOf(cursor, kObjectFlags, ColumnType::kLong)};
    std::vector<CatalogEntry> entries;
    for (; !cursor.Eof(); cursor.MoveNext()) {
      if (std::optional<CatalogEntry> entry = ReadEntry(cursor, columns))
        entries.push_back(std::move(*entry));
    }
    return entries;
  });
}

const CatalogEntry* FindTable(const DatabaseState& database, std::string_view name) {
  const auto entry =
      std::ranges::find(database.catalog, base::LowerEuropean(name), &CatalogEntry::foldedName);
  return entry == database.catalog.end() ? nullptr : &*entry;
}

}  // namespace zerbal::jet
