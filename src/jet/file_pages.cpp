#include "jet/file_pages.h"

#include <string>

namespace zerbal::jet {

void FilePages::ThrowNoPage(std::uint32_t number) const {
  throw Damage("page " + std::to_string(number) + " is wanted, but the file has only " +
               std::to_string(pageCount_) + " pages");
}

void FilePages::ThrowWrongKind(std::uint32_t number, PageKind kind) {
  static constexpr const char* kNames[] = {"header",     "data",       "table definition",
                                           "index node", "index leaf", "usage map"};
  throw Damage("page " + std::to_string(number) + " is not a " + kNames[static_cast<int>(kind)] + " page");
}

}  // namespace zerbal::jet
