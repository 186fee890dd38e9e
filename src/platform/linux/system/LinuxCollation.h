// The order of letters by the locale of the process.
#pragma once

#include <array>
#include <clocale>
#include <cstdint>
#include <vector>

#include "platform/Collation.h"

namespace tarnwell::platform {

// Takes the weights from the system's collation. Those of ASCII characters, by far the most, are
// looked up in a table made at the start, as are the pairs of letters that a language counts as
// one ("ch" in Czech); longer groups, and groups with letters beyond ASCII, go letter by letter.
// What a locale passes over (punctuation as a rule) counts here, below digits and letters; letters
// that it does not know come behind those that it does. In locales without rules of their own, or
// that are no UTF-8, the weights are the bytes.
class LinuxCollation : public Collation {
 public:
  // Takes a locale's name; the empty one means the user's choice. An unknown one has no rules.
  explicit LinuxCollation(const char* locale = "");
  LinuxCollation(const LinuxCollation&) = delete;
  LinuxCollation& operator=(const LinuxCollation&) = delete;
  ~LinuxCollation() override;

  bool HasRules() const { return locale_ != nullptr; }
  void AppendWeights(std::string_view text, std::string& key) const override;

 private:
  static constexpr std::size_t asciiCount = 128;

  // Eight bytes, so that one move copies it.
  struct Weight {
    std::array<char, 6> Bytes{};
    std::uint8_t Length = 0;
    bool StartsPair = false;
  };
  struct Pair {
    char First;
    char Second;
    platform::LinuxCollation::Weight Weight;
  };

  static Weight WeightOf(std::string_view bytes);
  std::string FirstLevel(const std::string& text) const;
  void FillTable();
  void AppendAscii(std::string_view text, std::string& key) const;
  const Weight* FindPair(char first, char second) const;

  locale_t locale_ = nullptr;
  std::array<Weight, asciiCount> ascii_{};
  std::vector<Pair> pairs_;
};

}  // namespace tarnwell::platform
