#include "jet/read/file_pages.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "jet/format/code_page.h"
#include "jet/read/file_header.h"

namespace zerbal::jet {

FilePages::FilePages(FileImage image)
    : image_(std::move(image)),
      header_(ReadFileHeader(image_.bytes)),
      pageSize_(PageSizeOf(header_.format)),
      pageCount_(
          static_cast<std::uint32_t>(std::min(image_.bytes.Size() / pageSize_, std::size_t{kMaxPageCount}))) {
  if (header_.databaseKey != 0)
    image_ = Decoded(image_, pageSize_, header_.databaseKey);
  if (IsJet3())
    codePage_ = CodePage::OfNumber(header_.codePage);
}

void FilePages::ThrowNoPage(std::uint32_t number) const {
  throw Damage(fmt::format("page {} is wanted, but the file has only {} pages", number, pageCount_));
}

void FilePages::ThrowWrongKind(std::uint32_t number, PageKind kind) {
  static constexpr const char* kNames[] = {"header",     "data",       "table definition",
                                           "index node", "index leaf", "usage map"};
  throw Damage(fmt::format("page {} is not a {} page", number, kNames[static_cast<int>(kind)]));
}

}  // namespace zerbal::jet
