// What the writer does with permissions and on a full disk.
#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "jet/database.h"
#include "jet/error.h"
#include "jet/writer.h"
#include "support/database_builder.h"
#include "support/engine_error.h"
#include "support/temp_folder.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;
using test::ReasonOf;
namespace fs = std::filesystem;

class WriterOnPosix : public testing::Test {
 protected:
  fs::path File() const { return folder_ / "one.mdb"; }
  std::size_t FilesInFolder() const { return NamesIn(folder_.Path()).size(); }

  TempFolder folder_;
};

TEST_F(WriterOnPosix, GivesTheFileTheUsualPermissions) {
  const mode_t old = umask(022);
  WriteDatabase(File(), {});
  umask(old);
  EXPECT_EQ(fs::status(File()).permissions(), static_cast<fs::perms>(0644));
}

/// While it lives no file may grow beyond `bytes`: what a full disk looks like.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &old_);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit old_{};
  void (*handler_)(int) = nullptr;
};

TEST_F(WriterOnPosix, ReportsADiskThatIsFullWheneverThatIs) {
  WriteBytes(File(), "an older file");
  const Table table{"t", {Long("a"), Memo("m")}, {Index("i", "a")}, {{1, std::string(20000, 'x')}, {2, "y"}}};
  int failures = 0;
  for (rlim_t pages = 0; pages < 40; ++pages) {
    std::string reason;
    {
      // Ends within a page, too.
      const FileSizeLimit limit(pages * 4096 + pages % 2 * 1000);
      reason = ReasonOf([&] { WriteDatabase(File(), {table}); });
    }
    if (reason == "none")
      break;
    ++failures;
    EXPECT_NE(reason.find("cannot "), std::string::npos) << reason;
    EXPECT_EQ(ReadBytes(File()), "an older file");
    EXPECT_EQ(FilesInFolder(), 1u);
  }
  EXPECT_GT(failures, 16);
  EXPECT_TRUE(Database::Open(File()).HasTable("t"));
}

TEST_F(WriterOnPosix, ReportsADiskThatIsFullWhilePairsAreAdded) {
  const FileSizeLimit limit(40000);
  DatabaseWriter writer(File());
  writer.BeginTable({"points", {Long("Lon"), Long("Lat")}, {}});
  const std::string reason = ReasonOf([&] {
    for (int i = 0; i < 5000; ++i)
      writer.AddPair(i, i);
  });
  EXPECT_TRUE(reason.starts_with("cannot write the file: ")) << reason;
}

}  // namespace
}  // namespace zerbal::jet
