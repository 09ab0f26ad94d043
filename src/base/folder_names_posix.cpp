#include <memory>
#include <string_view>

#include <dirent.h>

#include "base/folder_names.h"

namespace zerbal::base {

std::vector<std::string> NamesInFolder(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  const auto close = [](DIR* open) { closedir(open); };
  const std::unique_ptr<DIR, decltype(close)> open(opendir(folder.string().c_str()), close);
  if (!open)
    return names;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..")
      names.emplace_back(name);
  }
  return names;
}

}  // namespace zerbal::base
