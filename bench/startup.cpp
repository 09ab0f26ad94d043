// The time from the first instruction of the program to the first painted map, compared with an empty Qt main
// window. Both run as processes of their own, in turns:
//
//   bench_startup DIR [RUNS]
//
// DIR contains app_data and app_map and is not changed. Prints the medians and their ratio; fails when the
// ratio is above 2.
#include <QApplication>
#include <QMainWindow>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "app/application.h"
#include "app/running_program.h"
#include "dialogs/qt_message_boxes.h"
#include "settings/profile_file.h"

namespace {

using namespace zerbal;
namespace fs = std::filesystem;

constexpr double kAllowedRatio = 2;

/// Ends the process as soon as `window` has been painted.
class EndWhenPainted final : public QObject {
 public:
  explicit EndWhenPainted(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint)
      return false;
    watched->removeEventFilter(this);
    QCoreApplication::sendEvent(watched, event);
    std::_Exit(0);
  }
};

int ShowEmptyWindow(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.resize(1280, 900);
  EndWhenPainted end(window);
  window.show();
  QApplication::exec();
  return 1;
}

int ShowMap(int argc, char** argv) {
  dialogs::QtMessageBoxes boxes;
  app::Application application(argc, argv, boxes);
  app::SystemClock clock;
  app::MersenneRandom random;
  app::RunningProgram program({app::WithSeparator(fs::current_path()), clock, random, boxes});
  if (!program.Start())
    return 1;
  EndWhenPainted end(program.MainWindow().MapWindow());
  QApplication::exec();
  return 1;
}

/// Runs this program again with `part` as its task; returns the seconds until its end.
double SecondsOf(const char* self, const char* part) {
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    ::execl("/proc/self/exe", self, part, nullptr);
    std::_Exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "'%s' failed\n", part);
    std::exit(2);
  }
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

int Compare(const char* self, const fs::path& data, int runs) {
  const fs::path folder = fs::temp_directory_path() / ("zerbal-startup-" + std::to_string(::getpid()));
  fs::create_directory(folder);
  for (const char* name : {"app_data", "app_map"})
    fs::create_directory_symlink(fs::canonical(data) / name, folder / name);
  settings::WriteProfileString(folder / "zerbal.ini", "SplashWindow", "SecondsToShow", "0");
  fs::current_path(folder);
  SecondsOf(self, "map");  // fills the settings file and the computer's caches
  std::vector<double> empty;
  std::vector<double> map;
  for (int i = 0; i < runs; ++i) {
    empty.push_back(SecondsOf(self, "empty"));
    map.push_back(SecondsOf(self, "map"));
  }
  fs::current_path("/");
  fs::remove_all(folder);
  const double ratio = Median(map) / Median(empty);
  std::printf("empty window %.1f ms, first map %.1f ms, ratio %.2f (medians of %d)\n", Median(empty) * 1000,
              Median(map) * 1000, ratio, runs);
  return ratio <= kAllowedRatio ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "empty") == 0)
    return ShowEmptyWindow(argc, argv);
  if (argc == 2 && std::strcmp(argv[1], "map") == 0)
    return ShowMap(argc, argv);
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "Usage: bench_startup DIR [RUNS]\n");
    return 2;
  }
  return Compare(argv[0], argv[1], argc == 3 ? std::max(1, std::atoi(argv[2])) : 15);
}
