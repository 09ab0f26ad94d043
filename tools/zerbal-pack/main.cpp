#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include <unistd.h>

#include "base/temporary_files.h"
#include "jet/mapped_file_guard.h"
#include "zerbal-pack/run.h"

namespace {

volatile std::sig_atomic_t interruptSignal = 0;

void OnInterrupt(int signalNumber) {
  interruptSignal = signalNumber;
}

}  // namespace

int main(int argc, char** argv) {
  zerbal::jet::InstallMappedFileGuard();
  const std::vector<std::string> words(argv + 1, argv + argc);
  zerbal::base::RemoveTemporaryFilesOnSignals();
  // A build has folders of temporary files, which it removes itself.
  if (!words.empty() && words.front() == "build") {
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
      std::signal(signalNumber, OnInterrupt);
  }
  std::error_code failed;
  const zerbal::pack::RunContext context{
      .out = std::cout,
      .err = std::cerr,
      .errIsTerminal = isatty(STDERR_FILENO) == 1,
      .executable = std::filesystem::read_symlink("/proc/self/exe", failed),
      .interrupted = [] { return interruptSignal != 0; }};
  const int status = zerbal::pack::RunPack(words, context);
  if (!std::cout.flush()) {
    std::cerr << "zerbal-pack: cannot write to the standard output\n";
    return zerbal::pack::FailureStatus(words);
  }
  return status;
}
