#include "lister/rows/ColumnRoom.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace tarnwell::lister {
namespace {

constexpr base::Twips LeastOfText = 900;

constexpr HeadingId GivingWay[] = {
    HeadingId::Extension,        HeadingId::Path,        HeadingId::Comments,
    HeadingId::FileType,         HeadingId::DateCreated, HeadingId::DateLastAccessed,
    HeadingId::DateLastModified,
};

base::Twips WholePixels(base::Twips width) {
  return width - width % base::TwipsPerPixel;
}

base::Twips LeastWidthOf(const Headings& table, HeadingId id) {
  if (id == HeadingId::Extension) return LeastHeadingWidth;
  const base::Twips brief = table.Needs(id).Brief;
  return brief > 0 ? brief : LeastOfText;
}

}  // namespace

ColumnWidths WidthsIn(const Headings& table, base::Twips room) {
  ColumnWidths widths{};
  const auto width = [&widths](HeadingId id) -> base::Twips& {
    return widths[static_cast<std::size_t>(id)];
  };
  for (const HeadingId id : table.Order()) {
    if (table[id].Active) width(id) = WholePixels(table.ShownWidth(id));
  }
  if (table.NameSized) return widths;

  base::Twips& name = width(HeadingId::Name);
  const base::Twips wished = name;
  name = 0;
  const base::Twips others = std::accumulate(widths.begin(), widths.end(), base::Twips{0});
  base::Twips left = WholePixels(std::max<base::Twips>(room, 0)) - others;
  for (const HeadingId id : GivingWay) {
    if (left >= wished) break;
    const base::Twips spare = WholePixels(width(id) - LeastWidthOf(table, id));
    const base::Twips given = std::clamp(wished - left, 0, std::max(spare, 0));
    width(id) -= given;
    left += given;
  }
  name = std::max(left, others == 0 ? LeastHeadingWidth : WholePixels(wished / 2));
  return widths;
}

}  // namespace tarnwell::lister
