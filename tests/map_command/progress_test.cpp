// The progress of a long drawing: when it is shown, and that only terminals get it.
#include "zerbal-map/progress.h"

#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/small_world.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;
using mapcommand::ProgressLine;
using namespace std::chrono_literals;

class ProgressLineTest : public testing::Test {
 protected:
  ProgressLine::Clock Clock() {
    return [this] { return now; };
  }

  ProgressLine::Time now;
  std::ostringstream out;
};

TEST_F(ProgressLineTest, AppearsAfterASecondAndDisappears) {
  {
    ProgressLine line(out, true, Clock());
    now += 990ms;
    line.Show(0.1);
    EXPECT_EQ(out.str(), "");
    now += 10ms;
    line.Show(std::nullopt);
    EXPECT_EQ(out.str(), "\rDrawing the map ...");
    now += 200ms;
    line.Show(0.425);
  }
  EXPECT_EQ(out.str(), "\rDrawing the map ...\rDrawing the map ... 43 %\r" + std::string(24, ' ') + "\r");
}

TEST_F(ProgressLineTest, ChangesAtMostTenTimesASecond) {
  ProgressLine line(out, true, Clock());
  now += 1s;
  line.Show(0.1);
  now += 99ms;
  line.Show(0.2);
  EXPECT_EQ(out.str(), "\rDrawing the map ... 10 %");
  now += 1ms;
  line.Show(0.2);
  EXPECT_EQ(out.str(), "\rDrawing the map ... 10 %\rDrawing the map ... 20 %");
}

TEST_F(ProgressLineTest, IsSilentWhenNotShown) {
  {
    ProgressLine line(out, false, Clock());
    now += 10s;
    line.Show(0.5);
  }
  EXPECT_EQ(out.str(), "");
}

/// Runs the program, stopped for more than a second while it draws.
class LongDrawing {
 public:
  explicit LongDrawing(const fs::path& folder) : folder_(folder) {}

  /// What it writes to its standard error, which is a terminal or a pipe.
  std::string Errors(bool terminal) {
    int reading = -1;
    int writing = -1;
    Open(terminal, reading, writing);
    const pid_t child = ::fork();
    if (child == 0) {
      ::dup2(writing, STDERR_FILENO);
      ::close(reading);
      ::execl(ZERBAL_MAP_PROGRAM, "zerbal-map", "--data", folder_.c_str(), "--size", "8000x6000", "--dpi",
              "700", "--services", "all", "--out", (folder_ / "map.png").c_str(), nullptr);
      ::_exit(127);
    }
    ::close(writing);
    WaitUntilItDraws(child);
    ::kill(child, SIGSTOP);
    std::this_thread::sleep_for(1100ms);
    ::kill(child, SIGCONT);
    std::string errors;
    char part[1000];
    for (ssize_t got = 0; (got = ::read(reading, part, sizeof part)) > 0;)
      errors.append(part, static_cast<std::size_t>(got));
    ::close(reading);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << errors;
    return errors;
  }

 private:
  static void Open(bool terminal, int& reading, int& writing) {
    int ends[2] = {-1, -1};
    if (terminal)
      ASSERT_EQ(::openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr), 0);
    else
      ASSERT_EQ(::pipe(ends), 0);
    reading = ends[0];
    writing = ends[1];
  }
  /// The temporary file is there before anything is drawn.
  void WaitUntilItDraws(pid_t child) const {
    const auto draws = [this] {
      for (const auto& entry : fs::directory_iterator(folder_)) {
        if (entry.path().extension() == ".tmp")
          return true;
      }
      return false;
    };
    while (!draws()) {
      ASSERT_EQ(::waitpid(child, nullptr, WNOHANG), 0) << "ended before it draws";
      std::this_thread::sleep_for(1ms);
    }
  }

  fs::path folder_;
};

TEST(MapCommandProgress, IsShownOnATerminalOnly) {
  TempFolder folder;
  SmallWorld().Write(folder.Path());
  LongDrawing drawing(folder.Path());
  const std::string shown = drawing.Errors(true);
  EXPECT_NE(shown.find("\rDrawing the map ..."), std::string::npos) << shown;
  EXPECT_EQ(shown.back(), '\r') << shown;
  EXPECT_EQ(drawing.Errors(false).find("Drawing"), std::string::npos);
}

}  // namespace
}  // namespace zerbal::test
