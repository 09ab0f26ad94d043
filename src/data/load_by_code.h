// Reads the rows of a table that are known by their codes. Internal to data/.
#pragma once

#include <cstddef>
#include <string>

#include "data/load_error.h"
#include "data/table_access.h"
#include "settings/message_boxes.h"

namespace zerbal::data {

/// Finds the row of each rule by its code, in the order of the rules, and calls `fill` with the number of the
/// rule while `source` stands on the row. Throws LoadError, which lists the codes that are missing under
/// `heading`.
template <typename Rules, typename Fill>
void LoadByCode(jet::Recordset& source, const Rules& rules, const std::string& heading, Fill fill) {
  using settings::NL;
  std::string missing;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    source.Seek(rules[i].code);
    if (source.NoMatch())
      missing.append("Code = ").append(rules[i].code).append(NL);
    else
      fill(i);
  }
  if (!missing.empty())
    throw LoadError(heading + NL + missing + NL + "The program aborts.");
}

}  // namespace zerbal::data
