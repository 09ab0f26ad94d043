#include "app/application.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <functional>
#include <iostream>

#include <gtest/gtest.h>

#include "app_test.h"
#include "jet/error.h"
#include "jet/mapped_file_guard.h"
#include "support/sanitizer.h"
#include "support/settings_file.h"

#if ZERBAL_ADDRESS_SANITIZER
// Not every compiler has a header for it.
extern "C" int __lsan_do_recoverable_leak_check();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace zerbal::app {
namespace {

using dialogs::ConnectGuarded;
using dialogs::Guarded;

/// Prints boxes on standard error, which a death test reads.
class PrintedBoxes final : public settings::MessageBoxes {
 public:
  void Show(settings::BoxIcon icon, const std::string& text) override {
    std::cerr << (icon == settings::BoxIcon::kCritical ? "critical: " : "other: ") << text << std::endl;
  }
};

[[noreturn]] void Fail() {
  throw jet::EngineError("coast.mdb", "wcl", "a page is cut off");
}

PrintedBoxes printedBoxes;
/// A pointer, because exit(), which ends most tests, must not destroy it.
Application* application = nullptr;

/// Runs the event loop and exits with its status.
[[noreturn]] void RunAndExit() {
  QTimer::singleShot(30000, [] { std::_Exit(99); });
  std::exit(application->Run());
}

constexpr char kWords[] = "critical: .*coast.mdb.*wcl.*a page is cut off";

/// Fails on every complete redraw and on every zoom box.
class FailingSurface final : public map::Surface {
 public:
  void BeginLayer(map::Layer layer) override {
    if (layer == map::Layer::kBackground || layer == map::Layer::kZoomBox)
      Fail();
  }
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint>, const map::Pen&) override {}
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override {}
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override {}
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override {}
};

/// The whole program with its own dialogs, in a folder of its own.
struct WholeProgram {
  WholeProgram() {
    test::DisableSplashWait(folder.Path());
    world.Write(folder.Path());
    program.emplace(Environment{WithSeparator(folder.Path()), clock, random, boxes});
    Guarded([this] { program->Start(); });
    program->MainWindow().MapWindow().SetObserver(&failing);
  }
  QWidget& Map() { return program->MainWindow().MapWindow(); }
  template <class Object>
  Object* Find(const char* name) {
    return program->MainWindow().findChild<Object*>(name);
  }

  test::TempFolder folder;
  test::SmallWorld world;
  SystemClock clock;
  MersenneRandom random;
  PrintedBoxes boxes;
  FailingSurface failing;
  std::optional<RunningProgram> program;
};

/// Searches in a dialog whose database has become unreadable.
void SearchWithoutDatabase(WholeProgram& whole) {
  QTimer::singleShot(0, [&] {
    QWidget* dialog = QApplication::activeModalWidget();
    std::filesystem::resize_file(whole.folder / "app_data" / "qavdata.mdb", 4096);
    QTest::mouseClick(dialog->findChild<QWidget*>("chkCity4Stop"), Qt::LeftButton, {}, QPoint(8, 8));
  });
  whole.Find<QAction>("mnuFlitSeleFlit")->trigger();
  std::cerr << "the dialog is closed" << std::endl;
}

struct Failure {
  const char* where;
  std::function<void(WholeProgram&)> cause;
  const char* words = kWords;
};

void PrintTo(const Failure& failure, std::ostream* stream) {
  *stream << failure.where;
}

const Failure kFailures[] = {
    {"ResizeEvent", [](WholeProgram& whole) { whole.Map().resize(300, 200); }},
    {"MouseEvents",
     [](WholeProgram& whole) {
       QTest::mousePress(&whole.Map(), Qt::LeftButton, {}, whole.Map().rect().center());
       QMouseEvent move(QEvent::MouseMove, QPointF(whole.Map().rect().center()) + QPointF(9, 9), QPointF(),
                        Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
       QApplication::sendEvent(&whole.Map(), &move);
     }},
    {"SlotOfAMenuEntry", [](WholeProgram& whole) { whole.Find<QAction>("mnuViewCentr")->trigger(); }},
    {"SlotOfAToolBarButton",
     [](WholeProgram& whole) { QTest::mouseClick(whole.Find<QWidget>("cmdZoomIn"), Qt::LeftButton); }},
    {"SlotOfACheckBox",
     [](WholeProgram& whole) {
       QTest::mouseClick(whole.Find<QWidget>("chkAprt"), Qt::LeftButton, {}, QPoint(8, 8));
     }},
    {"SlotOfAModalDialog", SearchWithoutDatabase, "critical: .*qavdata.mdb.*\n.*the dialog is closed"},
    {"ConstructorOfADialog",
     [](WholeProgram& whole) {
       std::filesystem::resize_file(whole.folder / "app_data" / "qavdata.mdb", 4096);
       whole.Find<QAction>("mnuFlitSeleDest")->trigger();
     },
     "critical: .*qavdata.mdb"},
    {"EventFilter",
     [](WholeProgram& whole) {
       QTimer::singleShot(0, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept(); });
       whole.program->State().map.display.allAirports = true;  // the dialog is followed by a redraw
       QTest::mouseClick(whole.Find<QWidget>("chkAprt"), Qt::RightButton, {}, QPoint(8, 8));
     }},
};

/// With the sanitizer, ends the process when memory was lost. The sanitizer's own check when a process ends
/// would exit with 1, as an error does.
void ExitIfMemoryWasLost() {
#if ZERBAL_ADDRESS_SANITIZER
  if (__lsan_do_recoverable_leak_check() != 0)
    std::_Exit(98);
#endif
}

// Each test ends the program, so each runs in a process of its own.
class ErrorDeath : public testing::Test {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};
class ErrorInDeath : public ErrorDeath, public testing::WithParamInterface<Failure> {};

int StatusAfter(const Failure& failure) {
  int status = 0;
  {
    WholeProgram whole;
    QTimer::singleShot(30000, application, [] { std::_Exit(99); });
    QTimer::singleShot(0, application, [&] { failure.cause(whole); });
    status = application->Run();
  }
  delete application;
  ExitIfMemoryWasLost();
  return status;
}

TEST_P(ErrorInDeath, EndsTheProgramAndFreesEverything) {
  EXPECT_EXIT(std::exit(StatusAfter(GetParam())), testing::ExitedWithCode(Application::kErrorStatus),
              GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(Failures, ErrorInDeath, testing::ValuesIn(kFailures),
                         [](const auto& failure) { return std::string(failure.param.where); });

TEST_F(ErrorDeath, AnErrorInADialogClosesItAndEndsTheProgram) {
  EXPECT_EXIT(
      {
        QTimer::singleShot(0, [] {
          QDialog dialog;
          QPushButton button("Fails", &dialog);
          ConnectGuarded(&button, &QPushButton::clicked, &dialog, Fail);
          QMetaObject::invokeMethod(&button, "click", Qt::QueuedConnection);
          dialog.exec();
          std::cerr << "the dialog is closed" << std::endl;
        });
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), "critical: .*\n.*the dialog is closed");
}

TEST_F(ErrorDeath, OnlyTheFirstErrorIsShown) {
  EXPECT_EXIT(
      {
        EXPECT_FALSE(Guarded([] { throw std::runtime_error("the first"); }));
        EXPECT_FALSE(Guarded([] { throw std::runtime_error("the second"); }));
        std::cerr << "end" << std::endl;
        std::exit(5);
      },
      testing::ExitedWithCode(5), "critical: the first\nend");
}

TEST_F(ErrorDeath, AnErrorBeforeTheEventsEndsTheProgramToo) {
  EXPECT_EXIT(
      {
        Guarded(Fail);
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), kWords);
}

TEST_F(ErrorDeath, AWindowThatClosesAfterTheErrorDoesNotChangeTheStatus) {
  EXPECT_EXIT(
      {
        QTimer::singleShot(0, [] {
          Guarded(Fail);
          QCoreApplication::exit(0);
        });
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), kWords);
}

TEST_F(ErrorDeath, TheHookReplacesTheBox) {
  EXPECT_EXIT(
      {
        application->SetErrorHook([](const std::string& words) { std::cerr << "hook: " << words; });
        Guarded(Fail);
        std::exit(3);
      },
      testing::ExitedWithCode(3), "hook: .*a page is cut off");
}

TEST_F(ErrorDeath, AThrownValueThatIsNotAnExceptionIsShownToo) {
  EXPECT_EXIT(
      {
        Guarded([] { throw 1; });
        std::exit(7);
      },
      testing::ExitedWithCode(7), "critical: An unknown error occurred.");
}

TEST_F(ErrorDeath, QtOutOfMemoryEndsTheProgram) {
  EXPECT_EXIT(
      {
        QTimer::singleShot(0, [] { throw std::bad_alloc(); });
        RunAndExit();
      },
      testing::ExitedWithCode(Application::kErrorStatus), "critical: std::bad_alloc");
}

#ifdef ZERBAL_ASSERTIONS
TEST_F(ErrorDeath, AHandlerWithoutAGuardFailsAnAssertion) {
  EXPECT_DEATH(
      {
        QTimer::singleShot(0, Fail);
        RunAndExit();
      },
      "assertion failed: .*not guarded");
}
#endif

TEST(Guarded, WorkThatDoesNotThrowIsDone) {
  bool done = false;
  EXPECT_TRUE(Guarded([&] { done = true; }));
  EXPECT_TRUE(done);
}

TEST(ConnectGuarded, ASlotTakesTheArgumentsOfTheSignalOrNone) {
  struct Receiver : QObject {
    void None() { ++calls; }
    void Index(int index) { last = index; }
    int calls = 0;
    int last = -1;
  } receiver;
  QComboBox box;
  int seen = -1;
  int calls = 0;
  ConnectGuarded(&box, &QComboBox::currentIndexChanged, &receiver, &Receiver::None);
  ConnectGuarded(&box, &QComboBox::currentIndexChanged, &receiver, &Receiver::Index);
  ConnectGuarded(&box, &QComboBox::currentIndexChanged, &receiver, [&](int index) { seen = index; });
  ConnectGuarded(&box, &QComboBox::currentIndexChanged, &receiver, [&] { ++calls; });
  box.addItems({"first", "second"});
  box.setCurrentIndex(1);
  EXPECT_EQ(receiver.calls, 2);
  EXPECT_EQ(receiver.last, 1);
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(calls, 2);
}

TEST(Application, HasAnIcon) {
  EXPECT_FALSE(QApplication::windowIcon().isNull());
}

int RunTests(int argc, char** argv) {
  jet::InstallMappedFileGuard();
  application = new Application(argc, argv, printedBoxes);
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  delete application;
  return status;
}

}  // namespace
}  // namespace zerbal::app

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  return zerbal::app::RunTests(argc, argv);
}
