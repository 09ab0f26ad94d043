#include "paint/large_picture.h"

#include <cstddef>
#include <cstdlib>
#include <limits>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace zerbal::paint {
namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::size_t kBytesPerPixel = 4;
/// Smaller pictures would waste most of a huge page.
constexpr std::size_t kLarge = kHugePage / 2;

}  // namespace

QImage LargePicture(const QSize& pixels) {
  if (pixels.isEmpty())
    return {};
  const std::size_t stride = static_cast<std::size_t>(pixels.width()) * kBytesPerPixel;
  const std::size_t bytes = stride * static_cast<std::size_t>(pixels.height());
  if (bytes < kLarge || stride > std::numeric_limits<int>::max())
    return {pixels, QImage::Format_RGB32};
  const std::size_t whole = (bytes + kHugePage - 1) / kHugePage * kHugePage;
  void* memory = std::aligned_alloc(kHugePage, whole);
  if (memory == nullptr)
    return {};
#ifdef __linux__
  // Only a request: without huge pages, it is memory as any other.
  static_cast<void>(::madvise(memory, whole, MADV_HUGEPAGE));
#endif
  return {static_cast<uchar*>(memory), pixels.width(), pixels.height(), static_cast<qsizetype>(stride),
          QImage::Format_RGB32,        std::free,      memory};
}

}  // namespace zerbal::paint
