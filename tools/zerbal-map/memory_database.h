// An SQLite database in memory, written once.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "base/null.h"

struct sqlite3;

namespace zerbal::mapcommand {

struct Blob {
  std::string bytes;
};

using SqlValue = std::variant<base::Null, std::string, std::int64_t, double, bool, Blob>;
using SqlRow = std::vector<SqlValue>;

/// Every failure is a base::Error with the message of SQLite.
class MemoryDatabase {
 public:
  MemoryDatabase();
  ~MemoryDatabase();
  MemoryDatabase(const MemoryDatabase&) = delete;
  MemoryDatabase& operator=(const MemoryDatabase&) = delete;

  /// Any number of statements.
  void Execute(const std::string& sql);
  /// Each row has a value for each column of the table.
  void Insert(const std::string& table, const std::vector<SqlRow>& rows);

  /// The bytes of the database file.
  std::string Bytes() const;

 private:
  void Check(int result) const;

  sqlite3* database_ = nullptr;
};

}  // namespace zerbal::mapcommand
