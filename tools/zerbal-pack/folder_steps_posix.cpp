#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "zerbal-pack/folder_steps.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Throw(const char* what, const fs::path& path, int reason) {
  throw fs::filesystem_error(what, path, std::error_code(reason, std::generic_category()));
}

}  // namespace

fs::path MakeWorkFolder(const fs::path& prefix) {
  std::string pattern = prefix.string() + "XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr)
    Throw("cannot make folder", prefix.parent_path(), errno);
  const mode_t mask = umask(0);
  umask(mask);
  chmod(pattern.c_str(), 0777 & ~mask);
  try {
    return fs::path(pattern);
  } catch (...) {
    rmdir(pattern.c_str());
    throw;
  }
}

void ExchangeFolders(const fs::path& a, const fs::path& b) {
  if (renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0)
    return;
  if (errno != EINVAL && errno != ENOSYS)
    Throw("cannot replace", b, errno);
  ExchangeInSteps(a, b);
}

}  // namespace zerbal::pack
