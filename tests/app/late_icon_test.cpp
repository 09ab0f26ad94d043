#include "app/late_icon.h"

#include <QApplication>
#include <QPixmap>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

#include "app_test.h"

namespace zerbal::app {
namespace {

constexpr QSize kIconSize(16, 16);

bool HasPicture(const QIcon& icon) {
  return !icon.pixmap(kIconSize).isNull();
}

class LateIcon : public testing::Test {
 protected:
  LateIcon() {
    QPixmap picture(kIconSize);
    picture.fill(Qt::red);
    QApplication::setWindowIcon(picture);
  }
  ~LateIcon() override { QApplication::setWindowIcon(before_); }

 private:
  QIcon before_ = QApplication::windowIcon();
};

TEST_F(LateIcon, AWindowIsShownWithoutIcon) {
  QWidget window;
  ShowWithoutIcon(window);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(HasPicture(window.windowIcon()));
  EXPECT_FALSE(HasPicture(window.windowHandle()->icon()));
  EXPECT_TRUE(HasPicture(QApplication::windowIcon()));
  QWidget other;
  EXPECT_TRUE(HasPicture(other.windowIcon()));
}

TEST_F(LateIcon, AWindowGetsItsIconAfterItsContents) {
  QWidget window;
  auto* content = new QWidget(&window);
  content->setGeometry(0, 0, 10, 10);
  ShowWithoutIcon(window);
  SetIconAfterPaint(window, *content);
  EXPECT_FALSE(HasPicture(window.windowIcon()));
  ASSERT_TRUE(QTest::qWaitFor([&] { return HasPicture(window.windowIcon()); }));
  EXPECT_TRUE(HasPicture(window.windowHandle()->icon()));
}

using LateIconOfTheProgram = test::AppTest;

TEST_F(LateIconOfTheProgram, IsThatOfTheApplication) {
  const QIcon before = QApplication::windowIcon();
  QPixmap picture(kIconSize);
  picture.fill(Qt::red);
  QApplication::setWindowIcon(picture);
  ASSERT_TRUE(Start());
  EXPECT_FALSE(HasPicture(Window().windowIcon()));
  EXPECT_TRUE(QTest::qWaitFor([&] { return HasPicture(Window().windowIcon()); }));
  QApplication::setWindowIcon(before);
}

}  // namespace
}  // namespace zerbal::app
