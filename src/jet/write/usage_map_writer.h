// Writing usage maps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "jet/format/page_layout.h"
#include "jet/write/output_file.h"

namespace zerbal::jet {

using PageList = std::vector<std::uint32_t>;  ///< page numbers, ascending

/// The data pages with the usage maps of one table, or of all system tables.
class UsageMapPages {
 public:
  /// Room for `count` maps, on `pages` and as many newly allocated pages as are needed.
  UsageMapPages(OutputFile& file, std::size_t count, PageList pages = {});

  /// The place of the next map. At most `count` are reserved.
  RecordPointer Reserve();
  /// Sets a reserved map. A map that is never set is empty.
  void Set(RecordPointer place, const PageList& members);
  void Write();

  static constexpr std::size_t kMapsPerPage = 57;

 private:
  OutputFile& file_;
  PageList pages_;
  std::vector<std::vector<std::uint8_t>> rows_;
  std::size_t reserved_ = 0;
};

/// Writes page 1, the usage map of the file's free pages, which is empty. Allocates pages for it when the
/// file is large. No page is allocated afterwards.
void WriteGlobalMap(OutputFile& file);

}  // namespace zerbal::jet
