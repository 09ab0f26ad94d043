#include <cerrno>
#include <string>

#include <iconv.h>

#include "jet/format/code_page.h"

namespace zerbal::jet {
namespace {

/// Conversion from a code page by the C library.
class Converter {
 public:
  explicit Converter(std::uint16_t number)
      : handle_(iconv_open("UTF-16LE", ("CP" + std::to_string(number)).c_str())) {}
  ~Converter() {
    if (Known())
      iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool Known() const {
    // The value that iconv_open returns on failure. NOLINTNEXTLINE(performance-no-int-to-ptr)
    return handle_ != iconv_t(-1);
  }

  enum class Result { kCharacter, kIncomplete, kNone };
  Result Convert(std::string bytes, char16_t& character) {
    std::array<char, 8> out = {};
    char* from = bytes.data();
    char* to = out.data();
    std::size_t left = bytes.size();
    std::size_t room = out.size();
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &from, &left, &to, &room) == kFailed)
      return errno == EINVAL ? Result::kIncomplete : Result::kNone;
    // Letters that may combine with a following accent are only output by a call without input.
    if (iconv(handle_, nullptr, nullptr, &to, &room) == kFailed || out.size() - room != 2)
      return Result::kNone;
    character = LoadU16(reinterpret_cast<const std::uint8_t*>(out.data()));
    return Result::kCharacter;
  }

 private:
  static constexpr auto kFailed = static_cast<std::size_t>(-1);
  iconv_t handle_;
};

}  // namespace

bool CodePage::Load(std::uint16_t number) {
  Converter converter(number);
  if (!converter.Known())
    return false;
  for (int byte = 0; byte < 256; ++byte) {
    const char first = static_cast<char>(byte);
    char16_t& single = singles_[static_cast<std::size_t>(byte)];
    single = static_cast<char16_t>(byte);  // undefined bytes become control characters
    if (converter.Convert({first}, single) != Converter::Result::kIncomplete)
      continue;
    single = static_cast<char16_t>(kLead + trails_.size());
    Characters& trails = trails_.emplace_back();
    trails.fill(kReplacement);
    for (int next = 0; next < 256; ++next)
      converter.Convert({first, static_cast<char>(next)}, trails[static_cast<std::size_t>(next)]);
  }
  return true;
}

}  // namespace zerbal::jet
