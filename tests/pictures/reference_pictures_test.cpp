// The pixels of the map, compared with the pictures in tests/pictures/expected.
#include <QFontDatabase>
#include <QImage>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "pictures/picture_comparison.h"
#include "pictures/picture_scenes.h"
#include "pictures/picture_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

const fs::path kExpected = ZERBAL_EXPECTED_PICTURES;
/// Where a failure leaves the new picture and the difference.
const fs::path kNew = ZERBAL_NEW_PICTURES;

std::string FileName(const PictureScene& scene, int scale, bool letters) {
  return std::string(scene.name) + (letters ? "-letters" : "") + "@" + std::to_string(scale) + ".png";
}

QImage Load(const fs::path& file) {
  return QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
}

void Save(const QImage& picture, const fs::path& file) {
  fs::create_directories(file.parent_path());
  constexpr int kSmallest = 0;
  ASSERT_TRUE(picture.save(QString::fromStdString(file.string()), "png", kSmallest)) << file;
}

class ReferencePictures : public testing::Test {
 protected:
  ReferencePictures() { WritePictureWorlds(folder_.Path()); }

  void Check(const PictureScene& scene, int scale, bool letters) {
    const std::string name = FileName(scene, scale, letters);
    const fs::path isNew = kNew / name;
    const fs::path difference = kNew / "differences" / name;
    fs::remove(isNew);
    fs::remove(difference);
    const DrawnScene drawn = DrawScene(scene, scale, letters, folder_.Path());
    const QImage expected = Load(kExpected / name);
    const PictureDifference found = ComparePictures(expected, drawn.picture, drawn.letters);
    if (found.words.empty())
      return;
    Save(drawn.picture, isNew);
    Save(found.picture, difference);
    ADD_FAILURE() << name << ": " << found.words << "\n  new picture: " << isNew.string()
                  << "\n  difference:  " << difference.string()
                  << "\n  If the new pictures are right, tests/pictures/accept takes them over.";
  }

 private:
  TempFolder folder_;
};

TEST_F(ReferencePictures, LinesMarkersAndSymbolsAreAsExpected) {
  for (const PictureScene& scene : kPictureScenes) {
    for (const int scale : kPictureScales)
      Check(scene, scale, false);
  }
}

TEST_F(ReferencePictures, LettersAreAsExpected) {
  if (!QFontDatabase::families().contains("Liberation Sans"))
    GTEST_SKIP() << "The font of the reference pictures is not installed.";
  for (const PictureScene& scene : kLetterScenes) {
    for (const int scale : kPictureScales) {
      Check(scene, scale, false);
      Check(scene, scale, true);
    }
  }
  for (const PictureScene& scene : kPrintLetterScenes) {
    for (const int scale : kPictureScales)
      Check(scene, scale, true);
  }
}

TEST(ReferencePictureFiles, AreThoseOfTheScenesAndSmall) {
  std::set<std::string> names;
  for (const int scale : kPictureScales) {
    for (const PictureScene& scene : kPictureScenes)
      names.insert(FileName(scene, scale, false));
    for (const PictureScene& scene : kLetterScenes) {
      names.insert(FileName(scene, scale, false));
      names.insert(FileName(scene, scale, true));
    }
    for (const PictureScene& scene : kPrintLetterScenes)
      names.insert(FileName(scene, scale, true));
  }
  std::set<std::string> found;
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::directory_iterator(kExpected)) {
    found.insert(entry.path().filename().string());
    bytes += entry.file_size();
  }
  EXPECT_EQ(found, names);
  EXPECT_LT(bytes, 1'000'000U);
}

}  // namespace
}  // namespace zerbal::test
