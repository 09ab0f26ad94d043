#include "faults/failing_allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

/// Allocations until the one that fails; below 0 when none is to fail. Other threads are not counted.
thread_local long remaining = -1;

void* Allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
  if (remaining >= 0 && remaining-- == 0)
    return nullptr;
  if (alignment <= alignof(std::max_align_t))
    return std::malloc(size == 0 ? 1 : size);
  return std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
  void* memory = Allocate(size, alignment);
  if (memory == nullptr)
    throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
  std::free(memory);
}

namespace zerbal::test {

int FailEachAllocation(const std::function<void()>& prepare, const std::function<void()>& work,
                       const std::function<void()>& check, int stride) {
  const int step = std::getenv("ZERBAL_EVERY_ALLOCATION") != nullptr ? 1 : stride;
  for (int at = 0;; at += step) {
    prepare();
    remaining = at;
    work();
    const bool failed = remaining < 0;
    const int rest = static_cast<int>(remaining);
    remaining = -1;
    if (!failed)
      return at - rest;
    check();
  }
}

}  // namespace zerbal::test
