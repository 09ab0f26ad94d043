#include "print/print_file.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include "print/print_list.h"
#include "print/print_painter.h"
#include "support/pictures.h"

namespace zerbal::print {
namespace {

constexpr data::Rgb kWhite{255, 255, 255};
constexpr data::Rgb kRed{255, 0, 0};
constexpr data::Rgb kGreen{0, 160, 0};
const map::TextFont kFont{"Liberation Sans", 8};

QImage Png(QSize size, double dpi, const DrawPrintOn& draw) {
  QByteArray bytes;
  WritePrintPng(
      size, dpi, draw,
      [&](std::string_view part) { bytes.append(part.data(), static_cast<qsizetype>(part.size())); },
      [](double) {});
  return QImage::fromData(bytes, "png").convertToFormat(QImage::Format_RGB32);
}

/// A square of 20 logical pixels at 10, 10, with a hole of 10 in its middle.
std::vector<Ring> SquareWithHole() {
  return {{{150, 150}, {450, 150}, {450, 450}, {150, 450}}, {{225, 225}, {375, 225}, {375, 375}, {225, 375}}};
}

TEST(PrintFile, AnAreaIsFilledButForItsHoles) {
  const QImage picture = Png({40, 40}, 96, [](PrintSurface& surface) {
    surface.Clear(kWhite);
    surface.Fill(SquareWithHole(), kRed);
  });
  EXPECT_EQ(picture.pixel(12, 12), qRgb(255, 0, 0));
  EXPECT_EQ(picture.pixel(20, 20), qRgb(255, 255, 255));
  EXPECT_EQ(test::InkBounds(picture), QRect(10, 10, 20, 20));
}

TEST(PrintFile, AreasThatShareAnEdgeHaveNoGap) {
  // The edge is in the middle of a column of pixels.
  const std::vector<Ring> rings{{{0, 0}, {308, 0}, {308, 600}, {0, 600}},
                                {{308, 0}, {600, 0}, {600, 600}, {308, 600}}};
  const QImage picture = Png({40, 40}, 96, [&](PrintSurface& surface) {
    surface.Clear(kWhite);
    surface.Fill(rings, kRed);
  });
  for (int x = 0; x < 40; ++x)
    EXPECT_EQ(picture.pixel(x, 20), qRgb(255, 0, 0)) << x;
}

TEST(PrintFile, OperationsAreDrawnInTheirOrder) {
  const QImage picture = Png({40, 40}, 96, [](PrintSurface& surface) {
    surface.Clear(kWhite);
    const TwipPoint line[] = {{0, 180}, {600, 180}};
    surface.Polyline(line, {.colour = kGreen});
    surface.Fill(SquareWithHole(), kRed);
    const TwipPoint down[] = {{180, 0}, {180, 600}};
    surface.Polyline(down, {.colour = kGreen});
  });
  EXPECT_EQ(picture.pixel(5, 12), qRgb(0, 160, 0));
  EXPECT_EQ(picture.pixel(15, 12), qRgb(255, 0, 0));
  EXPECT_EQ(picture.pixel(12, 15), qRgb(0, 160, 0));
}

TEST(PrintFile, StrokesHaveTheirWidthAndDashes) {
  const QImage picture = Png({80, 40}, 192, [](PrintSurface& surface) {
    surface.Clear(kWhite);
    const TwipPoint line[] = {{0, 150}, {600, 150}};
    surface.Stroke(line, {.colour = kRed, .width = 4, .dashes = {10, 10}});
  });
  const QRect ink = test::InkBounds(picture);
  EXPECT_NEAR(ink.height(), 8, 1);
  EXPECT_EQ(picture.pixel(10, 20), qRgb(255, 0, 0));
  EXPECT_EQ(picture.pixel(30, 20), qRgb(255, 255, 255));
  EXPECT_EQ(picture.pixel(50, 20), qRgb(255, 0, 0));
}

TEST(PrintFile, AHaloSurroundsTheLetters) {
  const auto draw = [](std::optional<data::Rgb> halo) {
    return Png({60, 30}, 96, [halo](PrintSurface& surface) {
      surface.Clear({0, 0, 200});
      surface.StyledText({150, 150}, "OSL", {.font = kFont, .colour = {0, 0, 0}, .halo = halo});
    });
  };
  const QRect letters = test::InkBounds(draw(std::nullopt), qRgb(0, 0, 200));
  const QRect halo = test::InkBounds(draw(kWhite), qRgb(0, 0, 200));
  EXPECT_TRUE(halo.contains(letters.adjusted(-1, -1, 1, 1)));
  EXPECT_TRUE(letters.adjusted(-3, -3, 3, 3).contains(halo));
}

TEST(PrintFile, ATextIsAsLargeAsMeasured) {
  for (const double dpi : {96.0, 192.0, 300.0}) {
    TextSize size;
    const double scale = dpi / 96;
    const QImage picture =
        Png(QSize(qRound(100 * scale), qRound(40 * scale)), dpi, [&](PrintSurface& surface) {
          surface.Clear(kWhite);
          size = surface.Measure("Aqj OSL", kFont);
          surface.StyledText({150, 150}, "Aqj OSL", {.font = kFont});
        });
    const QRect ink = test::InkBounds(picture);
    const double twips = scale / kTwipsPerPixel;
    EXPECT_LE(ink.right() + 1, (150 + size.width) * twips + 1);
    EXPECT_GE(ink.right() + 1, (150 + size.width) * twips - 3 * scale);
    EXPECT_LE(ink.bottom() + 1, (150 + size.height) * twips + 1);
    EXPECT_GE(ink.bottom() + 1, (150 + size.height) * twips - 3 * scale);
  }
}

void DrawMuch(PrintSurface& surface) {
  surface.Clear(kWhite);
  std::vector<Ring> rings = SquareWithHole();
  rings.push_back({{-300, 4'000}, {700, -200}, {900, 9'000}, {650, 3'000}, {620, 9'100}, {20, 8'000}});
  surface.Fill(rings, {200, 220, 180});
  for (int y = 0; y < 9'000; y += 433) {
    const TwipPoint line[] = {{10, y}, {400, y + 777}, {610, y - 100}};
    surface.Stroke(line, {.colour = kRed, .width = 2.5, .dashes = {3, 2}});
    surface.Stroke(line, {.colour = kGreen, .width = 1.3});
    const TwipPoint corners[] = {{700, y}, {720, y + 2'000}, {900, y + 10}, {905, y - 3'000}, {1'100, y}};
    surface.Stroke(corners, {.colour = kRed, .width = 0.75});
    surface.Stroke(corners, {.colour = kGreen, .width = 7});
    surface.Polyline(line, {.colour = {0, 0, 0}});
    surface.StyledText({200, y}, "OSL 12", {.font = kFont, .colour = {0, 0, 90}, .halo = kWhite});
  }
}

TEST(PrintFile, APngOfSeveralBandsHasThePixelsOfTheWholePicture) {
  for (const auto& [size, dpi] :
       {std::pair(QSize(4'000, 600), 96.0), std::pair(QSize(2'500, 1'200), 200.0)}) {
    QImage whole(size, QImage::Format_RGB32);
    {
      PrintPicture::Tools tools(dpi / 96);
      PrintPicture surface(whole, {0, size.height()}, dpi / 96, tools);
      DrawMuch(surface);
    }
    const QImage banded = Png(size, dpi, DrawMuch);
    for (int y = 0; y < size.height(); ++y)
      for (int x = 0; x < 200; ++x)
        ASSERT_EQ(banded.pixel(x, y), whole.pixel(x, y)) << x << ", " << y << " at " << dpi;
  }
}

TEST(PrintFile, AnSvgHasAreasStrokesAndTexts) {
  const std::string svg = PrintSvgOf({40, 40}, [](PrintSurface& surface) {
                            surface.Clear(kWhite);
                            surface.Fill(SquareWithHole(), kRed);
                            const TwipPoint line[] = {{0, 150}, {600, 150}};
                            surface.Stroke(line, {.colour = kGreen, .width = 4, .dashes = {10, 10}});
                            surface.StyledText({150, 150}, "OSL", {.font = kFont, .halo = kWhite});
                          }).toStdString();
  EXPECT_NE(svg.find("evenodd"), std::string::npos) << svg;
  EXPECT_NE(svg.find("#ff0000"), std::string::npos) << svg;
  EXPECT_NE(svg.find("stroke-dasharray"), std::string::npos) << svg;
  EXPECT_NE(svg.find(">OSL</text>"), std::string::npos) << svg;
}

TEST(PrintFile, AHaloOfAnSvgIsAsWideAsItsText) {
  TextSize size;
  const QString svg = PrintSvgOf({100, 40}, [&](PrintSurface& surface) {
    size = surface.Measure("OSL OSL", kFont);
    surface.StyledText({150, 150}, "OSL OSL", {.font = kFont, .halo = data::Rgb{1, 2, 3}});
  });
  // The outlines of the letters, in eighths of a pixel.
  const qsizetype path = svg.indexOf("<path", svg.indexOf("#010203"));
  ASSERT_GE(path, 0) << svg.toStdString();
  static const QRegularExpression place("[MLC ](-?[\\d.]+),-?[\\d.]+");
  double left = 1e9;
  double right = -1e9;
  auto places = place.globalMatch(svg.mid(path, svg.indexOf("/>", path) - path));
  while (places.hasNext()) {
    const double x = places.next().captured(1).toDouble() / 8 * kTwipsPerPixel;
    left = std::min(left, x);
    right = std::max(right, x);
  }
  EXPECT_NEAR(left, 150, 20);
  EXPECT_NEAR(right, 150 + size.width, 20);
}

TEST(PrintFile, APdfHasOnePage) {
  const std::string pdf = PrintPdfOf({96, 48}, DrawMuch).toStdString();
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/MediaBox [0 0 72"), std::string::npos);
}

}  // namespace
}  // namespace zerbal::print
