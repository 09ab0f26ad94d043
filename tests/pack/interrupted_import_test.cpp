// `zerbal-pack import` as a process of its own that a signal ends while its files are written.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "pack/ssim_lines.h"
#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::SsimFile;
using test::SsimLegRecord;
using zerbal::test::NamesIn;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

class InterruptedImport : public testing::Test {
 protected:
  InterruptedImport() {
    WriteBytes(folder_ / "a.csv",
               "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,IATA\n"
               "EAAA,Alpha,Alpha,-9.1,38.7,374,1,12162,1,AAA\n"
               "EBBB,Bravo,Bravo,12.5,-3.25,0,2,8000,0,BBB\n");
    fs::create_directory(Output());
    WriteBytes(Output() / "flights.csv", "old");
  }

  fs::path Output() const { return folder_ / "o"; }

  /// Starts the program, with `prepare` in its process before.
  template <typename Prepare>
  pid_t Start(const Prepare& prepare) const {
    const std::string input = (folder_ / "s.ssim").string(), airports = (folder_ / "a.csv").string();
    const std::string output = Output().string();
    const pid_t child = ::fork();
    if (child == 0) {
      prepare();
      ::execl(ZERBAL_PACK_PROGRAM, "zerbal-pack", "import", "--from", "ssim", input.c_str(), "--airports",
              airports.c_str(), "--out", output.c_str(), static_cast<char*>(nullptr));
      ::_exit(127);
    }
    return child;
  }

  bool HasTemporaryFiles() const {
    const std::vector<std::string> names = NamesIn(Output());
    return std::ranges::any_of(names, [](const std::string& name) { return name.starts_with(".zerbal-"); });
  }

  static int StatusOf(pid_t child) {
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
  }

  TempFolder folder_;
};

/// Opens a pipe as soon as somebody reads it, and writes `text`.
void Feed(const fs::path& pipe, const std::string& text) {
  const int file = ::open(pipe.c_str(), O_WRONLY);
  ASSERT_GE(file, 0);
  EXPECT_EQ(::write(file, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  ::close(file);
}

TEST_F(InterruptedImport, LeavesNoTemporaryFile) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ASSERT_EQ(::mkfifo((folder_ / "s.ssim").c_str(), 0600), 0);
    const pid_t child = Start([=] { std::signal(signal, SIG_DFL); });  // ignored in the background
    // What is left out is read a second time when the files are written: there the program waits.
    Feed(folder_ / "s.ssim",
         SsimFile({SsimLegRecord("101", 1, "AAA", "BBB"), SsimLegRecord("7", 1, "AAA", "QPX")}));
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!HasTemporaryFiles() && std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    EXPECT_TRUE(HasTemporaryFiles());
    ::kill(child, signal);
    const int status = StatusOf(child);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
    EXPECT_EQ(NamesIn(Output()), std::vector<std::string>{"flights.csv"});
    fs::remove(folder_ / "s.ssim");
  }
  EXPECT_EQ(zerbal::test::ReadBytes(Output() / "flights.csv"), "old");
}

TEST_F(InterruptedImport, ReportsAFileThatGrowsTooLarge) {
  std::vector<std::string> records;
  for (int number = 1; number <= 200; ++number)
    records.push_back(SsimLegRecord(std::to_string(number), 1, "AAA", "BBB"));
  WriteBytes(folder_ / "s.ssim", SsimFile(records));
  const int status = StatusOf(Start([] {
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }));
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
  EXPECT_EQ(NamesIn(Output()), std::vector<std::string>{"flights.csv"});
  EXPECT_EQ(zerbal::test::ReadBytes(Output() / "flights.csv"), "old");
}

}  // namespace
}  // namespace zerbal::pack
