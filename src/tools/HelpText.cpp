#include "tools/HelpText.h"

namespace tarnwell::tools {
namespace {

using enum HelpStyle;

constexpr std::array<HelpPart, HelpPartCount> Parts = {{
    {Chapter, "Tarnwell - What's this all about?"},
    {Body,
     "Tarnwell is a file manager for people who work with files and folders all day. One window "
     "holds up to five panes, and each pane is a tree of folders with a list of the files in one "
     "of them. With two or more folders before your eyes at once you see what is where, copy and "
     "move it by mouse or keyboard, and compare what the folders hold.\n\n"
     "Much of it you will find by yourself. The pointers below are about the things that are not "
     "plain to see. They take a few minutes to read and will save you hours, so please read on."},
    {Chapter, "Additional Support"},
    {Body,
     "Does something not work as you expect, or do you miss something? Write an e-mail to "
     "support@tarnwell.example. Tell us which version you have (Software > About Tarnwell...), "
     "what you did, and what happened then. If there was a message, please copy its text: it can "
     "be selected with the mouse."},
    {Chapter, "Pointers"},
    {Topic, "Selecting Files"},
    {Body,
     "Click in the small space between an item's icon and its name: an arrow appears there, which "
     "shows that the item is selected. Another click there takes it out again. What else is "
     "selected stays so, and you need no key for it. Hold the mouse button down in that space and "
     "drag up or down to select many items in one go.\n\n"
     "The usual ways work as well. A click on a name selects that item alone, with Ctrl it adds "
     "the item, with Shift all items up to it. Ctrl+A selects everything. Dragging from an empty "
     "place draws a frame, and what the frame touches is selected."},
    {Topic, "Sorting Files and Folders"},
    {Body,
     "Double click the title of any heading to sort by it, and once more to turn the order round. "
     "Each such double click starts a new sort.\n\n"
     "A file list can be sorted by several headings, say by extension and then by size. Double "
     "click the first heading. Then click the next heading once, which makes it the active one, "
     "and press the button with the sorting arrow and the plus sign on the toolbar. Or, in one "
     "step, hold Shift and double click the next heading. A later heading only arranges the items "
     "that are the same by all earlier ones; small numbers in the headings show which comes first. "
     "A double click without Shift goes back to one heading.\n\n"
     "Folder trees are sorted by one heading at a time."},
    {Topic, "Color Coding Files"},
    {Body,
     "Select the files, right click one of them, open 'Colour Code' and pick a colour. 'Default' "
     "takes the colour away again.\n\n"
     "The colours show when color coding is on: Layout > Color Coding & Comments > On, or the "
     "button for it on the toolbar. Tarnwell is a little slower with it on, so turn it off "
     "whenever you need the speed. Folders with many files are shown without colours for the same "
     "reason; File > Options... says how many are many."},
    {Topic, "Duplicating Items"},
    {Body,
     "'Duplicate' in the menu of the right mouse button makes an exact copy of an item, in the "
     "same folder. The copy has the same name with the date and the time added, so letter.txt "
     "becomes letter261122-093005.txt on the 22nd of November 2026 at five seconds past half past "
     "nine. It is a quick way to keep the state of today before you change something."},
    {Topic, "Escape Key"},
    {Body,
     "Escape stops work that takes too long: the calculation of folder sizes, and the reading of a "
     "folder's contents. It also gives up whatever you are dragging."},
    {Topic, "Command Line"},
    {Body,
     "Layout > Command Line > On puts a command line below the panes. What you type there is "
     "started in the current folder when you press Enter: a program with what it is to work on, a "
     "document, an address of the web, or a folder, which opens in the pane. Write ./ in front of "
     "a program that lies in the folder itself. Programs without windows of their own run in a "
     "command window, which closes when they end; Shift with Enter leaves it open behind them. "
     "Ctrl+Enter in a list puts the path of the item into the command line."},
    {Topic, "Filtering"},
    {Body,
     "Above each file list there is a small toolbar. Choose an extension from its drop-down list, "
     "and only the files with that extension are shown.\n\n"
     "Or type a filter into the box beside it, which goes for files and folders. A part of the "
     "name is enough. For more, use * for any run of characters, ? for a single character, and # "
     "for a single digit. With any of these the filter is for the whole name: *.jp*g finds "
     "photo.jpg and photo.jpeg, and scan##.* finds scan07.jpg but not scan7.jpg. A semicolon "
     "divides several filters, as in *.txt; *.md. Capital and small letters count the same. Going "
     "to another folder clears the filter."},
    {Topic, "Calculating Folder Sizes"},
    {Body,
     "Nobody knows how large a folder is without looking at everything in it, so Tarnwell does "
     "that only when you ask. The calculator button above a file list, or Tools > Calculate Folder "
     "Sizes, calculates all folders in the list. You can go on looking at the list meanwhile, and "
     "Escape stops the work. F3 calculates just the folder under the mouse pointer.\n\n"
     "Results are kept: calculating again is much faster.\n\n"
     "Note: the 'size' column must be visible to see the folder size."},
}};

static_assert(Parts[3].Text.find(SupportAddress) != std::string_view::npos);

}  // namespace

const std::array<HelpPart, HelpPartCount>& HelpText() {
  return Parts;
}

}  // namespace tarnwell::tools
