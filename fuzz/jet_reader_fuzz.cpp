// Fuzz target: database files of any bytes.
#include <cstddef>
#include <cstdint>

#include "read_database.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zerbal::fuzz::ReadDatabase({data, data + size});
  return 0;
}
