// One value of a CSV file, checked and converted to the type of its field.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "jet/writer.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/layout.h"

namespace zerbal::pack {

/// A value, or the reason why there is none.
struct CsvValue {
  jet::Value value;
  std::optional<std::string> fault;
};

/// How the numbers of a column are written.
struct NumberForm {
  bool mapFrame = false;      ///< positions are degrees of the map frame, not geographic ones
  bool decimalComma = false;  ///< a comma may stand before the decimals
};

CsvValue ToValue(const CsvField& field, const ColumnLayout& column, const NumberForm& form);

/// Without blanks and tabs at both ends.
std::string_view Trimmed(std::string_view text);

/// Characters as the database counts them (UTF-16 units).
std::size_t CharacterCount(std::string_view text);

/// A text in single quotation marks for messages; a long one is cut.
std::string Quoted(std::string_view text);

}  // namespace zerbal::pack
