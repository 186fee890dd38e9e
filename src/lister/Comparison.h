// Comparing the items of two folders by name, and by size and date where that is asked for.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwell::lister {

// What a comparison says of an item, always as seen from the list that shows it. Folders are
// compared by name alone. Several may stand together; none of them: the same in both lists.
struct CompareMarks {
  bool OnlyHere : 1 = false;  // the other list has no item of that name and kind
  bool Larger : 1 = false;    // its size differs: it has more bytes here
  bool Smaller : 1 = false;   //   or fewer
  bool Newer : 1 = false;     // its date of last change differs, to the second: later here
  bool Older : 1 = false;     //   or earlier

  bool Any() const { return OnlyHere || Larger || Smaller || Newer || Older; }
  bool operator==(const CompareMarks&) const = default;
};

// One item as a list hands it to others.
struct CompareRecord {
  std::string Name;      // bytes, less the case where the platform has no use for it
  std::string Size;      // bytes in digits; empty for a folder and where it is not known
  std::string Modified;  // whole seconds since 1970 in digits; empty likewise
  // Bit 0: a folder. From bit 8 on what CompareAgainst found.
  std::int32_t State = 0;
};

}  // namespace tarnwell::lister
