// Names made by a pattern, for many items at once.
//
// What stands in braces is a field, all else stands as it is; "{{" and "}}" are braces. Fields:
//
//   {name}          the name without its extension
//   {ext}           the extension; where there is none, a dot right ahead of the field goes too
//   {part 2-5}      characters of {name}, counted from 1; {part 3-} to the end, {part -2-} the last
//                   two
//   {counter}       a number that goes up from item to item
//   {parent}        the name of the folder that holds the item
//   {date} {time}   of the last change, as 2026-11-22 and 14-30-05; also {year} {month} {day}
//                   {hour} {minute} {second}
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"

namespace tarnwell::fileops {

struct NameCounter {
  std::int64_t Start = 1;
  std::int64_t Step = 1;
  int Digits = 1;  // at least, with zeros in front
};

// What a name can be made of.
struct NameSubject {
  std::string Name;
  std::string Parent = {};  // name of the folder
  bool IsFolder = false;    // has no extension
  platform::LocalTime Modified = {};
};

class NamePattern {
 public:
  // Why the text is no pattern, as a sentence, and where: the byte at which it begins.
  struct Fault {
    std::string Text;
    std::size_t At = 0;
  };

  // Takes the pattern over, unless it is none; then the one before stays.
  bool Read(std::string_view text, Fault& fault);

  // The name of the item with that number, from 0 on. Any bytes: it may be no name at all.
  std::string NameOf(const NameSubject& subject, const NameCounter& counter,
                     std::size_t number) const;
  // Whether NameOf looks at the time.
  bool UsesTime() const;

 private:
  enum class Field : std::uint8_t {
    Text,
    Name,
    Extension,
    Part,
    Counter,
    Parent,
    Date,  // from here on they are of the time
    Time,
    Year,
    Month,
    Day,
    Hour,
    Minute,
    Second,
  };
  struct Piece {
    Field Kind = Field::Text;
    std::string Text;
    int First = 1;  // of Part: characters, below 0 from the end
    int Last = -1;
  };
  struct Row;
  static const Row Rows[];

  static bool ReadField(std::string_view inside, Piece& piece);
  static bool ReadPart(std::string_view range, Piece& piece);
  static std::string TextOf(const Piece& piece, const NameSubject& subject,
                            const NameCounter& counter, std::size_t number);

  std::vector<Piece> pieces_;
};

// Where the extension begins, its dot included; the end of the name where there is none. A dot at
// the very start or end begins no extension.
std::size_t ExtensionStart(std::string_view name, bool isFolder);

}  // namespace tarnwell::fileops
