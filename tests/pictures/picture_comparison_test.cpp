// The comparison notices what reference pictures are for, and nothing else.
#include "pictures/picture_comparison.h"

#include <QFont>
#include <QFontDatabase>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "paint/picture_surface.h"
#include "pictures/picture_scenes.h"
#include "pictures/picture_world.h"
#include "support/pictures.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

constexpr QRgb kRed = qRgb(255, 0, 0);

int RedPixels(const QImage& picture) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      count += picture.pixel(x, y) == kRed ? 1 : 0;
  return count;
}

/// The place of a soft pixel of a line: neither the most frequent colour nor a full one.
QPoint SoftPixel(const QImage& picture) {
  const QRgb background = picture.pixel(0, picture.height() - 1);
  for (int y = picture.height() / 3; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const int distance = std::abs(qGreen(picture.pixel(x, y)) - qGreen(background));
      if (distance > 20 && distance < 100)
        return {x, y};
    }
  }
  return {-1, -1};
}

TEST(PictureComparison, NoticesTheSmallestChangeOfOnePixelInEachScene) {
  TempFolder folder;
  WritePictureWorlds(folder.Path());
  for (const PictureScene& scene : kPictureScenes) {
    const QImage picture = DrawScene(scene, 1, false, folder.Path()).picture;
    EXPECT_EQ(ComparePictures(picture, picture, {}).words, "");
    const QPoint place = SoftPixel(picture);
    ASSERT_TRUE(picture.valid(place)) << scene.name;
    QImage changed = picture;
    changed.setPixel(place, picture.pixel(place) ^ 1);
    const PictureDifference difference = ComparePictures(picture, changed, {});
    EXPECT_EQ(difference.words, "1 pixel differs, within columns " + std::to_string(place.x()) + " to " +
                                    std::to_string(place.x()) + " and rows " + std::to_string(place.y()) +
                                    " to " + std::to_string(place.y()))
        << scene.name;
    EXPECT_EQ(RedPixels(difference.picture), 1);
    EXPECT_EQ(difference.picture.pixel(place), kRed);
  }
}

TEST(PictureComparison, NoticesOtherSizesAndMissingPictures) {
  EXPECT_EQ(ComparePictures(Blank(3, 4), Blank(4, 3), {}).words, "the size is 4 x 3 instead of 3 x 4");
  EXPECT_EQ(ComparePictures(QImage(), Blank(4, 3), {}).words, "the size is 4 x 3 instead of 0 x 0");
}

/// A flight number, and a line below it.
class LetterComparison : public testing::Test {
 protected:
  LetterComparison() {
    if (!QFontDatabase::families().contains("Liberation Sans"))
      has_ = false;
  }
  void SetUp() override {
    if (!has_)
      GTEST_SKIP() << "The font is not installed.";
  }

  static QImage Drawn(const char* text, TwipPoint at = {60, 30}) {
    QImage picture = Blank(60, 30);
    paint::PreparedPictures prepared;
    paint::PictureSurface surface(picture, 1, prepared);
    surface.Line({0, 390}, {900, 350}, {.colour = {0, 0, 250}});
    surface.Text(at, text, {0, 0, 0}, {"Liberation Sans", 8});
    return picture;
  }
  static bool Notices(const QImage& other) {
    return !ComparePictures(Drawn("ZB101"), other, {QRect(2, 2, 56, 18)}).words.empty();
  }

 private:
  bool has_ = true;
};

TEST_F(LetterComparison, AcceptsLettersThatAreABitBolderOrLighter) {
  EXPECT_FALSE(Notices(Drawn("ZB101")));
  for (const int percent : {70, 85, 115, 130}) {
    QImage other = Drawn("ZB101");
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < other.width(); ++x) {
        const int ink = std::min((255 - qGreen(other.pixel(x, y))) * percent / 100, 255);
        other.setPixel(x, y, qRgb(255 - ink, 255 - ink, 255 - ink));
      }
    }
    EXPECT_NE(other, Drawn("ZB101"));
    EXPECT_FALSE(Notices(other)) << percent;
  }
}

TEST_F(LetterComparison, AcceptsOtherHinting) {
  QFont font("Liberation Sans");
  for (const auto hinting : {QFont::PreferNoHinting, QFont::PreferVerticalHinting}) {
    QImage other = Drawn("");
    QPainter painter(&other);
    font.setPixelSize(11);
    font.setHintingPreference(hinting);
    painter.setFont(font);
    painter.drawText(4, 2 + 10, "ZB101");
    painter.end();
    EXPECT_FALSE(Notices(other)) << hinting;
  }
}

TEST_F(LetterComparison, NoticesOtherLetters) {
  for (const char* text : {"", "ZB10", "ZB107", "ZB401", "OB101", "ZB101 "})
    EXPECT_EQ(Notices(Drawn(text)), std::string_view(text) != "ZB101 ") << text;
}

TEST_F(LetterComparison, NoticesLettersAtAnotherPlace) {
  for (const TwipPoint at : {TwipPoint{90, 30}, TwipPoint{60, 60}, TwipPoint{30, 30}})
    EXPECT_TRUE(Notices(Drawn("ZB101", at))) << at.x << ", " << at.y;
}

TEST_F(LetterComparison, NoticesAPixelOfALineBesideLetters) {
  QImage other = Drawn("ZB101");
  const QPoint place(30, 25);
  ASSERT_NE(other.pixel(place), qRgb(255, 255, 255));
  other.setPixel(place, other.pixel(place) ^ 1);
  EXPECT_TRUE(Notices(other));
}

}  // namespace
}  // namespace zerbal::test
