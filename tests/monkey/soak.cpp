#include "soak.h"

#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <malloc.h>
#include <unistd.h>

#include "controls.h"
#include "dialogs/guarded.h"
#include "driven_program.h"
#include "support/sanitizer.h"
#include "world_folder.h"

#if ZERBAL_ADDRESS_SANITIZER
// Counts the sanitizer's heap; not every compiler has a header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace zerbal::monkey {
namespace {

/// Growth in bytes that is allowed between middle and end: texts of other lengths, a doubled glyph table.
constexpr long kHeapSlack = 64L * 1024;
#if !ZERBAL_ADDRESS_SANITIZER
constexpr long kResidentSlack = 8L * 1024 * 1024;
#endif

constexpr const char* kViews[] = {"mnuRegWorld",   "mnuRegPart(1)", "mnuZoomIn",     "mnuRegPart(2)",
                                  "mnuRegPart(3)", "mnuZoomIn",     "mnuRegPart(5)", "mnuZoomOut",
                                  "mnuRegPart(6)", "mnuRegPart(7)", "mnuZoomOut",    "mnuFlitFSrv(1)",
                                  "mnuViewCentr",  "mnuFlitLegNr",  "mnuFlitFSrv(2)"};
constexpr const char* kDialogs[] = {"mnuFileUserSett", "mnuFileMapSett",  "mnuFileColoSett",
                                    "mnuViewAprtDeli", "mnuViewDestDeli", "mnuFlitRandFlit",
                                    "mnuFlitSeleFlit", "mnuFlitSeleDest", "mnuHelpRev",
                                    "mnuHelpMous",     "mnuHelpInfo"};

struct Resources {
  long heap = 0;      ///< bytes allocated and not freed
  long resident = 0;  ///< bytes
  long descriptors = 0;
};

Resources CurrentResources() {
  Resources resources;
#if ZERBAL_ADDRESS_SANITIZER
  resources.heap = static_cast<long>(__sanitizer_get_current_allocated_bytes());
#else
  const struct mallinfo2 info = mallinfo2();
  resources.heap = static_cast<long>(info.uordblks + info.hblkhd);
#endif
  long size = 0;
  std::ifstream("/proc/self/statm") >> size >> resources.resident;
  resources.resident *= sysconf(_SC_PAGESIZE);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    resources.descriptors += entry.path().empty() ? 0 : 1;
  return resources;
}

class SoakRun {
 public:
  explicit SoakRun(drive::DrivenProgram& program) : program_(program) {
    close_.setSingleShot(true);
    QObject::connect(&close_, &QTimer::timeout, [this] {
      if (QWidget* dialog = QApplication::activeModalWidget()) {
        ++opened_;
        dialog->close();
      }
    });
  }

  void Redraw(int redraws) {
    const int goal = program_.Draws() + redraws;
    while (program_.Draws() < goal) {
      Choose(kViews[view_++ % std::size(kViews)]);
      ProcessEvents();
    }
  }
  void OpenDialogs(int dialogs) {
    for (; dialogs > 0; --dialogs) {
      close_.start(0);
      Choose(kDialogs[dialog_++ % std::size(kDialogs)]);
      ProcessEvents();
    }
  }
  Resources Print(const char* when) const {
    const Resources resources = CurrentResources();
    std::cout << when << ": " << program_.Draws() << " redraws, " << opened_ << " dialogs; heap "
              << resources.heap << ", resident " << resources.resident << " bytes, " << resources.descriptors
              << " descriptors" << std::endl;
    return resources;
  }
  int Opened() const { return opened_; }

 private:
  /// Does what an event loop does between two actions.
  static void ProcessEvents() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static void Choose(const char* entry) { drive::Find(entry).action->trigger(); }

  drive::DrivenProgram& program_;
  QTimer close_;  ///< closes the dialog that is about to open
  std::size_t view_ = 0;
  std::size_t dialog_ = 0;
  int opened_ = 0;
};

bool HasGrown(const Resources& start, const Resources& middle, const Resources& end) {
  bool hasGrown = end.heap - middle.heap > kHeapSlack || end.descriptors > start.descriptors;
#if !ZERBAL_ADDRESS_SANITIZER
  hasGrown = hasGrown || end.resident - middle.resident > kResidentSlack;
#endif
  return hasGrown;
}

}  // namespace

bool Soak(int redraws, int dialogs) {
  const WorldFolder world;
  std::filesystem::current_path(world.Path());
  drive::DrivenProgram program;
  bool started = false;
  dialogs::Guarded([&] { started = program.Start(); });
  if (!started)
    return false;
  SoakRun run(program);
  // Doing everything twice fills the caches of fonts, glyphs and styles.
  constexpr int kWarmDialogs = 2 * static_cast<int>(std::size(kDialogs));
  run.Redraw(4 * static_cast<int>(std::size(kViews)));
  run.OpenDialogs(kWarmDialogs);
  const Resources start = run.Print("start");
  run.Redraw(redraws / 2);
  run.OpenDialogs(dialogs / 2);
  const Resources middle = run.Print("middle");
  run.Redraw(redraws - redraws / 2);
  run.OpenDialogs(dialogs - dialogs / 2);
  const Resources end = run.Print("end");
  program.MainWindow().close();
  std::filesystem::current_path("/");
  if (run.Opened() != dialogs + kWarmDialogs) {
    std::cout << "FAILED: a dialog did not open\n";
    return false;
  }
  if (HasGrown(start, middle, end)) {
    std::cout << "FAILED: memory or descriptors grow\n";
    return false;
  }
  return true;
}

}  // namespace zerbal::monkey
