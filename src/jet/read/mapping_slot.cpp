#include "jet/read/mapping_slot.h"

#include <memory>
#include <mutex>
#include <utility>

namespace zerbal::jet {
namespace {

std::atomic<MappingSlot*> firstSlot{nullptr};
std::mutex slotMutex;

/// A slot that is not in use. The owner of the mapping gives it back by clearing `used`.
MappingSlot* TakeSlot() {
  const std::scoped_lock lock(slotMutex);
  for (MappingSlot* slot = firstSlot.load(); slot != nullptr; slot = slot->next) {
    if (!slot->used.exchange(true))
      return slot;
  }
  auto* slot = new MappingSlot;
  slot->used.store(true);
  slot->next = firstSlot.load();
  firstSlot.store(slot);
  return slot;
}

/// One mapping and its slot.
class Mapping {
 public:
  Mapping(void* start, std::size_t size, std::size_t reach, Unmap unmap)
      : start_(start), size_(size), unmap_(unmap), slot_(TakeSlot()) {
    slot_->shrunk.store(false);
    const auto begin = reinterpret_cast<std::uintptr_t>(start);
    slot_->begin.store(begin);
    slot_->end.store(begin + reach);
  }
  ~Mapping() {
    slot_->end.store(0);
    slot_->begin.store(0);
    unmap_(start_, size_, slot_->shrunk.load());
    slot_->used.store(false);
  }
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;

  const std::atomic<bool>& Shrunk() const { return slot_->shrunk; }

 private:
  void* start_;
  std::size_t size_;
  Unmap unmap_;
  MappingSlot* slot_;
};

}  // namespace

MappingSlot* MappingSlot::At(std::uintptr_t address) {
  for (MappingSlot* slot = firstSlot.load(); slot != nullptr; slot = slot->next) {
    if (address >= slot->begin.load() && address < slot->end.load())
      return slot;
  }
  return nullptr;
}

FileImage ImageOfMapping(void* start, std::size_t size, std::size_t reach, Unmap unmap) {
  std::shared_ptr<const Mapping> mapping;
  try {
    mapping = std::make_shared<const Mapping>(start, size, reach, unmap);
  } catch (...) {
    unmap(start, size, false);
    throw;
  }
  FileImage image;
  image.bytes = {static_cast<const std::uint8_t*>(start), size};
  image.shrunk = {mapping, &mapping->Shrunk()};
  image.owner = std::move(mapping);
  return image;
}

}  // namespace zerbal::jet
