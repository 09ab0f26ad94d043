#include "paint/png_writer.h"

#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>

#include <png.h>

#include "base/error.h"

namespace zerbal::paint {
namespace {

/// Maps are mostly plain areas and repeated rows. The compression finds both by itself; differences of
/// neighbouring pixels would make larger files. Level 3 of 9 is several times faster than the next ones,
/// which make files 7 % smaller.
constexpr int kFilters = PNG_FILTER_NONE;
constexpr int kLevel = 3;
constexpr std::size_t kPartSize = 1 << 16;

std::uint32_t DotsPerMetre(double dpi) {
  return static_cast<std::uint32_t>(std::lround(dpi / 0.0254));
}

}  // namespace

/// libpng leaves a function that fails by longjmp, which must not pass over objects with destructors. So
/// every call of it is made by Call, and the callbacks throw nothing.
struct PngWriter::State {
  explicit State(ByteSink bytes) : sink(std::move(bytes)) {
    png = png_create_write_struct(PNG_LIBPNG_VER_STRING, this, Fail, [](png_structp, png_const_charp) {});
    info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
      png_destroy_write_struct(&png, nullptr);
      throw base::Error("There is not enough memory for encoding the picture.");
    }
  }
  ~State() { png_destroy_write_struct(&png, &info); }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  template <typename Function>
  void Call(const Function& function) {
    // NOLINTNEXTLINE(cert-err52-cpp): the only way in which libpng reports errors
    if (setjmp(png_jmpbuf(png)) == 0) {
      function();
      return;
    }
    if (thrown)
      std::rethrow_exception(std::exchange(thrown, nullptr));
    throw base::Error(std::string("The picture cannot be encoded: ") + message.data());
  }

  static void Fail(png_structp png, png_const_charp message) {
    auto& kept = static_cast<State*>(png_get_error_ptr(png))->message;
    static_cast<void>(std::snprintf(kept.data(), kept.size(), "%s", message));
    png_longjmp(png, 1);
  }
  static void PassOn(png_structp png, png_bytep bytes, png_size_t size) {
    auto* state = static_cast<State*>(png_get_io_ptr(png));
    if (!state->TryPassOn({reinterpret_cast<const char*>(bytes), size}))
      png_error(png, "the bytes cannot be written");
  }
  bool TryPassOn(std::string_view bytes) noexcept {
    try {
      sink(bytes);
      return true;
    } catch (...) {
      thrown = std::current_exception();
      return false;
    }
  }

  ByteSink sink;
  std::exception_ptr thrown;           ///< by the sink
  std::array<char, 200> message = {};  ///< of libpng
  png_structp png = nullptr;
  png_infop info = nullptr;
};

PngWriter::PngWriter(const QSize& pixels, double dpi, ByteSink sink)
    : state_(std::make_unique<State>(std::move(sink))) {
  const auto width = static_cast<std::uint32_t>(pixels.width());
  const auto height = static_cast<std::uint32_t>(pixels.height());
  const std::uint32_t dots = DotsPerMetre(dpi);
  State& state = *state_;
  state.Call([&] {
    png_set_write_fn(state.png, &state, State::PassOn, [](png_structp) {});
    png_set_filter(state.png, PNG_FILTER_TYPE_BASE, kFilters);
    png_set_compression_level(state.png, kLevel);
    png_set_compression_buffer_size(state.png, kPartSize);
    png_set_IHDR(state.png, state.info, width, height, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_pHYs(state.png, state.info, dots, dots, PNG_RESOLUTION_METER);
    png_write_info(state.png, state.info);
    // A pixel of the picture has the bytes blue, green, red and one that is not used.
    png_set_bgr(state.png);
    png_set_filler(state.png, 0, PNG_FILLER_AFTER);
  });
}

PngWriter::~PngWriter() = default;

void PngWriter::Write(const QImage& rows, int count) {
  Q_ASSERT(rows.format() == QImage::Format_RGB32);
  State& state = *state_;
  state.Call([&] {
    for (int row = 0; row < count; ++row)
      png_write_row(state.png, rows.constScanLine(row));
  });
}

void PngWriter::Finish() {
  State& state = *state_;
  state.Call([&] { png_write_end(state.png, nullptr); });
}

}  // namespace zerbal::paint
