// Writes the first inputs of fuzz_jet to a folder: small files of both formats with every kind of structure.
// Usage: jet_seeds FOLDER
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "jet_samples.h"

namespace {

using namespace zerbal::fuzz;

void Save(const std::filesystem::path& file, const Bytes& bytes) {
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

void AddThirtyRows(JetFile& file) {
  AddIndexed(file, 30);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2)
    return 2;
  const std::filesystem::path folder = argv[1];
  for (const Format format : {Format::kJet3, Format::kJet4}) {
    const std::string suffix = format == Format::kJet3 ? "-1997" : "-2000";
    const auto save = [&](const std::string& name, void (*add)(JetFile&)) {
      JetFile file(format);
      add(file);
      Save(folder / (name + suffix), file.Build());
    };
    save("scalars", AddScalars);
    save("memos", AddMemos);
    save("indexed", AddThirtyRows);
    save("pairs", AddPairs);
    JetFile file(format);
    file.codePage = 932;  // has characters of two bytes in the 1997 format
    AddThirtyRows(file);
    Save(folder / ("encoded" + suffix), Encoded(file.Build(), file.PageSize(), 0x12345678));
  }
  return 0;
}
