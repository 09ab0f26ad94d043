// One value of a CSV file, checked and turned into what the database stores.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "jet/writer.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/layout.h"

namespace zerbal::pack {

/// A value, or why there is none.
struct CsvValue {
  jet::Value value;
  std::optional<std::string> fault;
};

/// `mapFrame`: positions are degrees of the map frame, not geographic ones.
CsvValue ToValue(const CsvField& field, const ColumnLayout& column, bool mapFrame);

/// Characters as the database counts them (UTF-16 units).
std::size_t CharacterCount(std::string_view text);

/// A text within single quotation marks, cut when it is long, for messages.
std::string Quoted(std::string_view text);

}  // namespace zerbal::pack
