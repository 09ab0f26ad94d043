#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include <unistd.h>

#include "zerbal-pack/run.h"

namespace {

volatile std::sig_atomic_t interruptSignal = 0;

void OnInterrupt(int signalNumber) {
  interruptSignal = signalNumber;
}

}  // namespace

int main(int argc, char** argv) {
  // A build that is interrupted leaves nothing behind.
  std::signal(SIGINT, OnInterrupt);
  std::signal(SIGTERM, OnInterrupt);
  std::error_code failed;
  const zerbal::pack::RunContext context{
      .out = std::cout,
      .err = std::cerr,
      .errIsTerminal = isatty(STDERR_FILENO) == 1,
      .executable = std::filesystem::read_symlink("/proc/self/exe", failed),
      .interrupted = [] { return interruptSignal != 0; }};
  const int status = zerbal::pack::RunPack(std::vector<std::string>(argv + 1, argv + argc), context);
  if (!std::cout.flush()) {
    std::cerr << "zerbal-pack: cannot write to the standard output\n";
    return zerbal::pack::kExitBadData;
  }
  return status;
}
