// The main window, settings file and recorded boxes of dialog tests.
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>

#include <gtest/gtest.h>

#include "dialogs/placed_dialog.h"
#include "settings/profile_file.h"
#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::test {

class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    mainWindow.setGeometry(100, 80, 1000, 700);
    mainWindow.show();
  }

  /// The value in the settings file; "(none)" for a missing key.
  std::string Stored(const char* section, const char* key) const {
    return settings::ReadProfileString(folder / "zerbal.ini", section, key, "(none)", 2000);
  }
  void Store(const char* section, const char* key, std::string_view value) const {
    ASSERT_TRUE(settings::WriteProfileString(folder / "zerbal.ini", section, key, value));
  }
  template <class Widget>
  static Widget* Child(QWidget& window, const char* name) {
    auto* child = window.findChild<Widget*>(name);
    if (!child)
      throw std::runtime_error(std::string("no control ") + name);
    return child;
  }
  static void Press(QWidget* widget, int key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      QApplication::sendEvent(widget, &event);
    }
  }
  static void Type(QWidget* widget, const QString& text) {
    for (const QChar letter : text)
      Press(widget, letter.toUpper().unicode(), letter);
  }

  TempFolder folder;
  RecordedBoxes boxes;
  settings::IniFile ini{folder / "zerbal.ini", boxes};
  settings::SaveFlags flags{true, true, false};
  QMainWindow mainWindow;
  dialogs::Placement placement{mainWindow, ini, flags};
};

}  // namespace zerbal::test
