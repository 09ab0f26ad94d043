#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

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

/// One mapping and its slot.
class Mapping {
 public:
  Mapping(void* start, std::size_t size) : start_(start), slot_(MappingSlot::Take()) {
    slot_->shrunk.store(false);
    const auto begin = reinterpret_cast<std::uintptr_t>(start);
    slot_->begin.store(begin);
    slot_->end.store(begin + size);
  }
  ~Mapping() {
    slot_->end.store(0);
    slot_->begin.store(0);
    if (slot_->shrunk.load())
      VirtualFree(start_, 0, MEM_RELEASE);
    else
      UnmapViewOfFile(start_);
    slot_->used.store(false);
  }
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;

  const std::atomic<bool>& Shrunk() const { return slot_->shrunk; }

 private:
  void* start_;
  MappingSlot* slot_;
};

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
  auto mapping = std::make_shared<const Mapping>(start, size);
  FileImage image;
  image.bytes = {static_cast<const std::uint8_t*>(start), size};
  image.shrunk = {mapping, &mapping->Shrunk()};
  image.owner = std::move(mapping);
  return image;
}

}  // namespace zerbal::jet
