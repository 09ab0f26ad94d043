#include "paint/map_file.h"

#include <string>

#include <gtest/gtest.h>

#include "base/error.h"

namespace zerbal::paint {
namespace {

/// A red line across a white map.
void DrawLine(map::Surface& surface) {
  surface.Clear({255, 255, 255});
  const TwipPoint points[] = {{0, 150}, {600, 150}};
  surface.Polyline(points, {.colour = {255, 0, 0}});
}

TEST(MapFile, TheEndingOfTheNameTellsTheKind) {
  EXPECT_EQ(KindOfMapFile("a.png"), MapFileKind::kPng);
  EXPECT_EQ(KindOfMapFile("a.b.SVG"), MapFileKind::kSvg);
  EXPECT_EQ(KindOfMapFile("/folder.png/a.Pdf"), MapFileKind::kPdf);
  for (const char* name : {"", "png", "a.jpg", "a.png.gz", "/folder.png/a"})
    EXPECT_EQ(KindOfMapFile(name), std::nullopt) << name;
}

TEST(MapFile, APngHasThePixelsAndTheResolution) {
  QByteArray bytes;
  WritePng(
      {80, 40}, 192, DrawLine,
      [&](std::string_view part) { bytes.append(part.data(), static_cast<qsizetype>(part.size())); },
      [](double) {});
  const QImage picture = QImage::fromData(bytes, "png").convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(picture.pixel(3, 20), qRgb(255, 0, 0));
  EXPECT_EQ(picture.pixel(3, 30), qRgb(255, 255, 255));
  EXPECT_EQ(picture.dotsPerMeterX(), 7559);
  EXPECT_EQ(PngOf(picture, 192), bytes);
}

TEST(MapFile, AnSvgHasTheLogicalSizeAsItsView) {
  const std::string svg = SvgOf({40, 20}, DrawLine).toStdString();
  EXPECT_NE(svg.find("<svg width=\"10.5833mm\" height=\"5.29167mm\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("viewBox=\"0 0 320 160\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("#ff0000"), std::string::npos) << svg;
  EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
}

/// The drawing operators of a PDF file, which are its first compressed part.
std::string OperatorsOf(const QByteArray& pdf) {
  const qsizetype begin = pdf.indexOf("stream\n") + 7;
  const char size[] = {0, 1, 0, 0};
  return qUncompress(QByteArray(size, 4) + pdf.mid(begin, pdf.indexOf("endstream") - begin)).toStdString();
}

TEST(MapFile, APdfIsDrawnInEighthsOfALogicalPixel) {
  const std::string operators = OperatorsOf(PdfOf({96, 48}, DrawLine));
  EXPECT_NE(operators.find("\n0.093750000 0 0 -0.093750000 0 36 cm\n"), std::string::npos) << operators;
  EXPECT_NE(operators.find("\n0 0 768 384 re\n"), std::string::npos) << operators;
  EXPECT_NE(operators.find("\n8 w "), std::string::npos) << operators;
  EXPECT_NE(operators.find("\n0 80 m\n320 80 l\n"), std::string::npos) << operators;
}

TEST(MapFile, APdfHasOnePageOfTheLogicalSize) {
  const std::string pdf = PdfOf({96, 48}, DrawLine).toStdString();
  EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
  EXPECT_NE(pdf.find("/MediaBox [0 0 72"), std::string::npos);
  EXPECT_EQ(pdf.substr(pdf.size() - 6), "%%EOF\n");
}

TEST(MapFile, APictureThatIsTooLargeIsAnError) {
  const auto ignore = [](std::string_view) {};
  EXPECT_THROW(WritePng({1 << 30, 1}, 96, DrawLine, ignore, [](double) {}), base::Error);
}

}  // namespace
}  // namespace zerbal::paint
