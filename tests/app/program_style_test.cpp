#include "app/program_style.h"

#include <QIcon>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace zerbal::app {
namespace {

constexpr int kSide = 24;

QImage Drawn(const QIcon& icon) {
  QImage picture(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  icon.paint(&painter, picture.rect());
  return picture;
}

class ProgramStyleTest : public testing::Test {
 protected:
  /// As the desktop's style gives it.
  QIcon Expected(QStyle::StandardPixmap icon) const { return style_.baseStyle()->standardIcon(icon); }
  QIcon Actual(QStyle::StandardPixmap icon) const { return style_.standardIcon(icon); }

  ProgramStyle style_;
};

TEST_F(ProgramStyleTest, GivesTheButtonOfANarrowMenuBarItsPicture) {
  const auto button = QStyle::SP_ToolBarHorizontalExtensionButton;
  const QIcon expected = Expected(button), actual = Actual(button);
  EXPECT_FALSE(actual.isNull());
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
    for (const double ratio : {1.0, 2.0}) {
      const QPixmap picture = actual.pixmap(QSize(kSide, kSide), ratio, mode);
      const QPixmap wanted = expected.pixmap(QSize(kSide, kSide), ratio, mode);
      ASSERT_FALSE(wanted.isNull());
      EXPECT_EQ(picture.deviceIndependentSize(), wanted.deviceIndependentSize());
      EXPECT_EQ(picture.toImage(), wanted.toImage()) << mode << " at " << ratio;
    }
  }
  EXPECT_EQ(Drawn(actual), Drawn(expected));
  const QIcon copy = actual;
  EXPECT_EQ(Drawn(copy), Drawn(expected));
}

TEST_F(ProgramStyleTest, GivesOtherPicturesOfTheDesktopsStyle) {
  for (const auto icon : {QStyle::SP_MessageBoxCritical, QStyle::SP_ToolBarVerticalExtensionButton})
    EXPECT_EQ(Drawn(Actual(icon)), Drawn(Expected(icon))) << icon;
}

}  // namespace
}  // namespace zerbal::app
