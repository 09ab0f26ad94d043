// Records message boxes instead of showing them.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "settings/message_boxes.h"

namespace zerbal::test {

struct RecordedBox {
  settings::BoxIcon icon = settings::BoxIcon::kNone;
  std::string text;
  bool operator==(const RecordedBox&) const = default;
};

inline void PrintTo(const RecordedBox& box, std::ostream* stream) {
  *stream << "box with icon " << static_cast<int>(box.icon) << ": " << box.text;
}

class RecordedBoxes : public settings::MessageBoxes {
 public:
  void Show(settings::BoxIcon icon, const std::string& text) override { shown.push_back({icon, text}); }
  std::vector<RecordedBox> shown;
};

}  // namespace zerbal::test
