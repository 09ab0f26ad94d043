#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "base/windows_calls.h"
#include "jet/mapped_file_guard.h"
#include "jet/read/file_image.h"
#include "jet/read/mapping_slot.h"

namespace zerbal::jet {
namespace {

// Reading a page of a mapping that the disk or the network does not give raises an in-page error. The handler
// replaces the mapping by zeros, so that the instruction can continue, and sets the flag of the mapping's
// slot.

/// Replaces the mapping by zeros at the same place.
bool ReplaceByZeros(MappingSlot& slot) {
  const std::uintptr_t begin = slot.begin.load();
  void* const start = reinterpret_cast<void*>(begin);  // NOLINT(performance-no-int-to-ptr)
  return UnmapViewOfFile(start) != 0 &&
         VirtualAlloc(start, slot.end.load() - begin, MEM_RESERVE | MEM_COMMIT, PAGE_READONLY) != nullptr;
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  if (record.NumberParameters < 2)
    return EXCEPTION_CONTINUE_SEARCH;
  MappingSlot* slot = MappingSlot::At(record.ExceptionInformation[1]);
  if (slot == nullptr)
    return EXCEPTION_CONTINUE_SEARCH;
  // While one thread replaces the mapping, others find no memory there: they try again.
  if (record.ExceptionCode == static_cast<DWORD>(EXCEPTION_ACCESS_VIOLATION) && slot->shrunk.load())
    return EXCEPTION_CONTINUE_EXECUTION;
  if (record.ExceptionCode != static_cast<DWORD>(EXCEPTION_IN_PAGE_ERROR))
    return EXCEPTION_CONTINUE_SEARCH;
  const bool first = !slot->shrunk.exchange(true);
  return !first || ReplaceByZeros(*slot) ? EXCEPTION_CONTINUE_EXECUTION : EXCEPTION_CONTINUE_SEARCH;
}

void RemoveMapping(void* start, std::size_t /*size*/, bool replaced) {
  if (replaced)
    VirtualFree(start, 0, MEM_RELEASE);
  else
    UnmapViewOfFile(start);
}

[[noreturn]] void ThrowSystem(const std::string& what) {
  throw Damage(what + " (" + std::generic_category().message(base::LastErrno()) + ")");
}

struct CloseHandleOf {
  void operator()(void* handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, CloseHandleOf>;

OwnedHandle OpenOrdinaryFile(const std::filesystem::path& file) {
  const HANDLE handle = base::OpenShared(file, GENERIC_READ, OPEN_EXISTING);
  if (handle == INVALID_HANDLE_VALUE)
    ThrowSystem("the file cannot be opened");
  OwnedHandle opened(handle);
  BY_HANDLE_FILE_INFORMATION info = {};
  if (GetFileType(handle) != FILE_TYPE_DISK || GetFileInformationByHandle(handle, &info) == 0 ||
      (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
    throw Damage("this is not an ordinary file");
  return opened;
}

}  // namespace

void InstallMappedFileGuard() {
  static const bool installed = AddVectoredExceptionHandler(1, OnException) != nullptr;
  static_cast<void>(installed);
}

FileImage MapFile(const std::filesystem::path& file) {
  const OwnedHandle opened = OpenOrdinaryFile(file);
  LARGE_INTEGER length = {};
  if (GetFileSizeEx(opened.get(), &length) == 0)
    ThrowSystem("the file cannot be examined");
  if (length.QuadPart <= 0)
    return ImageOf({});
  const auto size = static_cast<std::size_t>(length.QuadPart);
  const OwnedHandle section(CreateFileMappingW(opened.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  void* start = section ? MapViewOfFile(section.get(), FILE_MAP_READ, 0, 0, size) : nullptr;
  if (start == nullptr)
    ThrowSystem("the file cannot be mapped into memory");
  return ImageOfMapping(start, size, size, RemoveMapping);
}

}  // namespace zerbal::jet
