#include "lister/rows/ColumnRoom.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace tarnwell::lister {
namespace {

constexpr base::Twips LeastOfText = 900;

constexpr HeadingId FirstToGive[] = {
    HeadingId::Extension,        HeadingId::Path,        HeadingId::Comments,
    HeadingId::FileType,         HeadingId::DateCreated, HeadingId::DateLastAccessed,
    HeadingId::DateLastModified,
};
constexpr HeadingId LastToGive[] = {
    HeadingId::Size,
    HeadingId::DateCreated,
    HeadingId::DateLastAccessed,
    HeadingId::DateLastModified,
};

base::Twips WholePixels(base::Twips width) {
  return width - width % base::TwipsPerPixel;
}

// As far as their texts stand whole, or can be cut.
base::Twips FirstLeast(const Headings& table, HeadingId id, base::Twips) {
  if (id == HeadingId::Extension) return LeastHeadingWidth;
  const base::Twips brief = table.Needs(id).Brief;
  return brief > 0 ? brief : LeastOfText;
}

// The day stands whole, and so does any size but the largest.
base::Twips LastLeast(const Headings&, HeadingId, base::Twips width) {
  return width * 4 / 5;
}

}  // namespace

ColumnWidths WidthsIn(const Headings& table, base::Twips room) {
  ColumnWidths widths{};
  const auto width = [&widths](HeadingId id) -> base::Twips& {
    return widths[static_cast<std::size_t>(id)];
  };
  for (const HeadingId id : table.Order()) {
    if (table.IsShown(id)) width(id) = WholePixels(table.ShownWidth(id));
  }
  if (table.NameSized) return widths;

  base::Twips& name = width(HeadingId::Name);
  const base::Twips wished = name;
  name = 0;
  base::Twips left = WholePixels(std::max<base::Twips>(room, 0)) -
                     std::accumulate(widths.begin(), widths.end(), base::Twips{0});
  const bool isAlone = left == WholePixels(std::max<base::Twips>(room, 0));
  // The others give up room, in their order, until the name has as much.
  const auto give = [&](const auto& giving, auto leastOf, base::Twips wanted) {
    for (const HeadingId id : giving) {
      const base::Twips spare = WholePixels(width(id) - leastOf(table, id, width(id)));
      const base::Twips given = std::clamp(wanted - left, 0, std::max(spare, 0));
      width(id) -= given;
      left += given;
    }
  };
  const base::Twips least = isAlone ? LeastHeadingWidth : WholePixels(wished * 9 / 20);
  give(FirstToGive, FirstLeast, wished);
  give(LastToGive, LastLeast, least);
  // Of what is found in many folders, both are read.
  if (table.LendsPath && left > wished) {
    const base::Twips shared = WholePixels((left - wished) / 2);
    width(HeadingId::Path) += shared;
    left -= shared;
  }
  name = std::max(left, least);
  return widths;
}

}  // namespace tarnwell::lister
