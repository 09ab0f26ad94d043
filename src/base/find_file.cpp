#include "base/find_file.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "base/case_folding.h"
#include "base/folder_names.h"
#include "base/path_text.h"

namespace zerbal::base {

namespace fs = std::filesystem;

namespace {

/// The entries of `folder` whose names differ from `name` in nothing but letter case, in byte order.
std::vector<fs::path> OtherSpellings(const fs::path& folder, const fs::path& name) {
  std::vector<fs::path> others;
  const std::string own = name.string();
  const std::string wanted = LowerAscii(own);
  for (const std::string& found : NamesInFolder(folder)) {
    if (found != own && LowerAscii(found) == wanted)
      others.push_back(folder / PathOf(found));
  }
  std::sort(others.begin(), others.end());
  return others;
}

std::optional<fs::path> FindBelow(const fs::path& folder, fs::path::const_iterator part,
                                  const fs::path::const_iterator& end) {
  const bool last = std::next(part) == end;
  std::error_code error;
  // As spelled first, so that the usual case needs no listing of the folder.
  const auto wanted = [&](const fs::path& path) {
    return fs::exists(path, error) && fs::is_directory(path, error) != last;
  };
  const auto below = [&](const fs::path& path) -> std::optional<fs::path> {
    if (!wanted(path))
      return std::nullopt;
    return last ? path : FindBelow(path, std::next(part), end);
  };
  if (auto found = below(folder / *part))
    return found;
  for (const fs::path& candidate : OtherSpellings(folder, *part)) {
    if (auto found = below(candidate))
      return found;
  }
  return std::nullopt;
}

}  // namespace

std::optional<fs::path> FindFile(const fs::path& folder, const fs::path& relativeName) {
  if (relativeName.empty())
    return std::nullopt;
  try {
    return FindBelow(folder, relativeName.begin(), relativeName.end());
  } catch (const std::system_error&) {
    return std::nullopt;
  }
}

}  // namespace zerbal::base
