// The tree of pages made of the keys of an index.
#pragma once

#include <cstdint>

#include "jet/format/index_keys.h"
#include "jet/write/output_file.h"
#include "jet/write/usage_map_writer.h"

namespace zerbal::jet {

/// Writes the tree with its root on page `root`, for the table whose definition is on page `owner`, and
/// returns all its pages. Entries stand in full on their pages: compressing common prefixes would save little
/// beside the rows and make every reader's search slower.
PageList WriteIndexTree(OutputFile& file, const IndexKeys& keys, std::uint32_t root, std::uint32_t owner);

}  // namespace zerbal::jet
