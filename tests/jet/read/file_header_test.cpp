#include "jet/read/file_header.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"
#include "support/temp_folder.h"

namespace zerbal::jet::test {
namespace {

using testing::HasSubstr;

class FileHeaderTest : public BothFormats {};
ZERBAL_BOTH_FORMATS(FileHeaderTest);

std::string OpeningGives(Bytes bytes) {
  return ReasonOf([&] { Database::FromBytes(std::move(bytes), "x.mdb"); });
}

TEST_P(FileHeaderTest, TellsFormatCodePageAndSortOrder) {
  JetFile file(GetParam());
  file.codePage = 1250;
  file.sortOrder = 0x0407;
  file.sortOrderVersion = 1;
  const Bytes bytes = file.Build();
  const FileHeader header = ReadFileHeader({bytes.data(), bytes.size()});
  EXPECT_EQ(header.format, GetParam());
  EXPECT_EQ(header.codePage, 1250);
  EXPECT_EQ(header.sortOrder.language, 0x0407);
  EXPECT_EQ(header.sortOrder.version, file.IsJet3() ? 0 : 1);
}

TEST_P(FileHeaderTest, RefusesWhatIsNoDatabase) {
  EXPECT_THAT(OpeningGives({}), HasSubstr("empty"));
  EXPECT_THAT(OpeningGives(Raw("a short text")), HasSubstr("not a database"));
  EXPECT_THAT(OpeningGives(Bytes(10000, 'x')), HasSubstr("not a database"));
  Bytes almost = JetFile(GetParam()).Build();
  almost[5] = 'T';
  EXPECT_THAT(OpeningGives(almost), HasSubstr("not a database"));
}

TEST_P(FileHeaderTest, RefusesNewerFormats) {
  Bytes accdb = JetFile(GetParam()).Build();
  const Bytes name = Raw("Standard ACE DB");
  std::copy(name.begin(), name.end(), accdb.begin() + 4);
  EXPECT_THAT(OpeningGives(accdb), HasSubstr("newer"));
  Bytes version = JetFile(GetParam()).Build();
  version[0x14] = 2;
  EXPECT_THAT(OpeningGives(version), HasSubstr("newer"));
}

TEST_P(FileHeaderTest, RefusesAFileCutWithinItsHeaderOrCatalog) {
  const Bytes whole = JetFile(GetParam()).Build();
  for (const std::size_t size :
       {std::size_t{10}, std::size_t{0x90}, std::size_t{2000}, whole.size() / 4, whole.size() / 2}) {
    Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_NE(OpeningGives(cut), "none") << size;
  }
}

TEST(OpenTest, NamesTheFileThatCannotBeOpened) {
  const zerbal::test::TempFolder folder;
  const std::filesystem::path missing = folder.Path() / "missing.mdb";
  try {
    Database::Open(missing);
    FAIL();
  } catch (const EngineError& error) {
    EXPECT_EQ(error.File(), missing.string());
    EXPECT_EQ(error.Table(), "");
    EXPECT_THAT(error.Reason(), HasSubstr("cannot be opened"));
    EXPECT_THAT(error.what(), HasSubstr("missing.mdb"));
  }
  EXPECT_THAT(ReasonOf([&] { Database::Open(folder.Path()); }), HasSubstr("not an ordinary file"));
  std::ofstream(folder.Path() / "empty.mdb").flush();
  EXPECT_THAT(ReasonOf([&] { Database::Open(folder.Path() / "empty.mdb"); }), HasSubstr("empty"));
}

}  // namespace
}  // namespace zerbal::jet::test
