// Encodes a picture as PNG, some rows at a time.
#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <string_view>

namespace zerbal::paint {

/// Receives the bytes of a file, part by part, and may throw.
using ByteSink = std::function<void(std::string_view bytes)>;

/// RGB, 8 bits per component. Throws base::Error when the picture cannot be encoded.
class PngWriter {
 public:
  PngWriter(const QSize& pixels, double dpi, ByteSink sink);
  ~PngWriter();
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;

  /// The next `count` rows, the first ones of a picture of format RGB32 and of the same width.
  void Write(const QImage& rows, int count);
  /// After all rows.
  void Finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::paint
