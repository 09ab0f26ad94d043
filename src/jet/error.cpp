#include "jet/error.h"

#include <utility>

namespace zerbal::jet {
namespace {

std::string Subject(const std::string& file, const std::string& table) {
  std::string text = "Database '" + file + "'";
  return table.empty() ? text : text + ", table '" + table + "'";
}

}  // namespace

EngineError::EngineError(const std::string& file, std::string table, std::string reason)
    : FileError(Subject(file, table), file, std::move(reason)), table_(std::move(table)) {}

}  // namespace zerbal::jet
