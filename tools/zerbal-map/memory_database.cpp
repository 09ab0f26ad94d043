#include "zerbal-map/memory_database.h"

#include <memory>
#include <string_view>
#include <type_traits>

#include <sqlite3.h>

#include "base/error.h"

namespace zerbal::mapcommand {
namespace {

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// Lets SQLite read the bytes in place, which must live until the statement is reset.
constexpr sqlite3_destructor_type kInPlace = nullptr;

int Bind(sqlite3_stmt* statement, int column, const SqlValue& value) {
  return std::visit(
      [=](const auto& one) {
        using Type = std::decay_t<decltype(one)>;
        if constexpr (std::is_same_v<Type, base::Null>)
          return sqlite3_bind_null(statement, column);
        else if constexpr (std::is_same_v<Type, std::string>)
          return sqlite3_bind_text64(statement, column, one.data(), one.size(), kInPlace, SQLITE_UTF8);
        else if constexpr (std::is_same_v<Type, Blob>)
          return sqlite3_bind_blob64(statement, column, one.bytes.data(), one.bytes.size(), kInPlace);
        else if constexpr (std::is_same_v<Type, double>)
          return sqlite3_bind_double(statement, column, one);
        else
          return sqlite3_bind_int64(statement, column, one);
      },
      value);
}

std::string InsertText(const std::string& table, std::size_t columns) {
  std::string text = "INSERT INTO " + table + " VALUES (";
  for (std::size_t i = 0; i < columns; ++i)
    text += i == 0 ? "?" : ",?";
  return text + ")";
}

}  // namespace

MemoryDatabase::MemoryDatabase() {
  try {
    Check(sqlite3_open(":memory:", &database_));
  } catch (...) {
    sqlite3_close(database_);
    throw;
  }
}

MemoryDatabase::~MemoryDatabase() {
  sqlite3_close(database_);
}

void MemoryDatabase::Execute(const std::string& sql) {
  Check(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr));
}

void MemoryDatabase::Insert(const std::string& table, const std::vector<SqlRow>& rows) {
  if (rows.empty())
    return;
  sqlite3_stmt* prepared = nullptr;
  Check(
      sqlite3_prepare_v2(database_, InsertText(table, rows.front().size()).c_str(), -1, &prepared, nullptr));
  const Statement statement(prepared, &sqlite3_finalize);
  for (const SqlRow& row : rows) {
    int column = 0;
    for (const SqlValue& value : row)
      Check(Bind(prepared, ++column, value));
    if (sqlite3_step(prepared) != SQLITE_DONE)
      Check(sqlite3_errcode(database_));
    Check(sqlite3_reset(prepared));
  }
}

std::string MemoryDatabase::Bytes() const {
  sqlite3_int64 size = 0;
  const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
      sqlite3_serialize(database_, "main", &size, 0), &sqlite3_free);
  if (!bytes)
    throw base::Error("There is not enough memory for the file.");
  return {reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)};
}

void MemoryDatabase::Check(int result) const {
  if (result != SQLITE_OK)
    throw base::Error(std::string("The database cannot be made: ") + sqlite3_errmsg(database_));
}

}  // namespace zerbal::mapcommand
