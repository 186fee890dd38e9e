// The order of letters by the sort keys of a system.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Collation.h"

namespace tarnwell::platform {

// Takes the weights from the system's keys. Those of ASCII characters, by far the most, are looked
// up in a table made at the start, as are the pairs of letters that a language counts as one ("ch"
// in Czech); longer groups, and groups with letters beyond ASCII, go letter by letter. What a
// language passes over (punctuation as a rule) counts here, below digits and letters; letters that
// it does not know come behind those that it does.
class SortKeyCollation : public Collation {
 public:
  // Whether there are rules; without them the weights are the bytes.
  bool HasRules() const { return hasRules_; }
  void AppendWeights(std::string_view text, std::string& key) const override;

 protected:
  // Ends the weights of one level in a key: letters, then accents, then case.
  static constexpr char LevelEnd = '\1';

  // To be called before all else, once SystemKey answers.
  void FillTable(bool hasRules);

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
    SortKeyCollation::Weight Weight;
  };

  // The weights of all levels. The text has no NUL.
  virtual std::string SystemKey(const std::string& text) const = 0;
  virtual bool IsLetter(char32_t codePoint) const = 0;

  static Weight WeightOf(std::string_view bytes);
  std::string FirstLevel(const std::string& text) const;
  void AppendAscii(std::string_view text, std::string& key) const;
  const Weight* FindPair(char first, char second) const;

  bool hasRules_ = false;
  std::array<Weight, asciiCount> ascii_{};
  std::vector<Pair> pairs_;
};

}  // namespace tarnwell::platform
