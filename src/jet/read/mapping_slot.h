// The mappings of files in memory, for the handler of errors that reading them raises.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "jet/read/file_image.h"

namespace zerbal::jet {

/// Where one mapping lies. The handler sets `shrunk`, which the engine checks after every step. The handler
/// may not lock, so the list of slots only grows: a slot is never freed, only used again.
struct MappingSlot {
  std::atomic<std::uintptr_t> begin{0};
  std::atomic<std::uintptr_t> end{0};
  std::atomic<bool> used{false};
  std::atomic<bool> shrunk{false};
  MappingSlot* next = nullptr;

  /// The slot of the mapping that contains `address`; nullptr when none does. Locks nothing.
  static MappingSlot* At(std::uintptr_t address);
};

/// Removes a mapping. `replaced` tells whether the handler put something in the place of it or of its pages.
using Unmap = void (*)(void* start, std::size_t size, bool replaced);

/// An image of the file mapped at `start`, which removes the mapping in the end. The handler looks after
/// `reach` bytes of it.
FileImage ImageOfMapping(void* start, std::size_t size, std::size_t reach, Unmap unmap);

}  // namespace zerbal::jet
