#include "print/style_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "print/contrast.h"
#include "support/temp_folder.h"

namespace zerbal::print {
namespace {

using data::Rgb;
using testing::ElementsAre;
using testing::HasSubstr;

PrintStyle Read(std::string_view text) {
  PrintStyle style;
  ReadStyle(text, "my.style", style);
  return style;
}

std::string ErrorOf(std::string_view text) {
  try {
    Read(text);
  } catch (const base::FileError& error) {
    return error.what();
  }
  return "no error";
}

TEST(StyleFile, SetsColoursWidthsAndFonts) {
  const PrintStyle style = Read(
      "; a comment\r\n"
      "[Colors]\r\n"
      "Background = 10, 20,30\n"
      "coast=#0aFf10\n"
      "Land=1,2,3\n"
      "Frequency4=255,0,255\n"
      "[FLIGHTCOLORS]\n"
      "Nor X=7,8,9\n"
      "[Widths]\n"
      "Coast=0.25\n"
      "Flights1=2\n"
      "Flights4=\"12.5\"\n"
      "Airport=6\n"
      "[Contrast]\n"
      "Flights=3\n"
      "[Fonts]\n"
      "Label=Liberation Sans,9\n"
      "Title= Bücher, Serif , 24\n");
  EXPECT_EQ(style.background, (Rgb{10, 20, 30}));
  EXPECT_EQ(style.coast, (Rgb{10, 255, 16}));
  EXPECT_EQ(style.land, (Rgb{1, 2, 3}));
  EXPECT_FALSE(style.water);
  EXPECT_EQ(style.frequency[3], (Rgb{255, 0, 255}));
  EXPECT_THAT(style.services, ElementsAre(testing::Pair("nor x", Rgb{7, 8, 9})));
  EXPECT_DOUBLE_EQ(style.coastWidth, 0.25);
  EXPECT_THAT(style.flightWidths, ElementsAre(2, 2, 3.5, 12.5));
  EXPECT_DOUBLE_EQ(style.airportWidth, 6);
  EXPECT_DOUBLE_EQ(style.contrast, 3);
  EXPECT_EQ(style.label, (map::TextFont{.name = "Liberation Sans", .size = 9}));
  EXPECT_EQ(style.title, (map::TextFont{.name = "Bücher, Serif", .size = 24}));
}

TEST(StyleFile, DerivesColoursFromItsBackground) {
  const PrintStyle style = Read("[Colors]\nFrame=1,2,3\nBackground=0,0,40\n");
  EXPECT_EQ(style.text, (Rgb{255, 255, 255}));
  EXPECT_EQ(style.box, (Rgb{0, 0, 40}));
  EXPECT_EQ(style.frame, (Rgb{1, 2, 3}));
  EXPECT_GE(ContrastOf(style.frequency[3], style.background),
            ContrastOf(style.frequency[0], style.background));
}

TEST(StyleFile, NamesTheLineThatIsNotValid) {
  EXPECT_EQ(ErrorOf("[Colors]\n\nCost=1,2,3\n").substr(0, 65),
            "File 'my.style': line 3: section [Colors] has no 'Cost'; possible");
  EXPECT_THAT(ErrorOf("[Colours]\nCoast=1,2,3\n"), HasSubstr("line 2: there is no section 'Colours'"));
  EXPECT_THAT(ErrorOf("Coast=1,2,3\n"), HasSubstr("line 1: there is no section ''"));
  EXPECT_THAT(ErrorOf("[Widths]\nCoast\n"), HasSubstr("line 2: this is neither a section nor 'key=value'"));
  EXPECT_THAT(ErrorOf("[Widths]\nCoast=1\n\ncoast=2\n"), HasSubstr("line 4: 'coast' is given twice"));
  EXPECT_THAT(ErrorOf("[Widths]\r\rCoast=x\r"), HasSubstr("line 3: 'x' is not a number from 0 to 50"));
}

TEST(StyleFile, RefusesWrongValues) {
  for (const char* value : {"", "1,2", "1,2,3,4", "1,2,256", "1,2,-3", "#12345", "#1234567", "#12345g", "red",
                            "1;2;3", "#-1-1-1", "1.5,2,3"})
    EXPECT_THAT(ErrorOf(std::string("[Colors]\nCoast=") + value), HasSubstr("is no colour")) << value;
  for (const char* value : {"", "-1", "51", "nan", "inf", "1e1", "1,5", "0x10", "1 2"})
    EXPECT_THAT(ErrorOf(std::string("[Widths]\nCoast=") + value), HasSubstr("is not a number")) << value;
  for (const char* value : {"", "Sans", "Sans,", ",8", "Sans,3", "Sans,97", "Sans,8.5", "\xFF,8"})
    EXPECT_THAT(ErrorOf(std::string("[Fonts]\nLabel=") + value), HasSubstr("is no font")) << value;
  EXPECT_THAT(ErrorOf("[Contrast]\nFlights=0.5"), HasSubstr("is not a number from 1 to 21"));
}

TEST(StyleFile, ShortensLongValuesInMessages) {
  EXPECT_LT(ErrorOf("[Colors]\nCoast=" + std::string(100000, '1')).size(), 300U);
}

TEST(StyleFile, MayBeEmptyAndHaveAByteOrderMark) {
  EXPECT_DOUBLE_EQ(Read("").coastWidth, 1);
  EXPECT_DOUBLE_EQ(Read("\xEF\xBB\xBF[Widths]\nCoast=3").coastWidth, 3);
}

TEST(NamedStyle, IsBuiltIn) {
  for (const char* name : {"dark", "print"}) {
    PrintStyle style;
    ReadNamedStyle(name, style);
    EXPECT_EQ(style.text, WithContrast(style.text, style.background, 7)) << name;
    EXPECT_EQ(style.destination, WithContrast(style.destination, style.background, 7)) << name;
    for (const Rgb& colour : style.frequency)
      EXPECT_GE(ContrastOf(colour, style.background), 2) << name;
  }
  EXPECT_FALSE(BuiltInStyle("Dark"));
}

TEST(NamedStyle, IsAFile) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "a.style", "[Widths]\nCoast=4\n");
  PrintStyle style;
  ReadNamedStyle((folder / "a.style").string(), style);
  EXPECT_DOUBLE_EQ(style.coastWidth, 4);
  EXPECT_THROW(ReadNamedStyle((folder / "b.style").string(), style), base::FileError);
  EXPECT_THROW(ReadNamedStyle(folder.Path().string(), style), base::FileError);
  test::WriteBytes(folder / "large.style", std::string((1 << 20) + 1, '\n'));
  EXPECT_THROW(ReadNamedStyle((folder / "large.style").string(), style), base::FileError);
}

TEST(PrintStyle, TakesTheColoursOfTheMapAndGivesThemBack) {
  data::MapStyle map;
  map.colours.rows[static_cast<std::size_t>(data::ColourCode::kMapBg)].rgb = {255, 255, 255};
  map.colours.rows[static_cast<std::size_t>(data::ColourCode::kCoast)].rgb = {1, 2, 3};
  map.fonts[data::FontCode::kLoRes].name = "Map Sans";
  PrintStyle style = StyleOf(map);
  EXPECT_EQ(style.coast, (Rgb{1, 2, 3}));
  EXPECT_EQ(style.text, (Rgb{0, 0, 0}));
  EXPECT_EQ(style.legend.name, "Map Sans");
  style.coast = {4, 5, 6};
  style.contrast = 3;
  style.label = {.name = "Other", .size = 11};
  style.services["b"] = {0, 0, 200};
  data::FlightServiceTable services{{.key = "A", .displayText = {}, .rgb = {255, 255, 0}},
                                    {.key = "B", .displayText = {}, .rgb = {255, 255, 0}}};
  ApplyStyle(style, map, services);
  EXPECT_EQ(map.colours[data::ColourCode::kCoast], (Rgb{4, 5, 6}));
  EXPECT_EQ(map.fonts[data::FontCode::kHiRes].name, "Other");
  EXPECT_EQ(map.fonts[data::FontCode::kLoRes].size, 11);
  EXPECT_EQ(services[0].rgb, WithContrast({255, 255, 0}, {255, 255, 255}, 3));
  EXPECT_EQ(services[1].rgb, (Rgb{0, 0, 200}));
}

}  // namespace
}  // namespace zerbal::print
