#include <memory>
#include <string_view>

#include <dirent.h>

#include "base/folder_names.h"

namespace zerbal::base {

std::vector<std::string> NamesInFolder(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  const auto close = [](_WDIR* open) { _wclosedir(open); };
  const std::unique_ptr<_WDIR, decltype(close)> open(_wopendir(folder.c_str()), close);
  if (!open)
    return names;
  while (const _wdirent* entry = _wreaddir(open.get())) {
    const std::wstring_view name = entry->d_name;
    if (name != L"." && name != L"..")
      names.push_back(std::filesystem::path(name).string());
  }
  return names;
}

}  // namespace zerbal::base
