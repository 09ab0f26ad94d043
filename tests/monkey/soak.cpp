#include "soak.h"

#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <malloc.h>
#include <unistd.h>

#include "controls.h"
#include "driven_program.h"
#include "support/sanitizer.h"
#include "world.h"

#if ZERBAL_ADDRESS_SANITIZER
// The sanitizer's own count; not every compiler has a header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT(bugprone-reserved-identifier)
#endif

namespace zerbal::monkey {
namespace {

/// What middle and end may differ by: texts of other lengths, a table of glyphs that was doubled.
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

struct Holding {
  long heap = 0;      ///< bytes allocated and not freed
  long resident = 0;  ///< bytes
  long descriptors = 0;
};

Holding Present() {
  Holding holding;
#if ZERBAL_ADDRESS_SANITIZER
  holding.heap = static_cast<long>(__sanitizer_get_current_allocated_bytes());
#else
  const struct mallinfo2 info = mallinfo2();
  holding.heap = static_cast<long>(info.uordblks + info.hblkhd);
#endif
  long size = 0;
  std::ifstream("/proc/self/statm") >> size >> holding.resident;
  holding.resident *= sysconf(_SC_PAGESIZE);
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
    holding.descriptors += entry.path().empty() ? 0 : 1;
  return holding;
}

class Session {
 public:
  explicit Session(drive::DrivenProgram& program) : program_(program) {
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
      TidyUp();
    }
  }
  void OpenDialogs(int dialogs) {
    for (; dialogs > 0; --dialogs) {
      close_.start(0);
      Choose(kDialogs[dialog_++ % std::size(kDialogs)]);
      TidyUp();
    }
  }
  Holding Show(const char* when) const {
    const Holding holding = Present();
    std::cout << when << ": " << program_.Draws() << " redraws, " << opened_ << " dialogs; heap "
              << holding.heap << ", resident " << holding.resident << " bytes, " << holding.descriptors
              << " descriptors" << std::endl;
    return holding;
  }
  int Opened() const { return opened_; }

 private:
  /// What an event loop does between two actions.
  static void TidyUp() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static void Choose(const char* entry) { drive::Find(entry).action->trigger(); }

  drive::DrivenProgram& program_;
  QTimer close_;  ///< the dialog that is about to open
  std::size_t view_ = 0;
  std::size_t dialog_ = 0;
  int opened_ = 0;
};

bool Grew(const Holding& start, const Holding& middle, const Holding& end) {
  bool grew = end.heap - middle.heap > kHeapSlack || end.descriptors > start.descriptors;
#if !ZERBAL_ADDRESS_SANITIZER
  grew = grew || end.resident - middle.resident > kResidentSlack;
#endif
  return grew;
}

}  // namespace

bool Soak(app::Application& application, int redraws, int dialogs) {
  const World world;
  std::filesystem::current_path(world.Path());
  drive::DrivenProgram program;
  bool started = false;
  application.Guard([&] { started = program.Start(); });
  if (!started)
    return false;
  Session session(program);
  // Twice everything fills the caches of fonts, glyphs and styles.
  constexpr int kWarmDialogs = 2 * static_cast<int>(std::size(kDialogs));
  session.Redraw(4 * static_cast<int>(std::size(kViews)));
  session.OpenDialogs(kWarmDialogs);
  const Holding start = session.Show("start");
  session.Redraw(redraws / 2);
  session.OpenDialogs(dialogs / 2);
  const Holding middle = session.Show("middle");
  session.Redraw(redraws - redraws / 2);
  session.OpenDialogs(dialogs - dialogs / 2);
  const Holding end = session.Show("end");
  program.MainWindow().close();
  std::filesystem::current_path("/");
  if (session.Opened() != dialogs + kWarmDialogs) {
    std::cout << "FAILED: a dialog did not open\n";
    return false;
  }
  if (Grew(start, middle, end)) {
    std::cout << "FAILED: it grows\n";
    return false;
  }
  return true;
}

}  // namespace zerbal::monkey
