// The interface of message boxes: on the screen, or recorded by a test.
#pragma once

#include <string>

namespace zerbal::settings {

enum class BoxIcon { kNone, kExclamation, kCritical };

/// The title of every message box.
inline constexpr char kProgramTitle[] = "Zerbal";
/// The line break of every composed message.
inline constexpr char NL[] = "\r\n";

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  /// Shows a box with an OK button and waits until it is pressed. `text` is UTF-8 with NL as line break.
  virtual void Show(BoxIcon icon, const std::string& text) = 0;
};

}  // namespace zerbal::settings
