// The mappings of files in memory, for the handler of errors that reading them raises.
#pragma once

#include <atomic>
#include <cstdint>

namespace zerbal::jet {

/// Where one mapping lies. The handler sets `shrunk`, which the engine checks after every step. The handler
/// may not lock, so the list of slots only grows: a slot is never freed, only used again.
struct MappingSlot {
  std::atomic<std::uintptr_t> begin{0};
  std::atomic<std::uintptr_t> end{0};
  std::atomic<bool> used{false};
  std::atomic<bool> shrunk{false};
  MappingSlot* next = nullptr;

  /// A slot that is not in use. The owner of the mapping gives it back by clearing `used`.
  static MappingSlot* Take();
  /// The slot of the mapping that contains `address`; nullptr when none does. Locks nothing.
  static MappingSlot* At(std::uintptr_t address);
};

}  // namespace zerbal::jet
