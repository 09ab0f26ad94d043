#include "base/case_folding.h"

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(AsciiCase, FoldsOnlyTheLettersAToZ) {
  EXPECT_EQ(LowerAscii("App_DATA [Z] Ä"), "app_data [z] Ä");
  EXPECT_EQ(LowerAscii('Q'), 'q');
  EXPECT_TRUE(EqualsIgnoringAsciiCase("MainWindow", "mAINwINDOW"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("a", "ab"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("[", "{"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("\xC4", "\xE4"));
}

TEST(EuropeanCase, FoldsLatinGreekAndCyrillicLetters) {
  EXPECT_TRUE(EqualsIgnoringEuropeanCase("Col_Entry", "COL_ENTRY"));
  EXPECT_TRUE(EqualsIgnoringEuropeanCase("ÄÖÜŽ", "äöüž"));
  EXPECT_TRUE(EqualsIgnoringEuropeanCase("Жук", "жУК"));
  EXPECT_TRUE(EqualsIgnoringEuropeanCase("ΑΩ Ё", "αω ё"));
  EXPECT_FALSE(EqualsIgnoringEuropeanCase("a", "ab"));
  EXPECT_FALSE(EqualsIgnoringEuropeanCase("ab", "a"));
  EXPECT_FALSE(EqualsIgnoringEuropeanCase("×", "÷"));
  EXPECT_FALSE(EqualsIgnoringEuropeanCase("[", "{"));
  EXPECT_EQ(LowerEuropean("Grün ŸŁ"), "grün ÿł");
  EXPECT_EQ(LowerEuropean("ĀāĶķĹĺŇňŊŋŶŷŹźŽž"), "āāķķĺĺňňŋŋŷŷźźžž");
  EXPECT_EQ(LowerEuropean("Þßÿĸŉſ ΐΑΩΪ ЏАЯа"), "þßÿĸŉſ ΐαωΪ џаяа");
  EXPECT_EQ(LowerEuropean("@AZ[ ¿À"), "@az[ ¿à");
  EXPECT_EQ(LowerEuropean("A\xFF"), "a\xEF\xBF\xBD");
}

}  // namespace
}  // namespace zerbal::base
