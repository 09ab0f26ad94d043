// The bytes of a database file in memory, mapped or copied.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "jet/format/bytes.h"

namespace zerbal::jet {

/// The bytes of one file and their owner. Copies share both.
struct FileImage {
  ByteView bytes;
  std::shared_ptr<const void> owner;
  /// Becomes true when lost pages of a file that was truncated while mapped were read as zeros. Stays true.
  /// Needs InstallMappedFileGuard. Never null.
  std::shared_ptr<const std::atomic<bool>> shrunk;
};

/// Maps `file` read-only. Throws Damage when it cannot be opened or is not an ordinary file.
FileImage MapFile(const std::filesystem::path& file);

/// An image that owns `bytes`.
FileImage ImageOf(std::vector<std::uint8_t> bytes);

}  // namespace zerbal::jet
