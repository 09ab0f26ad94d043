#include "base/temporary_files.h"

#include <csignal>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/file_replacement.h"
#include "support/failing_file_steps.h"
#include "support/temp_folder.h"

namespace zerbal::base {
namespace {

using Files = std::vector<std::string>;

TEST(TemporaryFiles, AreRemovedBeforeASignalEndsTheProcess) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "b", "old");
    EXPECT_EQ(test::InChild([&] {
                std::signal(signal, SIG_DFL);
                RemoveTemporaryFilesOnSignals();
                FileReplacement a(folder / "a"), b(folder / "b"), c(folder / "c");
                b.Write("new");
                c.Commit();
                if (test::NamesIn(folder.Path()).size() != 4)
                  return 1;
                std::raise(signal);
                return 2;
              }),
              -signal);
    EXPECT_EQ(test::NamesIn(folder.Path()), (Files{"b", "c"}));
    EXPECT_EQ(test::ReadBytes(folder / "b"), "old");
  }
}

TEST(TemporaryFiles, StayWhenTheProcessIgnoresTheSignal) {
  const test::TempFolder folder;
  EXPECT_EQ(test::InChild([&] {
              std::signal(SIGHUP, SIG_IGN);
              RemoveTemporaryFilesOnSignals();
              FileReplacement file(folder / "a");
              std::raise(SIGHUP);
              file.Commit();
              return 0;
            }),
            0);
  EXPECT_EQ(test::NamesIn(folder.Path()), Files{"a"});
}

TEST(TemporaryFiles, MayBeMany) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "a", "");
  test::WriteBytes(folder / "b", "");
  const std::string a = (folder / "a").string(), b = (folder / "b").string();
  EXPECT_EQ(test::InChild([&] {
              std::signal(SIGTERM, SIG_DFL);
              RemoveTemporaryFilesOnSignals();
              {
                std::vector<TemporaryFileMark> marks(1000);
                for (TemporaryFileMark& many : marks)
                  many.Set(b.c_str());
              }
              TemporaryFileMark mark;
              mark.Set(a.c_str());
              std::raise(SIGTERM);
              return 0;
            }),
            -SIGTERM);
  EXPECT_EQ(test::NamesIn(folder.Path()), Files{"b"});
}

}  // namespace
}  // namespace zerbal::base
