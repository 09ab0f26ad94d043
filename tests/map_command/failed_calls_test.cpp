// zerbal-map whose system calls fail: the file is the old or the new one, and nothing else is left.
#include <cerrno>

#include <gtest/gtest.h>

#include "command_fixture.h"
#include "support/failing_calls.h"

namespace zerbal::test {
namespace {

using FailedCallsTest = CommandFixture;

TEST_F(FailedCallsTest, LeaveTheOldOrTheNewFile) {
  for (const char* name : {"map.png", "map.svg", "map.pdf", "routes.geojson", "routes.kml", "routes.gpkg"}) {
    const QStringList words = {"--size", "64x48", "--services", "NOR", "--out", File(name)};
    ASSERT_EQ(Run(words), 0) << errors.str();
    const std::size_t size = ReadBytes(folder / name).size();
    const std::vector<std::string> after = NamesIn(folder.Path());
    int status = 0;
    const auto check = [&](const std::string& failed) {
      // Closing the old file, which was only opened to see whether it can be written, may fail.
      EXPECT_TRUE(status == 1 || failed == "close") << name << ": " << failed;
      if (status != 0) {
        EXPECT_NE(errors.str().find("No space left on device"), std::string::npos) << errors.str();
      }
      const std::string bytes = ReadBytes(folder / name);
      const bool mayBeNew = status == 0 || failed == "flush";
      EXPECT_TRUE((mayBeNew && bytes.size() == size) || (status != 0 && bytes == "old"))
          << name << ": " << failed;
      EXPECT_EQ(NamesIn(folder.Path()), after) << failed;
    };
    EXPECT_GE(FailEachCall(
                  ENOSPC, [&] { WriteBytes(folder / name, "old"); }, [&] { status = Run(words); }, check),
              6);
  }
}

}  // namespace
}  // namespace zerbal::test
