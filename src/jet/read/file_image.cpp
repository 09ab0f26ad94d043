#include "jet/read/file_image.h"

#include <utility>

namespace zerbal::jet {

FileImage ImageOf(std::vector<std::uint8_t> bytes) {
  auto owner = std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes));
  FileImage image;
  image.bytes = {owner->data(), owner->size()};
  image.shrunk = std::make_shared<const std::atomic<bool>>(false);
  image.owner = std::move(owner);
  return image;
}

}  // namespace zerbal::jet
