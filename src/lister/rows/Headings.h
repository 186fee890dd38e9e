// The heading table of a list: eleven headings, numbered 0 to 10, seven attributes each.
//
// Holds and checks the table; draws nothing and sorts nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Measure.h"
#include "base/Value.h"

namespace tarnwell::lister {

// The numbers of the headings. The name stands in settings files by its number: never renumber.
enum class HeadingId : std::int16_t {
  Name,
  Extension,
  Size,
  DateLastModified,
  DateCreated,
  DateLastAccessed,
  FileType,
  Attributes,
  Comments,
  Path,
  Permissions,
};
inline constexpr int HeadingCount = 11;

// What widths are held to, twips.
inline constexpr base::Twips LeastHeadingWidth = 300;
inline constexpr base::Twips MostHeadingWidth = 30'000;

struct Heading {
  std::string Key;         // sort key, "sName" for the name
  base::Twips Width = 0;   // LeastHeadingWidth to MostHeadingWidth
  std::int16_t Index = 0;  // place from the left, counted from 0 over all eleven
  bool Active = false;     // shown
  std::string MenuName;    // menu entry that switches it; empty if none does
  std::string Caption;
  std::string ToolTip;
};

// What a heading takes in the view's font, twips.
struct HeadingNeeds {
  base::Twips Column = 0;  // caption and a whole cell, whichever is wider
  base::Twips Cell = 0;    // a whole cell
  base::Twips Brief = 0;   // a cell by ListRows::BriefText, where that is another text
};

class Headings {
 public:
  // The table as a new list has it: the name alone for a folder list; name, extension, size and
  // date last modified for a file list.
  explicit Headings(bool fileList);

  // Attributes by the names that settings files use: "key", "Width", "Index", "active",
  // "MenuName", "Caption", "ToolTip", in any case of letters. Throws std::out_of_range for a number
  // or name that does not exist.
  base::Value Property(int heading, std::string_view attribute) const;
  // Throws base::ConversionError for a value of the wrong type and std::out_of_range as above.
  // Widths are held to the limits above; the name cannot be hidden; an index that another
  // heading has makes the two change places, one that none has changes nothing. Key and menu name
  // say which heading it is and stay as they are.
  void SetProperty(int heading, std::string_view attribute, const base::Value& value);

  // The next heading on show to the left or right of that one; -1 at the end.
  int Beside(int heading, bool left) const;
  // Moves the heading one place left or right among those on show; false if it stands at the end,
  // or is not shown.
  bool Move(int heading, bool left);

  // By the names that menus use: "Size", "DateLastModified" and so on; false for an unknown one.
  bool IsActive(std::string_view name) const;

  // Told by the view; all 0 until then.
  void SetNeeds(HeadingId id, const HeadingNeeds& needs);
  const HeadingNeeds& Needs(HeadingId id) const { return needs_[static_cast<std::size_t>(id)]; }
  // The width that the view's font needs, held to the limits above, as long as the heading has the
  // width of a new table, which no font has a say in: settings thus carry a width from one font to
  // another only if somebody chose it.
  base::Twips ShownWidth(HeadingId id) const;
  // Whether the heading is shown: active, or the path while that is lent, which no setting tells.
  bool IsShown(HeadingId id) const {
    return (*this)[id].Active || (LendsPath && id == HeadingId::Path);
  }
  bool LendsPath = false;

  // Whether a cell of a column of that width is to show ListRows::BriefText.
  bool IsBrief(HeadingId id, base::Twips width) const { return width < Needs(id).Cell; }

  // The user has sized a heading: the widths are his. Until then the name takes the room that the
  // other headings leave (ColumnRoom.h).
  bool NameSized = false;
  // The widths of a new table.
  void ResetWidths();

  const Heading& operator[](HeadingId id) const { return table_[static_cast<std::size_t>(id)]; }
  // The heading with that sort key, or none (-1).
  int FindByKey(std::string_view key) const;
  // The headings in order of Index, hidden ones included.
  std::array<HeadingId, HeadingCount> Order() const;

 private:
  std::array<Heading, HeadingCount> table_;
  std::array<HeadingNeeds, HeadingCount> needs_{};
};

}  // namespace tarnwell::lister
