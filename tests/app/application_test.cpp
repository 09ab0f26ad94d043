#include "app/application.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <cstdlib>
#include <iostream>

#include <gtest/gtest.h>

#include "jet/error.h"

namespace zerbal::app {
namespace {

/// Prints boxes on standard error, which a death test reads.
class ToldBoxes final : public settings::MessageBoxes {
 public:
  void Show(settings::BoxIcon icon, const std::string& text) override {
    std::cerr << (icon == settings::BoxIcon::kCritical ? "critical: " : "other: ") << text << std::endl;
  }
};

[[noreturn]] void Fail() {
  throw jet::EngineError("coast.mdb", "wcl", "a page is cut off");
}

Application& TheApplication() {
  return *static_cast<Application*>(QCoreApplication::instance());
}

/// Runs the event loop and exits with its status.
[[noreturn]] void RunAndExit() {
  QTimer::singleShot(10000, [] { std::_Exit(99); });
  std::exit(TheApplication().Run());
}

constexpr char kWords[] = "critical: .*coast.mdb.*wcl.*a page is cut off";

// Each test ends the program, so each runs in a process of its own.
class ErrorDeath : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(ErrorDeath, AnErrorInAnEventEndsTheProgram) {
  EXPECT_EXIT(
      {
        QTimer::singleShot(0, [] { Fail(); });
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), kWords);
}

TEST_F(ErrorDeath, AnErrorInAMenuEntryEndsTheProgram) {
  EXPECT_EXIT(
      {
        QMenu menu;
        QAction* entry = menu.addAction("Fails", [] { Fail(); });
        QTimer::singleShot(0, entry, &QAction::trigger);
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), kWords);
}

TEST_F(ErrorDeath, AnErrorInADialogClosesItAndEndsTheProgram) {
  EXPECT_EXIT(
      {
        QTimer::singleShot(0, [] {
          QDialog dialog;
          QPushButton button("Fails", &dialog);
          QObject::connect(&button, &QPushButton::clicked, [] { Fail(); });
          QMetaObject::invokeMethod(&button, "click", Qt::QueuedConnection);
          dialog.exec();
          std::cerr << "the dialog is gone" << std::endl;
        });
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), "critical: .*\n.*the dialog is gone");
}

TEST_F(ErrorDeath, OnlyTheFirstErrorIsShown) {
  EXPECT_EXIT(
      {
        Application& application = TheApplication();
        EXPECT_FALSE(application.Guard([] { throw std::runtime_error("the first"); }));
        EXPECT_FALSE(application.Guard([] { throw std::runtime_error("the second"); }));
        std::cerr << "end" << std::endl;
        std::exit(5);
      },
      testing::ExitedWithCode(5), "critical: the first\nend");
}

TEST_F(ErrorDeath, AnErrorBeforeTheEventsEndsTheProgramToo) {
  EXPECT_EXIT(
      {
        TheApplication().Guard(Fail);
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), kWords);
}

TEST_F(ErrorDeath, TheHookReplacesTheBox) {
  EXPECT_EXIT(
      {
        TheApplication().SetErrorHook([](const std::string& words) {
          std::cerr << "hook: " << words << std::endl;
          QCoreApplication::exit(3);
        });
        QTimer::singleShot(0, [] { Fail(); });
        RunAndExit();
      },
      testing::ExitedWithCode(3), "hook: .*a page is cut off");
}

TEST_F(ErrorDeath, AThrownValueThatIsNotAnExceptionIsShownToo) {
  EXPECT_EXIT(
      {
        TheApplication().Guard([] { throw 1; });
        std::exit(7);
      },
      testing::ExitedWithCode(7), "critical: An unknown error occurred.");
}

TEST(Application, WorkThatDoesNotThrowIsDone) {
  bool done = false;
  EXPECT_TRUE(TheApplication().Guard([&] { done = true; }));
  EXPECT_TRUE(done);
}

TEST(Application, HasAnIcon) {
  EXPECT_FALSE(QApplication::windowIcon().isNull());
}

}  // namespace
}  // namespace zerbal::app

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  zerbal::app::ToldBoxes boxes;
  zerbal::app::Application application(argc, argv, boxes);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
