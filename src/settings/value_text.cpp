#include "settings/value_text.h"

#include <algorithm>
#include <cstddef>

namespace zerbal::settings {

std::vector<std::string> SplitList(std::string_view text, int n, std::string_view delimiter) {
  const int count = std::max(n, 0);
  std::vector<std::string> fields(static_cast<std::size_t>(count) + 1);
  for (std::size_t k = 1; k < fields.size(); ++k) {
    const std::size_t end = delimiter.empty() ? std::string_view::npos : text.find(delimiter.front());
    fields[k] = text.substr(0, end);
    if (end == std::string_view::npos)
      break;
    text.remove_prefix(end + 1);
  }
  return fields;
}

}  // namespace zerbal::settings
