// Finds an index by its name.
#pragma once

#include <algorithm>
#include <string_view>

#include "base/case_folding.h"
#include "jet/recordset.h"

namespace zerbal::pack {

/// The table's index of that name, ignoring letter case; nullptr when there is none. Valid as long as `rows`.
inline const jet::IndexInfo* FindIndex(const jet::Recordset& rows, std::string_view name) {
  const auto& indexes = rows.Indexes();
  const auto found = std::find_if(indexes.begin(), indexes.end(), [&](const jet::IndexInfo& index) {
    return base::EqualsIgnoringEuropeanCase(index.name, name);
  });
  return found == indexes.end() ? nullptr : &*found;
}

}  // namespace zerbal::pack
