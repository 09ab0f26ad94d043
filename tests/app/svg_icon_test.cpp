#include "app/svg_icon.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QSvgRenderer>
#include <cmath>

#include <gtest/gtest.h>

#include "app/commands.h"

namespace zerbal::app {
namespace {

/// The number of nearly opaque pixels with about this colour.
int PixelsLike(const QImage& image, QColor colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor pixel = image.pixelColor(x, y);
      count += pixel.alpha() > 200 && std::abs(pixel.red() - colour.red()) < 30 &&
               std::abs(pixel.green() - colour.green()) < 30 && std::abs(pixel.blue() - colour.blue()) < 30;
    }
  }
  return count;
}

class Pictures : public testing::Test {
 protected:
  void TearDown() override { QApplication::setPalette(original_); }
  void SetTextColour(QColor colour) {
    QPalette palette = original_;
    palette.setColor(QPalette::ButtonText, colour);
    QApplication::setPalette(palette);
  }
  const QPalette original_ = QApplication::palette();
};

TEST_F(Pictures, AreAllVectorGraphics) {
  const QDir folder(":/app");
  EXPECT_GE(folder.entryList().size(), 10);
  for (const QString& name : folder.entryList())
    EXPECT_TRUE(QSvgRenderer(folder.filePath(name)).isValid()) << name.toStdString();
}

TEST_F(Pictures, OfTheToolBarUseThePalette) {
  int pictures = 0;
  for (const MenuDescription& menu : MenuTable()) {
    for (const Command& command : menu.commands) {
      if (command.picture == nullptr)
        continue;
      ++pictures;
      const QIcon icon = SvgIcon(command.picture);
      for (const QColor colour : {QColor(Qt::black), QColor(230, 230, 230)}) {
        SetTextColour(colour);
        EXPECT_GT(PixelsLike(icon.pixmap(24, 24).toImage(), colour), 20) << command.picture;
      }
    }
  }
  EXPECT_EQ(pictures, 8);
}

TEST_F(Pictures, AreSharpAtTwiceTheResolution) {
  SetTextColour(Qt::black);
  const QPixmap picture = SvgIcon(":/app/zoom_in.svg").pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(picture.size(), QSize(48, 48));
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
  EXPECT_GT(PixelsLike(picture.toImage(), Qt::black), 100);
}

TEST_F(Pictures, AMissingFileGivesNoPicture) {
  EXPECT_TRUE(SvgIcon(":/app/nothing.svg").isNull());
}

}  // namespace
}  // namespace zerbal::app
