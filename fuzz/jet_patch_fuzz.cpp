// Fuzz target: small valid databases with some bytes changed. Much quicker than whole files as inputs, and
// most inputs pass the checks at the start. The first byte of an input selects the database. Each further
// four are a change: page, position in the page (16 bits), value.
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "jet_samples.h"
#include "read_database.h"

namespace {

using namespace zerbal::fuzz;

struct Sample {
  std::vector<std::uint8_t> bytes;
  std::size_t pageSize = 0;
};

std::vector<Sample> MakeSamples() {
  std::vector<Sample> samples;
  const auto add = [&](Format format, auto&& fill) {
    JetFile file(format);
    fill(file);
    const Bytes bytes = file.Build();
    samples.push_back({{bytes.begin(), bytes.end()}, file.PageSize()});
  };
  for (const Format format : {Format::kJet3, Format::kJet4}) {
    add(format, AddScalars);
    add(format, AddMemos);
    add(format, [](JetFile& file) { AddIndexed(file, 9); });
    add(format, AddPairs);
  }
  return samples;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::vector<Sample> samples = MakeSamples();
  if (size == 0)
    return 0;
  const Sample& sample = samples[data[0] % samples.size()];
  std::vector<std::uint8_t> bytes = sample.bytes;
  const std::size_t pages = bytes.size() / sample.pageSize;
  for (std::size_t at = 1; at + 4 <= size; at += 4) {
    const std::size_t position = data[at + 1] + 256U * data[at + 2];
    bytes[data[at] % pages * sample.pageSize + position % sample.pageSize] = data[at + 3];
  }
  ReadDatabase(std::move(bytes), {.rows = 2, .rowsByIndex = 1});
  return 0;
}
