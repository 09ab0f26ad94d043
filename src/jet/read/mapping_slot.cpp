#include "jet/read/mapping_slot.h"

#include <mutex>

namespace zerbal::jet {
namespace {

std::atomic<MappingSlot*> firstSlot{nullptr};
std::mutex slotMutex;

}  // namespace

MappingSlot* MappingSlot::Take() {
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

MappingSlot* MappingSlot::At(std::uintptr_t address) {
  for (MappingSlot* slot = firstSlot.load(); slot != nullptr; slot = slot->next) {
    if (address >= slot->begin.load() && address < slot->end.load())
      return slot;
  }
  return nullptr;
}

}  // namespace zerbal::jet
