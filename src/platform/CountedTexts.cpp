#include "platform/CountedTexts.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tarnwell::platform {
namespace {

// English has two forms. For a language with more of them the rows get as many columns, and FormOf
// tells them apart:
// https://www.unicode.org/cldr/charts/latest/supplemental/language_plural_rules.html
enum class PluralForm : std::uint8_t { One, Other };
constexpr std::size_t PluralFormCount = 2;

constexpr PluralForm FormOf(std::uint64_t number) {
  return number == 1 ? PluralForm::One : PluralForm::Other;
}

struct CountedRow {
  CountedText Text;
  std::array<std::string_view, PluralFormCount> Forms;  // by PluralForm
};

constexpr CountedRow Varies(CountedText text, std::string_view one, std::string_view other) {
  return {text, {one, other}};
}

constexpr CountedRow Always(CountedText text, std::string_view all) {
  return {text, {all, all}};
}

using enum CountedText;

// "#" stands for the number, "%1" to "%9" for the other parts.
constexpr auto CountedRows = std::to_array<CountedRow>({
    Varies(Items, "# item", "# items"),
    Varies(Files, "# file", "# files"),
    Varies(Folders, "# folder", "# folders"),
    Varies(Operations, "# operation", "# operations"),
    Varies(Bytes, "# byte", "# bytes"),
    Varies(SizeInFull, "%1 (# byte)", "%1 (# bytes)"),
    Always(SizeAtLeast, "at least %1"),
    Always(SizeOfSize, "%1 of %2"),
    Always(SizeFree, "%1 free"),
    Always(SizePerSecond, "%1/s"),
    Always(NumberOfNumber, "%1 of #"),
    Varies(NumberOfItems, "%1 of # item", "%1 of # items"),
    Varies(ItemsOfSize, "# item, %1", "# items, %1"),
    Always(PercentOfDeed, "#% - %1"),
    Varies(SecondsLeft, "About # second left", "About # seconds left"),
    Varies(MinutesLeft, "About # minute left", "About # minutes left"),
    Varies(HoursLeft, "About # hour left", "About # hours left"),
    Varies(DaysLeft, "About # day left", "About # days left"),

    Always(AndMore, "and # more"),
    Varies(AndMoreItems, "and # item more", "and # items more"),
    Always(DotsAndMore, "... and # more"),
    Always(WithMore, "%1 (and # more)"),
    Varies(WithMoreItems, "%1 (and # item more)", "%1 (and # items more)"),
    Varies(WithMoreFolders, "%1 (and # folder more)", "%1 (and # folders more)"),

    Varies(OnShow, "# item (%1)", "# items (%1)"),
    Varies(OnShowOfItems, "%1 of # item (%2)", "%1 of # items (%2)"),
    Always(Selected, "# selected"),
    Varies(NotRead, "# item could not be read: %1", "# items could not be read: %1"),
    Varies(NotReadIn, "# item in %1 could not be read: %2", "# items in %1 could not be read: %2"),
    Varies(HiddenByFilter, "The filter hides the only item here",
           "The filter hides all # items here"),
    Varies(Hidden, "The only item here is hidden", "All # items here are hidden"),
    Varies(ReadingNames, "Reading names: # item", "Reading names: # items"),
    Always(ReadingPercent, "%1: # %"),
    Varies(Colouring, "Colours: %1 of # item; Escape stops",
           "Colours: %1 of # items; Escape stops"),
    Varies(ColouringStopped, "Colours stopped: %1 of # item done",
           "Colours stopped: %1 of # items done"),
    Varies(Listing, "Listing: %1 of # row; Escape stops", "Listing: %1 of # rows; Escape stops"),
    Varies(Sizing, "Sizes: %1 of # folder, %2; Escape stops",
           "Sizes: %1 of # folders, %2; Escape stops"),
    Varies(SizingStopped, "Sizes stopped: %1 of # folder done",
           "Sizes stopped: %1 of # folders done"),
    Varies(Sized, "Sizes: # folder, %1", "Sizes: # folders, %1"),
    Varies(DroppedForeign, "# dropped item is no file of this computer and could not be taken.",
           "# dropped items are no files of this computer and could not be taken."),
    // Of the comparison: what is shown may be the part of the number that no filter hides.
    Always(OnlyHere, "%1 only here"),
    Always(Missing, "# missing"),
    Always(Differ, "%1 differ"),
    Always(DifferSo, "%1 differ (%2 here)"),
    Always(Larger, "%1 larger"),
    Always(Smaller, "%1 smaller"),
    Always(Newer, "%1 newer"),
    Always(Older, "%1 older"),
    Always(Same, "%1 the same"),
    Varies(FilesSame, "%1 file the same", "%1 files the same"),
    Varies(AllFilesSame, "all %1 file the same", "all %1 files the same"),
    Varies(FoldersOfSameName, "%1 folder of the same name", "%1 folders of the same name"),

    Varies(Copying, "Copying # item", "Copying # items"),
    Varies(CopyingTo, "Copying # item to %1", "Copying # items to %1"),
    Varies(Moving, "Moving # item", "Moving # items"),
    Varies(MovingTo, "Moving # item to %1", "Moving # items to %1"),
    Varies(Renaming, "Renaming # item", "Renaming # items"),
    Varies(Duplicating, "Duplicating # item", "Duplicating # items"),
    Varies(Making, "Making # item", "Making # items"),
    Varies(MakingShortcuts, "Making shortcuts to # item", "Making shortcuts to # items"),
    Varies(Trashing, "Moving # item to the trash", "Moving # items to the trash"),
    Varies(Deleting, "Deleting # item", "Deleting # items"),
    Varies(Restoring, "Restoring # item", "Restoring # items"),
    Varies(WorkingOn, "Working on # item", "Working on # items"),
    Varies(CopyStep, "Copy of # item", "Copy of # items"),
    Varies(DuplicateStep, "Duplicates of # item", "Duplicates of # items"),
    Varies(NewFolderStep, "New folders, # item", "New folders, # items"),
    Varies(ShortcutStep, "Shortcuts to # item", "Shortcuts to # items"),
    Varies(MoveStep, "Move of # item", "Move of # items"),
    Varies(RenameStep, "Rename of # item", "Rename of # items"),
    Varies(TrashStep, "Deletion of # item", "Deletion of # items"),
    Varies(RestoreStep, "Restore of # item", "Restore of # items"),
    Varies(ColourStep, "Colour of # item", "Colour of # items"),
    Varies(GivingColoursBack, "%1, %2 of # item; Escape stops", "%1, %2 of # items; Escape stops"),
    Varies(GivingColoursStopped, "%1, %2 of # item; stopped", "%1, %2 of # items; stopped"),
    Varies(TrashBeingRead, "Reading the recycle bin... # item",
           "Reading the recycle bin... # items"),
    Varies(TrashSelected, "%1 of # item selected, %2", "%1 of # items selected, %2"),
    Varies(TrashShown, "%1 of # item shown", "%1 of # items shown"),
    Always(NotRestorable, "# of the selected items cannot be restored, only deleted."),
    Varies(NamesRefused, "# name cannot be used.", "# names cannot be used."),
    Varies(NamesChange, "# of %1 items gets another name.", "# of %1 items get other names."),
    Varies(LinesForItems, "There is # line for %1 items. Each needs one.",
           "There are # lines for %1 items. Each needs one."),
    Varies(FoundItems, "# item found", "# items found"),
    Varies(FoldersVisited, "# folder visited", "# folders visited"),
    Varies(ItemsSeen, "# item seen", "# items seen"),
    Varies(LookedInto, "# file looked into (%1)", "# files looked into (%1)"),
    Varies(ItemsPerSecond, "# item/s", "# items/s"),
    Varies(SkippedBinary, "# binary file skipped", "# binary files skipped"),
    Varies(SkippedLarge, "# file skipped as too large", "# files skipped as too large"),
    Varies(NamesGivenUp, "the expression was given up on # name",
           "the expression was given up on # names"),
    Always(NotReadButton, "Not Rea&d (#)..."),
    Varies(NotReadListed,
           "# item could not be read or not wholly:", "# items could not be read or not wholly:"),

    Varies(OpenQuestion, "Do you want to open this item?", "Do you want to open these # items?"),
    Varies(TrashQuestion, "Do you want to move this item to the trash?",
           "Do you want to move these # items to the trash?"),
    Varies(RunAllQuestion, "Do you want to run this program?",
           "All of these # items are programs. Do you want to run them?"),
    Varies(RunSomeQuestion, "One of these %1 is a program. Do you want to run it?",
           "# of these %1 are programs. Do you want to run them?"),
    Varies(NotOpened, "# item could not be opened:", "# items could not be opened:"),
    Varies(NotOpenedForPaste, "# item could not be opened to paste there:",
           "# items could not be opened to paste there:"),
    Varies(NotPasted, "# item could not be pasted:", "# items could not be pasted:"),
    Varies(ForeignNotPasted,
           "One item on the clipboard is no file of this computer and cannot be pasted.",
           "# items on the clipboard are no files of this computer and cannot be pasted."),
    Varies(NoShortcut,
           "# item could not be given a shortcut:", "# items could not be given a shortcut:"),
    Varies(FurtherNotFound, "# further item could not be found, and will be left out:",
           "# further items could not be found, and will be left out:"),
    Always(
        ColourLimit,
        "When there are over # files in a folder, Tarnwell doesn't show the color coding because "
        "it takes too long to check each file.\r\n\r\n"
        "Feel free to override this behaviour in the Options if you wish."),

    Varies(PropertiesOf, "Properties of # item", "Properties of # items"),
    Varies(ChangingPermissions, "Changing permissions: # item...",
           "Changing permissions: # items..."),
    Varies(NotChanged, "# item could not be changed:", "# items could not be changed:"),
    Varies(LeftUnchanged, "# of the %1 is left unchanged. %2",
           "# of the %1 are left unchanged. %2"),
});
static_assert(CountedRows.size() == CountedTextCount);
static_assert(std::ranges::is_sorted(CountedRows, {}, &CountedRow::Text));

std::string WithParts(std::string_view text, std::string_view number,
                      std::initializer_list<std::string_view> parts) {
  std::string filled;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char next = at + 1 < text.size() ? text[at + 1] : '\0';
    const auto part = static_cast<std::size_t>(next - '1');
    if (text[at] == '#' && !number.empty()) {
      filled += number;
    } else if (text[at] == '%' && part < parts.size()) {
      filled += std::data(parts)[part];
      ++at;
    } else {
      filled += text[at];
    }
  }
  return filled;
}

}  // namespace

std::string Counted(const NumberForms& forms, CountedText text, std::uint64_t number,
                    std::initializer_list<std::string_view> parts) {
  const CountedRow& row = CountedRows.at(static_cast<std::size_t>(text));
  const std::string_view form = row.Forms.at(static_cast<std::size_t>(FormOf(number)));
  return WithParts(form, forms.Grouped(number), parts);
}

std::string Filled(std::string_view text, std::initializer_list<std::string_view> parts) {
  return WithParts(text, "", parts);
}

}  // namespace tarnwell::platform
