// The bytes of a database file in memory, mapped or copied. The one place that knows the platform is
// file_image_posix.cpp.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "jet/format/bytes.h"

namespace zerbal::jet {

/// The bytes of one file and what keeps them alive. Copies share them.
struct FileImage {
  ByteView bytes;
  std::shared_ptr<const void> owner;
  /// Becomes true, for good, when bytes could not be read because the file was cut short while it was mapped.
  /// The missing pages read as zeros from then on. Needs InstallMappedFileGuard. Never null.
  std::shared_ptr<const std::atomic<bool>> shrunk;
};

/// Maps `file` read-only. Throws Damage when it cannot be opened or is no ordinary file.
FileImage MapFile(const std::filesystem::path& file);

/// An image of bytes that are in memory already.
FileImage ImageOf(std::vector<std::uint8_t> bytes);

}  // namespace zerbal::jet
