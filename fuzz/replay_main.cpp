// Runs a fuzz target once for each saved input. Usage: replay_NAME FOLDER...
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
  std::size_t inputs = 0;
  for (int i = 1; i < count; ++i) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[i])) {
      if (!entry.is_regular_file())
        continue;
      std::ifstream stream(entry.path(), std::ios::binary);
      const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
      std::cerr << entry.path().filename().string()
                << '\n';  // before the run, to name the input that crashes
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++inputs;
    }
  }
  std::cerr << inputs << " inputs\n";
  return inputs > 0 ? 0 : 1;  // an empty corpus is an error
}
