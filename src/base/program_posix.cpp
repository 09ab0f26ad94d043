#include <csignal>
#include <system_error>

#include <unistd.h>

#include "base/program.h"

namespace zerbal::base {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

std::filesystem::path ProgramFile() {
  std::error_code failed;
  return std::filesystem::read_symlink("/proc/self/exe", failed);
}

void PrepareStandardOutput() {}

bool ErrorsGoToTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

void CatchInterruptions(void (*handler)(int)) {
  for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
    std::signal(signalNumber, handler);
}

}  // namespace zerbal::base
