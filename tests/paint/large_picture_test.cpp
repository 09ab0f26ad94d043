#include "paint/large_picture.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace zerbal::paint {
namespace {

TEST(LargePicture, HasTheSizeAndHoldsPixels) {
  for (const QSize size :
       {QSize(1, 1), QSize(511, 512), QSize(512, 512), QSize(1280, 900), QSize(3001, 701)}) {
    QImage picture = LargePicture(size);
    ASSERT_EQ(picture.size(), size);
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    picture.fill(qRgb(1, 2, 3));
    EXPECT_EQ(picture.pixel(size.width() - 1, size.height() - 1), qRgb(1, 2, 3));
  }
}

TEST(LargePicture, ACopyLivesOnWithoutIt) {
  QImage copy;
  {
    QImage picture = LargePicture({1000, 800});
    picture.fill(qRgb(4, 5, 6));
    copy = picture;
    picture.fill(qRgb(7, 8, 9));
    EXPECT_EQ(picture.pixel(999, 799), qRgb(7, 8, 9));
  }
  EXPECT_EQ(copy.pixel(999, 799), qRgb(4, 5, 6));
}

TEST(LargePicture, BeginsAtAHugePage) {
  const QImage picture = LargePicture({1280, 900});
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(picture.constBits()) % (std::uintptr_t{2} << 20), 0U);
}

TEST(LargePicture, IsNullWhenThatIsImpossible) {
  EXPECT_TRUE(LargePicture({0, 5}).isNull());
  EXPECT_TRUE(LargePicture({5, -1}).isNull());
  EXPECT_TRUE(LargePicture({1 << 30, 1}).isNull());
}

}  // namespace
}  // namespace zerbal::paint
