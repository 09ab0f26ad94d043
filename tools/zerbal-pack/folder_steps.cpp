#include "zerbal-pack/folder_steps.h"

#include <system_error>

namespace zerbal::pack {

namespace fs = std::filesystem;

void ExchangeInSteps(const fs::path& a, const fs::path& b) {
  fs::path aside = a;
  aside += ".old";
  fs::rename(b, aside);
  std::error_code failed;
  fs::rename(a, b, failed);
  if (failed) {
    fs::rename(aside, b);
    throw fs::filesystem_error("cannot replace", b, failed);
  }
  fs::rename(aside, a);
}

}  // namespace zerbal::pack
