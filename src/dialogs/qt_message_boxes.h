// Message boxes on the screen.
#pragma once

#include <string>

#include "settings/message_boxes.h"

namespace zerbal::dialogs {

/// Modal boxes over the topmost dialog, or over the main or splash window, which is activated afterwards.
class QtMessageBoxes final : public settings::MessageBoxes {
 public:
  void Show(settings::BoxIcon icon, const std::string& text) override;
};

}  // namespace zerbal::dialogs
