// Small SSIM schedule data sets for tests.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::pack::test {

/// Puts `text` into a record from `column` (counted from 1) on.
inline std::string At(std::string record, std::size_t column, std::string_view text) {
  if (record.size() < column - 1 + text.size())
    record.resize(column - 1 + text.size(), ' ');
  return record.replace(column - 1, text.size(), text);
}

inline std::string SsimHeader() {
  return At("1AIRLINE STANDARD SCHEDULE DATA SET", 192, "001");
}

inline std::string SsimCarrierRecord(std::string_view airline = "XY",
                                     std::string_view validity = "28MAR2730OCT27") {
  return At(At(At("2L", 3, airline), 15, validity), 72, "P");
}

/// A daily leg on 1 April to 30 September 2027.
inline std::string SsimLegRecord(std::string_view number, int sequence, std::string_view from,
                                 std::string_view to, int variation = 1) {
  char counts[8];
  std::snprintf(counts, sizeof counts, "%02d%02d", variation, sequence);
  std::string record = At(At("3 XY", 10 - number.size(), number), 10, counts);
  record = At(record, 14, "J01APR2730SEP271234567");
  return At(At(At(record, 37, from), 55, to), 73, "320");
}

/// With serial numbers, a trailer and a line end after each record.
inline std::string SsimFile(const std::vector<std::string>& records, std::string_view lineEnd = "\n") {
  std::string text;
  int serial = 0;
  const auto add = [&](const std::string& record) {
    char number[8];
    std::snprintf(number, sizeof number, "%06d", ++serial);
    text += At(record, 195, number);
    text += lineEnd;
  };
  add(SsimHeader());
  add(SsimCarrierRecord());
  for (const std::string& record : records)
    add(record);
  char reference[8];
  std::snprintf(reference, sizeof reference, "%06dE", serial);
  add(At("5 XY", 188, reference));
  return text;
}

}  // namespace zerbal::pack::test
