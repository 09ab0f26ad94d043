#include "jet/format/key.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/case_folding.h"
#include "jet/format/key_tables.h"

namespace zerbal::jet {
namespace {

using Key = std::vector<std::uint8_t>;

// The first byte of each column of a key.
constexpr std::uint8_t kNullAscending = 0x00;
constexpr std::uint8_t kNullDescending = 0xFF;
constexpr std::uint8_t kValueAscending = 0x7F;
constexpr std::uint8_t kValueDescending = 0x80;

constexpr std::size_t kMaxIndexedText = 255;  // characters; the rest is ignored
constexpr std::size_t kBinaryGroup = 8;
constexpr std::uint8_t kMoreGroups = 9;

void StartValue(bool ascending, Key& key) {
  key.push_back(ascending ? kValueAscending : kValueDescending);
}

void Complement(Key& key, std::size_t from) {
  for (std::size_t i = from; i < key.size(); ++i)
    key[i] = static_cast<std::uint8_t>(~key[i]);
}

void AppendReversed(std::string_view bytes, Key& key) {
  for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte)
    key.push_back(static_cast<std::uint8_t>(*byte));
}

template <typename Text>
Text IndexedPart(Text text) {
  text = text.substr(0, kMaxIndexedText);
  while (!text.empty() && text.back() == ' ')
    text.remove_suffix(1);
  return text;
}

const KeyWeight* FindWeightJet4(char16_t character) {
  if (character < kJet4Weights.size())
    return &kJet4Weights[character];
  const auto entry = std::ranges::lower_bound(kJet4SparseWeights, character, {}, &SparseKeyWeight::character);
  return entry != kJet4SparseWeights.end() && entry->character == character ? &entry->weight : nullptr;
}

// The parts of a 2000-format text key that follow the weights: positions of accents and of characters without
// weight. Positions count characters with weights, at most 255, so arrays of fixed size suffice.
struct Refinements {
  std::uint8_t accents[kMaxIndexedText + 1];
  std::size_t accentCount = 0;
  std::uint8_t hidden[4 * kMaxIndexedText];
  std::size_t hiddenCount = 0;

  void AddAccent(std::size_t position, std::uint8_t accent) {
    while (accentCount < position)
      accents[accentCount++] = 2;
    accents[accentCount++] = accent;
  }

  void AddHidden(std::size_t position, std::uint8_t code) {
    const std::size_t place = 0x8000 | (7 + 4 * position);
    for (std::size_t byte : {place >> 8, place & 0xFF, std::size_t{6}, std::size_t{code}})
      hidden[hiddenCount++] = static_cast<std::uint8_t>(byte);
  }

  void AppendTo(Key& key) {
    while (accentCount > 0 && accents[accentCount - 1] <= 2)
      --accentCount;
    key.push_back(1);
    key.insert(key.end(), accents, accents + accentCount);
    if (hiddenCount > 0) {
      key.insert(key.end(), 3, 1);
      key.insert(key.end(), hidden, hidden + hiddenCount);
    }
    key.push_back(0);
  }
};

// The accents of a 1997-format key have four bits each.
class Nibbles {
 public:
  explicit Nibbles(Key& key) : key_(key) {}

  void Add(std::size_t count, std::uint8_t value) {
    for (std::size_t i = 0; i < count; ++i) {
      if (half_)
        key_.back() = static_cast<std::uint8_t>(key_.back() | value);
      else
        key_.push_back(static_cast<std::uint8_t>(value << 4));
      half_ = !half_;
    }
  }

 private:
  Key& key_;
  bool half_ = false;
};

void AppendAccentsJet3(std::string_view bytes, Key& key) {
  Nibbles nibbles(key);
  std::size_t counted = 0;
  nibbles.Add(1, 0);
  for (char byte : bytes) {
    const KeyWeight& weight = kJet3Weights[static_cast<std::uint8_t>(byte)];
    counted += weight.counted;
    if (weight.accent == 0)
      continue;
    nibbles.Add(counted, 2);
    nibbles.Add(1, weight.accent);
    counted = 0;
  }
  nibbles.Add(1, 0);
}

// The first three groups of a stored GUID are little-endian, those of a key big-endian as in its text.
std::array<char, 16> GuidInTextOrder(std::string_view bytes) {
  std::array<char, 16> guid{};
  std::copy(bytes.begin(), bytes.end(), guid.begin());
  std::reverse(guid.begin(), guid.begin() + 4);
  std::reverse(guid.begin() + 4, guid.begin() + 6);
  std::reverse(guid.begin() + 6, guid.begin() + 8);
  return guid;
}

}  // namespace

bool AppendTextKeyJet4(std::u16string_view utf16, bool ascending, Key& key) {
  const std::size_t start = key.size();
  Refinements refinements;
  std::size_t weighted = 0;
  StartValue(ascending, key);
  for (char16_t character : IndexedPart(utf16)) {
    const KeyWeight* weight = FindWeightJet4(character);
    if (weight == nullptr) {
      key.resize(start);
      return false;
    }
    if (weight->hidden != 0)
      refinements.AddHidden(weighted, weight->hidden);
    if (weight->accent != 0)
      refinements.AddAccent(weighted, weight->accent);
    key.insert(key.end(), weight->bytes, weight->bytes + weight->count);
    weighted += weight->count > 0 ? 1 : 0;
  }
  refinements.AppendTo(key);
  if (!ascending) {
    Complement(key, start + 1);
    key.push_back(0);
  }
  return true;
}

void AppendTextKeyJet3(std::string_view bytes, bool ascending, Key& key) {
  const std::size_t start = key.size();
  const std::string_view text = IndexedPart(bytes);
  bool accented = false;
  StartValue(ascending, key);
  for (char byte : text) {
    const KeyWeight& weight = kJet3Weights[static_cast<std::uint8_t>(byte)];
    key.insert(key.end(), weight.bytes, weight.bytes + weight.count);
    accented = accented || weight.accent != 0;
  }
  if (accented)
    AppendAccentsJet3(text, key);
  else
    key.push_back(0);
  if (!ascending)
    Complement(key, start + 1);
}

bool AppendFixedKey(ColumnType type, std::string_view bytes, bool ascending, Key& key) {
  // The keys of numerics are not known for all values.
  const auto size = static_cast<std::size_t>(SizeOfType(type));
  if (type == ColumnType::kNumeric || size == 0 || bytes.size() != size)
    return false;
  if (type == ColumnType::kGuid) {
    const std::array<char, 16> guid = GuidInTextOrder(bytes);
    AppendBinaryKey({guid.data(), guid.size()}, ascending, key);
    return true;
  }

  StartValue(ascending, key);
  const std::size_t first = key.size();
  AppendReversed(bytes, key);
  switch (type) {
    case ColumnType::kBoolean:
      key[first] = key[first] != 0 ? 0x00 : 0xFF;  // true sorts before false
      break;
    case ColumnType::kByte:
      break;
    case ColumnType::kSingle:
    case ColumnType::kDouble:
    case ColumnType::kDateTime:
      if ((key[first] & 0x80) != 0)
        Complement(key, first);
      else
        key[first] ^= 0x80;
      break;
    default:
      key[first] ^= 0x80;
  }
  if (!ascending)
    Complement(key, first);
  return true;
}

void AppendBinaryKey(std::string_view bytes, bool ascending, Key& key) {
  StartValue(ascending, key);
  for (bool more = true; more;) {
    const std::string_view group = bytes.substr(0, kBinaryGroup);
    bytes.remove_prefix(group.size());
    more = !bytes.empty();
    const std::size_t first = key.size();
    key.insert(key.end(), group.begin(), group.end());
    key.resize(first + kBinaryGroup, 0);
    if (!more)
      key.push_back(static_cast<std::uint8_t>(group.size()));
    if (!ascending)
      Complement(key, first);
    if (more)
      key.push_back(kMoreGroups);
  }
}

void AppendFoldedTextKey(std::string_view text, bool ascending, Key& key) {
  constexpr std::uint8_t kBehindWeights = 0xFE;
  StartValue(ascending, key);
  const std::size_t first = key.size();
  const std::string folded = base::LowerEuropean(text.substr(0, text.find_last_not_of(' ') + 1));
  key.push_back(kBehindWeights);
  key.insert(key.end(), folded.begin(), folded.end());
  key.push_back(0);
  if (!ascending)
    Complement(key, first);
}

void AppendNullKey(bool ascending, Key& key) {
  key.push_back(ascending ? kNullAscending : kNullDescending);
}

}  // namespace zerbal::jet
