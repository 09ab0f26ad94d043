// Writing the tree of pages of an index.
#pragma once

#include <cstdint>

#include "jet/format/index_keys.h"
#include "jet/write/output_file.h"
#include "jet/write/usage_map_writer.h"

namespace zerbal::jet {

/// Writes the tree with its root on page `root`, for the table whose definition is on page `owner`. Returns
/// its pages. Entries are not compressed: common prefixes are small next to the rows, and searching
/// compressed pages is slower.
PageList WriteIndexTree(OutputFile& file, const IndexKeys& keys, std::uint32_t root, std::uint32_t owner);

}  // namespace zerbal::jet
