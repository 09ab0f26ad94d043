#include "base/find_file.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "base/case_folding.h"

namespace zerbal::base {

namespace fs = std::filesystem;

namespace {

/// The entries of `folder` whose names differ from `name` in nothing but letter case, in byte order.
std::vector<fs::path> OtherSpellings(const fs::path& folder, const fs::path& name) {
  std::error_code error;
  std::vector<fs::path> others;
  const std::string wanted = LowerAscii(name.string());
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path found = entry->path().filename();
    if (found != name && LowerAscii(found.string()) == wanted)
      others.push_back(folder / found);
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
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace zerbal::base
