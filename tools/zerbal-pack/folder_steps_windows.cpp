#include <random>
#include <string>
#include <system_error>

#include "base/windows_calls.h"
#include "zerbal-pack/folder_steps.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

constexpr int kTries = 100;

}  // namespace

fs::path MakeWorkFolder(const fs::path& prefix) {
  std::random_device random;
  for (int i = 0; i < kTries; ++i) {
    fs::path folder = prefix;
    folder += std::to_wstring(random());
    if (CreateDirectoryW(base::SystemPath(folder).c_str(), nullptr) != 0)
      return folder;
    if (GetLastError() != ERROR_ALREADY_EXISTS)
      break;
  }
  throw fs::filesystem_error("cannot make folder", prefix.parent_path(),
                             std::error_code(base::LastErrno(), std::generic_category()));
}

void ExchangeFolders(const fs::path& a, const fs::path& b) {
  ExchangeInSteps(a, b);
}

}  // namespace zerbal::pack
