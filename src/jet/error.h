// The exceptions of the engine.
#pragma once

#include <string>
#include <utility>

#include "base/error.h"

namespace zerbal::jet {

/// A database file is damaged, foreign, missing, or lacks what was asked for (a table, an index, a field).
/// what() is one sentence that names the file, the table where there is one, and the reason. Thrown by all
/// operations of the interface.
class EngineError : public base::FileError {
 public:
  EngineError(const std::string& file, std::string table, std::string reason)
      : FileError("Database '" + file + "'" + (table.empty() ? "" : ", table '" + table + "'"), file,
                  std::move(reason)),
        table_(std::move(table)) {}

  const std::string& Table() const { return table_; }  ///< empty when no table is concerned

 private:
  std::string table_;
};

/// A field's value cannot be converted to the requested type. Thrown by the conversions of Field; callers
/// that can do without the value catch it. The reason is that the value is Null, is no number, or does not
/// fit.
class ConversionError : public EngineError {
 public:
  using EngineError::EngineError;
};

}  // namespace zerbal::jet
