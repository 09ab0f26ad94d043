#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "base/program.h"
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
  zerbal::base::PrepareStandardOutput();
  const std::vector<std::string> words = zerbal::base::ProgramArguments(argc, argv);
  zerbal::base::RemoveTemporaryFilesOnSignals();
  // A build has folders of temporary files, which it removes itself.
  if (!words.empty() && words.front() == "build")
    zerbal::base::CatchInterruptions(OnInterrupt);
  const zerbal::pack::RunContext context{.out = std::cout,
                                         .err = std::cerr,
                                         .errIsTerminal = zerbal::base::ErrorsGoToTerminal(),
                                         .executable = zerbal::base::ProgramFile(),
                                         .interrupted = [] { return interruptSignal != 0; }};
  const int status = zerbal::pack::RunPack(words, context);
  if (!std::cout.flush()) {
    std::cerr << "zerbal-pack: cannot write to the standard output\n";
    return zerbal::pack::FailureStatus(words);
  }
  return status;
}
