#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/file_steps.h"
#include "jet/mapped_file_guard.h"
#include "jet/read/file_image.h"
#include "jet/read/mapping_slot.h"

namespace zerbal::jet {
namespace {

// Reading a page of a mapping that lies after the present end of its file raises SIGBUS. The handler maps a
// page of zeros there, so that the instruction can continue, and sets the flag of the mapping's slot.
struct sigaction previousHandler;
const auto systemPageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));

/// Handles a bus error outside of all mappings as if the guard were not installed.
void PassOn(int signal, siginfo_t* info, void* context) {
  if ((previousHandler.sa_flags & SA_SIGINFO) != 0) {
    previousHandler.sa_sigaction(signal, info, context);
  } else if (previousHandler.sa_handler == SIG_DFL ||
             (previousHandler.sa_handler == SIG_IGN && info->si_code > 0)) {  // a fault cannot be ignored
    std::signal(signal, SIG_DFL);
    raise(signal);  // delivered after this handler has returned; ends the program
  } else if (previousHandler.sa_handler != SIG_IGN) {
    previousHandler.sa_handler(signal);
  }
}

void OnBusError(int signal, siginfo_t* info, void* context) {
  const int savedErrno = errno;
  const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
  const bool isFault = info->si_code > 0;  // not sent by a process
  if (MappingSlot* slot = isFault ? MappingSlot::At(address) : nullptr) {
    void* page = static_cast<char*>(info->si_addr) - (address & (systemPageSize - 1));
    slot->shrunk.store(true);
    if (mmap(page, systemPageSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED) {
      errno = savedErrno;
      return;
    }
  }
  errno = savedErrno;
  PassOn(signal, info, context);
}

void RemoveMapping(void* start, std::size_t size, bool /*replaced*/) {
  munmap(start, size);
}

[[noreturn]] void ThrowSystem(const std::string& what) {
  throw Damage(what + " (" + std::generic_category().message(errno) + ")");
}

}  // namespace

void InstallMappedFileGuard() {
  static const bool installed = [] {
    struct sigaction action = {};
    action.sa_sigaction = OnBusError;
    action.sa_flags = SA_SIGINFO;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGBUS, &action, &previousHandler) == 0;
  }();
  static_cast<void>(installed);
}

FileImage MapFile(const std::filesystem::path& file) {
  base::OpenFile opened;
  if (!opened.Open(file, O_RDONLY))
    ThrowSystem("the file cannot be opened");
  struct stat status = {};
  if (fstat(opened.Number(), &status) != 0)
    ThrowSystem("the file cannot be examined");
  if (!S_ISREG(status.st_mode))
    throw Damage("this is not an ordinary file");
  if (status.st_size <= 0)
    return ImageOf({});
  const auto size = static_cast<std::size_t>(status.st_size);
  void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, opened.Number(), 0);
  if (start == MAP_FAILED)
    ThrowSystem("the file cannot be mapped into memory");
  const std::size_t reach = (size + systemPageSize - 1) / systemPageSize * systemPageSize;
  return ImageOfMapping(start, size, reach, RemoveMapping);
}

}  // namespace zerbal::jet
