// Looks through every page of a written database, knowing the format but nothing of the engine's own code
// for it (index keys excepted), and says what does not fit together.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zerbal::test {

/// What is wrong in a file of the 2000 format; nothing is wrong when it is empty. Tables are those of the
/// catalog, the system's own included. Checked are, for each table: the definition's length, the number of
/// rows, free bytes of pages, the maps of pages against the pages that are there, each index's tree: order,
/// links, keys against the rows, every row exactly once; and for the whole file that every page belongs to
/// exactly one thing and is marked as used.
std::vector<std::string> FaultsIn(std::string_view file);

/// The number of levels of an index tree.
int IndexLevels(std::string_view file, std::string_view table, std::string_view index);

}  // namespace zerbal::test
