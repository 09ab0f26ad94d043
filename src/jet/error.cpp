#include "jet/error.h"

#include <utility>

namespace zerbal::jet {
namespace {

std::string Sentence(const std::string& file, const std::string& table, const std::string& reason) {
  std::string text = "Database '" + file + "'";
  if (!table.empty())
    text += ", table '" + table + "'";
  return text + ": " + reason;
}

}  // namespace

EngineError::EngineError(std::string file, std::string table, std::string reason)
    : std::runtime_error(Sentence(file, table, reason)),
      file_(std::move(file)),
      table_(std::move(table)),
      reason_(std::move(reason)) {}

ConversionError::ConversionError(Cause cause, std::string file, std::string table, std::string reason)
    : EngineError(std::move(file), std::move(table), std::move(reason)), cause_(cause) {}

}  // namespace zerbal::jet
