#include "base/LetterCase.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/LetterCaseTables.h"

namespace tarnwell::base {
namespace {

// Each name of a list comes through here letter by letter: so the ranges are spread out, when this
// is compiled, into a page for each 256 code points that hold letters with two cases.
class CaseMap {
 public:
  constexpr explicit CaseMap(std::span<const CaseRange> ranges) {
    std::uint8_t pageCount = 1;  // the first page is for all others
    for (const CaseRange& range : ranges) {
      for (char32_t letter = range.First; letter <= range.Last; letter += range.Step) {
        std::uint8_t& page = pages_[letter / PageSize];
        if (page == 0) page = pageCount++;
        offsets_[page][letter % PageSize] = range.Offset;
      }
    }
  }

  char32_t operator[](char32_t codePoint) const {
    if (codePoint >= End) return codePoint;
    const std::int32_t offset = offsets_[pages_[codePoint / PageSize]][codePoint % PageSize];
    return codePoint + static_cast<char32_t>(offset);
  }

 private:
  // What lies beyond these limits does not compile.
  static constexpr std::size_t PageSize = 256;
  static constexpr std::size_t MostPages = 32;
  static constexpr char32_t End = 0x20000;

  std::array<std::uint8_t, End / PageSize> pages_{};
  std::array<std::array<std::int32_t, PageSize>, MostPages> offsets_{};
};

constexpr CaseMap Capitals(ToCapital);
constexpr CaseMap Smalls(ToSmall);

}  // namespace

char32_t CapitalLetter(char32_t codePoint) {
  return Capitals[codePoint];
}

char32_t SmallLetter(char32_t codePoint) {
  return Smalls[codePoint];
}

}  // namespace tarnwell::base
