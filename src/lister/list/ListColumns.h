// The columns of a list: which headings are shown and how wide, and the order of the rows by them.
// A number that is no heading's changes nothing, unless it says otherwise.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/Measure.h"
#include "base/Value.h"
#include "lister/rows/ColumnRoom.h"
#include "lister/rows/Headings.h"

namespace tarnwell::lister {

class ListBody;
struct ListState;

class ListColumns {
 public:
  ListColumns(ListState& list, ListBody& body) : list_(list), body_(body) {}

  void Click(int heading);  // makes it the active one
  // The heading on show beside the active one becomes that, and is brought into view; at the end it
  // stays.
  void Choose(bool left);
  void MoveActive(bool left);  // one place among those on show
  // Sorts by the heading, with Shift in addition to the others. Ascending; descending if that is
  // how it sorts already.
  void DoubleClick(int heading, bool shift);
  // Shows or hides the heading, whether or not a menu has an entry for it, and raises
  // HeadingsChanged.
  void Toggle(int heading);
  // Attributes, values and what is thrown are those of Headings::SetProperty.
  void Set(int heading, std::string_view attribute, const base::Value& value);
  // Columns whose width nobody chose go by what `needsOf` gives for a cell with that text, and for
  // one with its brief text. To be called by the view, again whenever its font changes.
  using NeedsOf =
      std::function<HeadingNeeds(HeadingId, const std::string& whole, const std::string& brief)>;
  void Fit(const NeedsOf& needsOf);
  // The user has sized a heading of the list, and the columns stand so. A width of 0 changes
  // nothing.
  void TakeWidths(const ColumnWidths& widths);
  // The widths are the list's own affair again.
  void ReleaseWidths();

  // By the active heading: anew, or in addition to the other keys.
  void Sort(bool descending, bool adds);
  // The keys have changed.
  void Resort();

 private:
  ListState& list_;
  ListBody& body_;
};

}  // namespace tarnwell::lister
