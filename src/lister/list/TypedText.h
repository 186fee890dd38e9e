// What the user types to find a row, letter by letter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwell::lister {

class TypedText {
 public:
  // Text that comes within a second of the last one, in milliseconds, is added to it.
  void Add(std::string_view text, std::int64_t now);
  // Takes the last letter back; the next one may follow as if that had been typed now.
  void TakeBack(std::int64_t now);
  void Set(const std::string& text);
  // Makes the text that was ended last the text again, if there is none.
  void Resume();
  bool GoesOn(std::int64_t now) const { return !typed_.empty() && now - last_ < Pause; }

  const std::string& Typed() const { return typed_; }
  // What names are to begin with: what was typed, unless it has been narrowed since.
  const std::string& Wanted() const { return wanted_; }
  // Several times the same letter can mean that letter: it is wanted from now on. False for any
  // other text.
  bool NarrowToLetter();
  // The row with the cursor will do if its name fits; otherwise the search begins behind it.
  bool TakesCurrent() const;

  // Without regard to case.
  static bool Begins(std::string_view name, std::string_view wanted);

 private:
  static constexpr std::int64_t Pause = 1000;

  std::string typed_;
  std::string wanted_;
  std::string ended_;  // what was typed before the text became empty
  std::int64_t last_ = 0;
};

}  // namespace tarnwell::lister
