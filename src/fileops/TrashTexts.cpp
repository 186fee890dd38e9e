#include "fileops/TrashTexts.h"

#include <string_view>

#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {
namespace {

using platform::CountedText;
using platform::TrashedItem;

struct StateWords {
  std::string_view Cell;  // in the place of the folder
  std::string_view Note;
};

// By platform::TrashState.
constexpr StateWords WordsOfStates[] = {
    {"", ""},
    {"(unknown: no record)", "There is no record of where this item was"},
    {"(a record without its file)", "Only the record of this item is left, its file is gone"},
    {"(outside its volume)", "The record of this item names a folder outside its volume"},
    {"(unknown: the record is a link)",
     "The record of this item is a symbolic link, which is not followed"},
    {"(unknown: damaged record)", "The record of this item is damaged"},
};

const StateWords& WordsOf(const TrashedItem& item) {
  return WordsOfStates[static_cast<std::size_t>(item.State)];
}

}  // namespace

std::string TrashCellText(const TrashedItem& item, TrashColumn column, const TrashForms& forms) {
  switch (column) {
    case TrashColumn::Name:
      return base::ForDisplay(item.Name);
    case TrashColumn::Folder:
      return platform::CanRestore(item) ? base::ForDisplay(item.Folder)
                                        : std::string(WordsOf(item).Cell);
    case TrashColumn::Deleted:
      return lister::DateText(forms.Numbers, forms.Clock, item.Deleted);
    case TrashColumn::Size:
      return item.IsSizeKnown ? forms.Numbers.Grouped(item.Size) : "";
    case TrashColumn::Type:
      return TrashTypeText(item);
  }
  return "";
}

std::string TrashNote(const TrashedItem& item) {
  if (platform::CanRestore(item)) return "";
  return std::string(WordsOf(item).Note) + ": it cannot be restored, only deleted.";
}

std::string TrashBytesText(const TrashSum& sum, const TrashForms& forms) {
  const std::string bytes = lister::ByteText(forms.Numbers, sum.Bytes);
  return sum.Unmeasured == 0
             ? bytes
             : platform::Counted(forms.Numbers, CountedText::SizeAtLeast, sum.Bytes, {bytes});
}

std::string TrashSumText(const TrashSum& sum, const TrashForms& forms) {
  return platform::Counted(forms.Numbers, CountedText::ItemsOfSize, sum.Items,
                           {TrashBytesText(sum, forms)});
}

std::string TrashTroubleText(const platform::TrashTrouble& trouble) {
  return "The trash " + base::ForDisplay(trouble.Trash) +
         " cannot be read: " + trouble.Reason.Reason + ".";
}

}  // namespace tarnwell::fileops
