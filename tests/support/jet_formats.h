// Tests that run over both file formats.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "jet/database.h"

namespace zerbal::jet::test {

class BothFormats : public testing::TestWithParam<Format> {};

inline std::string FormatName(const testing::TestParamInfo<Format>& info) {
  return info.param == Format::kJet3 ? "Jet3" : "Jet4";
}

}  // namespace zerbal::jet::test

/// Instantiates the tests of `suite`, a class derived from BothFormats, for each format.
#define ZERBAL_BOTH_FORMATS(suite)                                                                      \
  INSTANTIATE_TEST_SUITE_P(Formats, suite,                                                              \
                           testing::Values(::zerbal::jet::Format::kJet3, ::zerbal::jet::Format::kJet4), \
                           ::zerbal::jet::test::FormatName)
