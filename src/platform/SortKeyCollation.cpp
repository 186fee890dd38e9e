#include "platform/SortKeyCollation.h"

#include <algorithm>
#include <cstring>

#include "base/Text.h"

namespace tarnwell::platform {
namespace {

// Before the weights of what the locale passes over.
constexpr char belowLetters = '\2';
constexpr char behindLetters = '\xff';

bool IsAscii(char letter) {
  return static_cast<unsigned char>(letter) < 0x80;
}

}  // namespace

SortKeyCollation::Weight SortKeyCollation::WeightOf(std::string_view bytes) {
  Weight weight;
  weight.Length = static_cast<std::uint8_t>(bytes.copy(weight.Bytes.data(), weight.Bytes.size()));
  return weight;
}

// The weights of the letters, which no accents and no case change.
std::string SortKeyCollation::FirstLevel(const std::string& text) const {
  std::string key = SystemKey(text);
  const std::size_t end = std::min(key.find(LevelEnd), key.size());
  const bool isAccent = end == 0 && key.size() > 1 && key[1] != LevelEnd;
  key.resize(end);
  if (!key.empty() || isAccent) return key;
  std::size_t position = 0;
  const char32_t first = base::NextCodePoint(text, position);
  key = IsLetter(first) ? behindLetters : belowLetters;
  for (const char byte : text) key += std::max(byte, IsAscii(byte) ? belowLetters : byte);
  return key;
}

void SortKeyCollation::FillTable(bool hasRules) {
  hasRules_ = hasRules;
  for (std::size_t code = 0; code < asciiCount; ++code) {
    const char letter = static_cast<char>(code);
    const std::string text(1, std::max(letter, belowLetters));
    ascii_[code] = WeightOf(hasRules_ ? FirstLevel(text) : text);
  }
  if (!hasRules_) return;
  for (char first = 'a'; first <= 'z'; ++first) {
    for (char second = 'a'; second <= 'z'; ++second) {
      std::string apart;
      AppendAscii({&first, 1}, apart);
      AppendAscii({&second, 1}, apart);
      const std::string together = FirstLevel({first, second});
      if (together != apart) pairs_.push_back({first, second, WeightOf(together)});
    }
  }
  for (const Pair& pair : pairs_) ascii_[static_cast<unsigned char>(pair.First)].StartsPair = true;
}

const SortKeyCollation::Weight* SortKeyCollation::FindPair(char first, char second) const {
  for (const Pair& pair : pairs_) {
    if (pair.First == first && pair.Second == second) return &pair.Weight;
  }
  return nullptr;
}

void SortKeyCollation::AppendAscii(std::string_view text, std::string& key) const {
  std::array<char, 512> weights;
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const Weight* weight = &ascii_[static_cast<unsigned char>(text[at])];
    if (weight->StartsPair && at + 1 < text.size()) {
      if (const Weight* const pair = FindPair(text[at], text[at + 1])) {
        weight = pair;
        ++at;
      }
    }
    if (length + sizeof *weight > weights.size()) {
      key.append(weights.data(), length);
      length = 0;
    }
    std::memcpy(weights.data() + length, weight, sizeof *weight);  // more than it needs, at once
    length += weight->Length;
  }
  key.append(weights.data(), length);
}

void SortKeyCollation::AppendWeights(std::string_view text, std::string& key) const {
  while (!text.empty()) {
    const bool ascii = IsAscii(text.front());
    const auto end = std::ranges::find_if(text, [&](char each) { return IsAscii(each) != ascii; });
    const std::string_view run(text.begin(), end);
    text.remove_prefix(run.size());
    if (ascii) {
      AppendAscii(run, key);
    } else if (hasRules_) {
      key += FirstLevel(std::string(run));
    } else {
      key += run;
    }
  }
}

}  // namespace tarnwell::platform
