// Checking one table of a user's database against what the program reads from it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "jet/database.h"
#include "jet/recordset.h"
#include "zerbal-pack/check_report.h"
#include "zerbal-pack/layout.h"

namespace zerbal::pack {

/// Opens a table; nullopt, with a finding, when that fails.
std::optional<jet::Recordset> OpenChecked(const jet::Database& database, const std::string& where,
                                          const std::string& table, CheckReport& report);

/// Checks that the table has the fields and indexes of `layout` that the program uses, then the values of
/// every row in stored order, then that the indexes find the rows. Calls `row` for each row. Damage ends the
/// check of the table with a finding. `where` names file and table. False when a field is missing and no row
/// was checked.
bool CheckTable(jet::Recordset& rows, const TableLayout& layout, const std::string& where,
                CheckReport& report, const std::function<void(const jet::Recordset&)>& row);

/// Notes that fewer rows were found than the file states.
void NoteLostRows(const jet::Recordset& rows, std::size_t count, const std::string& where,
                  CheckReport& report);

/// The name of the current row in messages: "flight 'QV101'".
std::string RowName(const jet::Recordset& rows, const TableLayout& layout);

}  // namespace zerbal::pack
