#include "app/svg_icon.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <vector>

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

/// By the rule of the Web Content Accessibility Guidelines, from 1 to 21. Below 3 a figure is hard to see.
double Contrast(QColor a, QColor b) {
  const auto luminance = [](QColor colour) {
    const auto linear = [](double c) {
      return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

/// The lowest contrast of an opaque pixel with the background.
double LowestContrast(const QImage& image, QColor background) {
  double lowest = 21;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (const QColor pixel = image.pixelColor(x, y); pixel.alpha() == 255)
        lowest = std::min(lowest, Contrast(pixel, background));
  return lowest;
}

/// Of all buttons of the tool bar.
std::vector<const char*> ButtonPictures() {
  std::vector<const char*> pictures;
  const auto add = [&](std::span<const Command> commands) {
    for (const Command& command : commands) {
      if (command.picture != nullptr)
        pictures.push_back(command.picture);
    }
  };
  for (const MenuDescription& menu : MenuTable())
    add(menu.commands);
  add(WindowCommands());
  return pictures;
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
  const std::vector<const char*> pictures = ButtonPictures();
  for (const char* picture : pictures) {
    const QIcon icon = SvgIcon(picture);
    for (const QColor colour : {QColor(Qt::black), QColor(230, 230, 230)}) {
      SetTextColour(colour);
      EXPECT_GT(PixelsLike(icon.pixmap(24, 24).toImage(), colour), 20) << picture;
    }
  }
  EXPECT_EQ(pictures.size(), 9U);
}

TEST_F(Pictures, OfTheToolBarAreVisibleOnLightAndDarkWindows) {
  const std::pair<QColor, QColor> palettes[] = {{Qt::black, QColor(0xef, 0xef, 0xef)},
                                                {QColor(0xe6, 0xe6, 0xe6), QColor(0x2b, 0x2b, 0x2b)}};
  for (const char* picture : ButtonPictures()) {
    for (const auto& [text, window] : palettes) {
      SetTextColour(text);
      EXPECT_GE(LowestContrast(SvgIcon(picture).pixmap(96, 96).toImage(), window), 3)
          << picture << " on " << window.name().toStdString();
    }
  }
}

TEST_F(Pictures, AreSharpAtTwiceTheResolution) {
  SetTextColour(Qt::black);
  const QPixmap picture = SvgIcon(":/app/zoom_in.svg").pixmap(QSize(24, 24), 2.0);
  EXPECT_EQ(picture.size(), QSize(48, 48));
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
  EXPECT_GT(PixelsLike(picture.toImage(), Qt::black), 100);
}

TEST_F(Pictures, AreDrawnOnceForEachSizeAndLook) {
  SetTextColour(Qt::black);
  const QIcon icon = SvgIcon(":/app/zoom_in.svg");
  const QPixmap picture = icon.pixmap(24, 24);
  EXPECT_EQ(icon.pixmap(24, 24).cacheKey(), picture.cacheKey());
  EXPECT_EQ(icon.pixmap(32, 32).size(), QSize(32, 32));
  EXPECT_NE(icon.pixmap(24, 24, QIcon::Disabled).toImage(), picture.toImage());
  EXPECT_EQ(icon.pixmap(24, 24).toImage(), picture.toImage());
}

TEST_F(Pictures, AMissingFileGivesNoPicture) {
  EXPECT_TRUE(SvgIcon(":/app/nothing.svg").isNull());
}

}  // namespace
}  // namespace zerbal::app
