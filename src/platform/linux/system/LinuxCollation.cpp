#include "platform/linux/system/LinuxCollation.h"

#include <langinfo.h>

#include <algorithm>
#include <cstring>
#include <cwctype>
#include <string>

#include "base/Text.h"

namespace tarnwell::platform {
namespace {

// The system's keys hold the weights of several levels (letters, then accents, then case), with
// this byte between the levels.
constexpr char levelEnd = '\1';

// Before the weights of what the locale passes over.
constexpr char belowLetters = '\2';
constexpr char behindLetters = '\xff';

std::string SystemKey(const std::string& text, locale_t locale) {
  std::string key(text.size() * 8 + 64, '\0');
  std::size_t length = strxfrm_l(key.data(), text.c_str(), key.size(), locale);
  if (length >= key.size()) {
    key.resize(length + 1);
    length = strxfrm_l(key.data(), text.c_str(), key.size(), locale);
  }
  key.resize(length);
  return key;
}

bool IsAscii(char letter) {
  return static_cast<unsigned char>(letter) < 0x80;
}

}  // namespace

LinuxCollation::LinuxCollation(const char* locale)
    : locale_(newlocale(LC_COLLATE_MASK | LC_CTYPE_MASK, locale, nullptr)) {
  if (locale_ != nullptr && (std::strcmp(nl_langinfo_l(CODESET, locale_), "UTF-8") != 0 ||
                             SystemKey("a", locale_).find(levelEnd) == std::string::npos)) {
    freelocale(locale_);
    locale_ = nullptr;
  }
  FillTable();
}

LinuxCollation::~LinuxCollation() {
  if (locale_ != nullptr) freelocale(locale_);
}

LinuxCollation::Weight LinuxCollation::WeightOf(std::string_view bytes) {
  Weight weight;
  weight.Length = static_cast<std::uint8_t>(bytes.copy(weight.Bytes.data(), weight.Bytes.size()));
  return weight;
}

// The weights of the letters, which no accents and no case change.
std::string LinuxCollation::FirstLevel(const std::string& text) const {
  std::string key = SystemKey(text, locale_);
  const std::size_t end = std::min(key.find(levelEnd), key.size());
  const bool isAccent = end == 0 && key.size() > 1 && key[1] != levelEnd;
  key.resize(end);
  if (!key.empty() || isAccent) return key;
  std::size_t position = 0;
  const char32_t first = base::NextCodePoint(text, position);
  const bool isLetter = iswalpha_l(static_cast<wint_t>(first), locale_) != 0;
  key = isLetter ? behindLetters : belowLetters;
  for (const char byte : text) key += std::max(byte, IsAscii(byte) ? belowLetters : byte);
  return key;
}

void LinuxCollation::FillTable() {
  for (std::size_t code = 0; code < asciiCount; ++code) {
    const char letter = static_cast<char>(code);
    const std::string text(1, std::max(letter, belowLetters));
    ascii_[code] = WeightOf(HasRules() ? FirstLevel(text) : text);
  }
  if (!HasRules()) return;
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

const LinuxCollation::Weight* LinuxCollation::FindPair(char first, char second) const {
  for (const Pair& pair : pairs_) {
    if (pair.First == first && pair.Second == second) return &pair.Weight;
  }
  return nullptr;
}

void LinuxCollation::AppendAscii(std::string_view text, std::string& key) const {
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

void LinuxCollation::AppendWeights(std::string_view text, std::string& key) const {
  while (!text.empty()) {
    const bool ascii = IsAscii(text.front());
    const auto end = std::ranges::find_if(text, [&](char each) { return IsAscii(each) != ascii; });
    const std::string_view run(text.begin(), end);
    text.remove_prefix(run.size());
    if (ascii) {
      AppendAscii(run, key);
    } else if (HasRules()) {
      key += FirstLevel(std::string(run));
    } else {
      key += run;
    }
  }
}

}  // namespace tarnwell::platform
