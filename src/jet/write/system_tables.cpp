#include "jet/write/system_tables.h"

#include <array>
#include <bit>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "jet/format/code_page.h"
#include "jet/format/page_layout.h"
#include "jet/format/table_definition_layout.h"
#include "jet/schema.h"
#include "jet/write/page_bytes.h"
#include "jet/write/table_layout.h"
#include "jet/write/table_writer.h"
#include "jet/write/usage_map_writer.h"
#include "jet/writer.h"

namespace zerbal::jet {
namespace {

// The mask of user ids in the catalog depends on the date in the header.
constexpr std::array<std::uint8_t, 8> kHeaderDate = {0x3E, 0x85, 0xD3, 0x3B, 0x3E, 0xAB, 0xE4, 0x40};
constexpr std::array<std::uint8_t, 2> kIdMask = {0x67, 0x8A};
// The date of every object: constant, so that the same input gives the same file.
constexpr std::uint64_t kObjectDate = 0x40E4AB3E3BD3FB4E;

// User ids before masking.
using UserId = std::array<std::uint8_t, 2>;
constexpr UserId kAdministrator = {3, 1};
constexpr UserId kUsers = {2, 1};
constexpr UserId kEngine = {2, 3};
constexpr UserId kCreators = {2, 4};

// Ids of objects other than tables. The id of a table is the page of its definition.
constexpr std::uint32_t kRoot = 0x0F000000;
constexpr std::uint32_t kTables = 0x0F000001;
constexpr std::uint32_t kDatabases = 0x0F000002;
constexpr std::uint32_t kRelationships = 0x0F000003;
constexpr std::uint32_t kDatabaseObject = 0x10000000;

constexpr int kDatabaseType = 2;
constexpr int kContainerType = 3;
constexpr std::uint32_t kAllRights = 0x000FFFFF;

// Flags of system columns.
constexpr std::uint8_t kVariableColumn = kColumnAlways | kColumnSystem;
constexpr std::uint8_t kFixedColumn = kVariableColumn | kColumnFixed;
constexpr std::uint8_t kUserIdColumn = kVariableColumn | kColumnUserId;

// Flags of system indexes.
constexpr std::uint8_t kUnique = kIndexAlways | kIndexUnique;
constexpr std::uint8_t kIgnoreNulls = kIndexAlways | kIndexIgnoreNulls;
constexpr std::uint8_t kRequired = kIndexAlways | kIndexRequired;

// The system tables' definitions.
constexpr std::uint32_t kObjectsPage = kCatalogPage;
constexpr std::uint32_t kRightsPage = 3;
constexpr std::uint32_t kQueriesPage = 4;
constexpr std::uint32_t kRelationshipsPage = 5;

struct SystemIndex {
  std::string_view name;
  std::uint32_t root;
  std::uint8_t flags;
  IndexKind kind;
  std::vector<std::uint16_t> columns;
};

struct SystemTable {
  std::string_view name;
  std::uint32_t page;
  std::optional<std::uint32_t> dataPage;
  struct Column {
    std::string_view name;
    ColumnType type;
    std::uint8_t flags;
  };
  std::vector<Column> columns;
  std::vector<SystemIndex> indexes;
};

SystemTable Objects() {
  return {kCatalogName,
          kObjectsPage,
          14,
          {{kObjectId, ColumnType::kLong, kFixedColumn},
           {"ParentId", ColumnType::kLong, kFixedColumn},
           {kObjectName, ColumnType::kText, kVariableColumn},
           {kObjectType, ColumnType::kInteger, kFixedColumn},
           {"DateCreate", ColumnType::kDateTime, kFixedColumn},
           {"DateUpdate", ColumnType::kDateTime, kFixedColumn},
           {"Owner", ColumnType::kBinary, kUserIdColumn},
           {kObjectFlags, ColumnType::kLong, kFixedColumn},
           {"Database", ColumnType::kMemo, kVariableColumn},
           {"Connect", ColumnType::kMemo, kVariableColumn},
           {"ForeignName", ColumnType::kText, kVariableColumn},
           {"RmtInfoShort", ColumnType::kBinary, kVariableColumn},
           {"RmtInfoLong", ColumnType::kOle, kVariableColumn},
           {"Lv", ColumnType::kOle, kVariableColumn},
           {"LvProp", ColumnType::kOle, kVariableColumn},
           {"LvModule", ColumnType::kOle, kVariableColumn},
           {"LvExtra", ColumnType::kOle, kVariableColumn}},
          {{"ParentIdName", 7, kUnique, IndexKind::kOrdinary, {1, 2}},
           {"Id", 8, kUnique, IndexKind::kPrimaryKey, {0}}}};
}

SystemTable Rights() {
  return {kSystemTableNames[1],
          kRightsPage,
          15,
          {{"ObjectId", ColumnType::kLong, kFixedColumn},
           {"SID", ColumnType::kBinary, kUserIdColumn},
           {"ACM", ColumnType::kLong, kFixedColumn},
           {"FInheritable", ColumnType::kBoolean, kFixedColumn}},
          {{"ObjectId", 9, kRequired, IndexKind::kOrdinary, {0}}}};
}

SystemTable Queries() {
  return {kSystemTableNames[2],
          kQueriesPage,
          std::nullopt,
          {{"ObjectId", ColumnType::kLong, kFixedColumn},
           {"Attribute", ColumnType::kByte, kFixedColumn},
           {"Order", ColumnType::kBinary, kVariableColumn},
           {"Name1", ColumnType::kText, kVariableColumn},
           {"Name2", ColumnType::kText, kVariableColumn},
           {"Expression", ColumnType::kMemo, kVariableColumn},
           {"Flag", ColumnType::kInteger, kFixedColumn},
           {"LvExtra", ColumnType::kLong, kFixedColumn}},
          {{"ObjectIdAttribute", 10, kUnique, IndexKind::kPrimaryKey, {0, 1, 2}}}};
}

SystemTable Relationships() {
  return {kSystemTableNames[3],
          kRelationshipsPage,
          std::nullopt,
          {{"szRelationship", ColumnType::kText, kVariableColumn},
           {"grbit", ColumnType::kLong, kFixedColumn},
           {"ccolumn", ColumnType::kLong, kFixedColumn},
           {"icolumn", ColumnType::kLong, kFixedColumn},
           {"szObject", ColumnType::kText, kVariableColumn},
           {"szColumn", ColumnType::kText, kVariableColumn},
           {"szReferencedObject", ColumnType::kText, kVariableColumn},
           {"szReferencedColumn", ColumnType::kText, kVariableColumn}},
          {{"szRelationship", 11, kIgnoreNulls, IndexKind::kOrdinary, {0}},
           {"szObject", 12, kIgnoreNulls, IndexKind::kOrdinary, {4}},
           {"szReferencedObject", 13, kIgnoreNulls, IndexKind::kOrdinary, {6}}}};
}

constexpr std::uint32_t kMapPage = 6;
constexpr std::size_t kMapCount = 31;  // of the four tables together

ColumnLayout LayOutColumn(const SystemTable::Column& column) {
  ColumnLayout layout;
  layout.info.name = column.name;
  layout.info.type = column.type;
  if (column.type == ColumnType::kText)
    layout.info.length = 255;
  if (column.type == ColumnType::kBinary)
    layout.info.length = 510;
  layout.flags = column.flags;
  return layout;
}

TableLayout LayOut(const SystemTable& table, UsageMapPages& maps) {
  TableLayout layout;
  layout.name = table.name;
  layout.page = table.page;
  layout.system = true;
  for (const SystemTable::Column& column : table.columns)
    layout.columns.push_back(LayOutColumn(column));
  PlaceColumns(layout);
  ReserveRowMaps(layout, maps);
  ReserveLongValueMaps(layout, maps);
  for (const SystemIndex& index : table.indexes) {
    IndexLayout out;
    out.name = index.name;
    for (std::uint16_t column : index.columns)
      out.parts.push_back({column, true});
    out.flags = index.flags;
    out.kind = index.kind;
    out.rootPage = index.root;
    out.map = maps.Reserve();
    layout.indexes.push_back(std::move(out));
  }
  return layout;
}

Value Masked(const UserId& id) {
  return std::vector<std::uint8_t>{static_cast<std::uint8_t>(id[0] ^ kIdMask[0]),
                                   static_cast<std::uint8_t>(id[1] ^ kIdMask[1])};
}

Value Number(std::uint32_t bits) {
  return static_cast<std::int32_t>(bits);
}

struct CatalogRow {
  std::uint32_t id;
  std::uint32_t parent;
  std::string name;
  int type;
  std::uint32_t flags;
  UserId owner;
};

void AddObject(TableWriter& objects, const CatalogRow& row) {
  const Value date = std::bit_cast<double>(kObjectDate);
  std::vector<Value> values = {Number(row.id), Number(row.parent), row.name,         row.type, date,
                               date,           Masked(row.owner),  Number(row.flags)};
  values.resize(objects.Layout().columns.size(), Null());
  objects.AddRow(values);
}

void AddObjects(TableWriter& objects, const std::vector<WrittenTable>& tables) {
  AddObject(objects, {kTables, kRoot, "Tables", kContainerType, kSystemObject, kEngine});
  AddObject(objects, {kDatabases, kRoot, "Databases", kContainerType, kSystemObject, kEngine});
  AddObject(objects, {kRelationships, kRoot, "Relationships", kContainerType, kSystemObject, kEngine});
  AddObject(objects, {kDatabaseObject, kDatabases, "MSysDb", kDatabaseType, kSystemObject, kAdministrator});
  std::uint32_t page = kCatalogPage;
  for (const std::string_view name : kSystemTableNames)
    AddObject(objects, {page++, kTables, std::string(name), kTableObject, kSystemObject, kEngine});
  for (const WrittenTable& table : tables)
    AddObject(objects, {table.page, kTables, table.name, kTableObject, 0, kAdministrator});
}

void AddRight(TableWriter& rights, std::uint32_t object, UserId user, std::uint32_t mask, bool inheritable) {
  const Value row[] = {Number(object), Masked(user), Number(mask), inheritable};
  rights.AddRow(row);
}

void AddRights(TableWriter& rights, const std::vector<WrittenTable>& tables) {
  AddRight(rights, kObjectsPage, kAdministrator, 0x060000, false);
  AddRight(rights, kRightsPage, kAdministrator, 0x060000, false);
  AddRight(rights, kQueriesPage, kAdministrator, 0x060000, false);
  AddRight(rights, kRelationshipsPage, kAdministrator, 0x0E0000, false);
  AddRight(rights, kTables, kCreators, 0x0F00FE, true);
  AddRight(rights, kTables, kAdministrator, 0x060001, false);
  AddRight(rights, kRelationships, kCreators, 0x0F00FE, true);
  AddRight(rights, kRelationships, kAdministrator, 0x060001, false);
  AddRight(rights, kDatabases, kAdministrator, 0x060000, false);
  AddRight(rights, kDatabaseObject, kAdministrator, 0x06000E, false);
  AddRight(rights, kDatabaseObject, kUsers, 0x00000E, false);
  AddRight(rights, kQueriesPage, kUsers, 0x000014, false);
  AddRight(rights, kRelationshipsPage, kUsers, 0x000014, false);
  AddRight(rights, kObjectsPage, kUsers, 0x000014, false);
  AddRight(rights, kTables, kUsers, 0x0FFEFF, true);
  AddRight(rights, kRelationships, kUsers, 0x0FFFFF, true);
  for (const WrittenTable& table : tables) {
    AddRight(rights, table.page, kAdministrator, kAllRights, false);
    AddRight(rights, table.page, kUsers, kAllRights, false);
  }
}

}  // namespace

void WriteSystemTables(OutputFile& file, const std::vector<WrittenTable>& tables) {
  UsageMapPages maps(file, kMapCount, {kMapPage});
  // All layouts first: the maps are reserved in the order of the tables.
  const auto writer = [&](const SystemTable& table) {
    return TableWriter(file, LayOut(table, maps), table.dataPage);
  };
  TableWriter objects = writer(Objects());
  TableWriter rights = writer(Rights());
  TableWriter queries = writer(Queries());
  TableWriter relationships = writer(Relationships());
  AddObjects(objects, tables);
  AddRights(rights, tables);
  for (TableWriter* table : {&objects, &rights, &queries, &relationships})
    table->End(maps);
  maps.Write();
}

void WriteHeader(OutputFile& file) {
  PageBytes page(PageKind::kHeader);
  page.Put(kSignatureAt, AsBytes(kSignature));
  page.Put8(kVersionAt, 1);
  page.Put32(kSystemPagesAt, 0x100);
  page.Put32(kSystemPagesAt + 4, 0x101);
  for (std::size_t table = kObjectsPage; table <= kRelationshipsPage; ++table)
    page.Put32(kSystemPagesAt + 4 * table, table);
  page.Put16(kCodePageAt, kWesternCodePage);
  for (std::size_t i = 0; i < 10; ++i)
    page.Put32(kPasswordAt + 4 * i, 0xA559);  // no password
  page.Put16(0x6A, 9756);
  page.Put16(kSortLanguageAt, kGeneralSortOrder.language);
  page.Put8(kSortVersionAt, kGeneralSortOrder.version);
  page.Put(kCreationDateAt, kHeaderDate);
  for (std::size_t i = 0; i < kHeaderMask.size(); ++i)
    page.bytes[kHeaderMaskStart + i] ^= kHeaderMask[i];
  page.Put32(0x98, 0x654);
  page.Put(0x9C, AsBytes("4.0"));
  page.Put16(0xE00, 0x0101);
  for (std::size_t slot = 1; slot < 256; ++slot)
    page.Put16(0xE00 + 2 * slot, 0x0100);
  file.Write(0, page);
}

}  // namespace zerbal::jet
