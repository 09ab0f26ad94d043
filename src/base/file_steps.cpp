#include "base/file_steps.h"

#include <fcntl.h>

namespace zerbal::base {

FileSteps& SystemFileSteps() {
  static FileSteps steps;
  return steps;
}

bool OpenFile::Open(const std::filesystem::path& path, int flags, mode_t mode) {
  file_ = steps_.Open(path, flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode);
  return IsOpen();
}

}  // namespace zerbal::base
