#include "commands/ToolbarTable.h"

#include <array>

namespace tarnwell::commands {
namespace {

using forms::ButtonStyle;
using forms::ToolbarRow;

// Key, style, tool-tip, picture. The tool-tips of the panes are the folders that they show.
constexpr std::array Buttons = {
    ToolbarRow{"placeholder243", ButtonStyle::Placeholder, "", ""},
    ToolbarRow{"pane0", ButtonStyle::Check, "", "pane0"},
    ToolbarRow{"pane1", ButtonStyle::Check, "", "pane1"},
    ToolbarRow{"pane2", ButtonStyle::Check, "", "pane2"},
    ToolbarRow{"pane3", ButtonStyle::Check, "", "pane3"},
    ToolbarRow{"pane4", ButtonStyle::Check, "", "pane4"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"headleft", ButtonStyle::Plain, "Move active heading left.", "headleft2"},
    ToolbarRow{"headright", ButtonStyle::Plain, "Move active heading right.", "headright2"},
    ToolbarRow{"headasc", ButtonStyle::Plain, "Sort active heading ascending.", "headasc1"},
    ToolbarRow{"headdes", ButtonStyle::Plain, "Sort active heading descending.", "headdes1"},
    ToolbarRow{"headascadd", ButtonStyle::Plain, "Add to current sort. Ascending.", "headascadd1"},
    ToolbarRow{"headdesadd", ButtonStyle::Plain, "Add to current sort. Descending.", "headdesadd1"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"layoutvertical", ButtonStyle::Check, "Arrange panes vertically.", "layoutvertical"},
    ToolbarRow{"layouthorizontal", ButtonStyle::Check, "Arrange panes horizontally.",
               "layouthorizontal"},
    ToolbarRow{"layoutautoexpand", ButtonStyle::Check,
               "When active, automatically increases pane size.", "layoutautoexpand"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"useenhancedmode", ButtonStyle::Check,
               "When active, color coding and comments are shown.", "enhancedmode"},
    ToolbarRow{"showcommandline", ButtonStyle::Check, "Show/hide the command line.", "commandline"},
    ToolbarRow{"showcolor", ButtonStyle::Check, "Show color coding and comments.", "colorcode"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"skindefault", ButtonStyle::Plain, "Use the default skin.", "skindefault"},
    ToolbarRow{"skinsecond", ButtonStyle::Plain, "Use an alternate skin.", "skinsecond"},
    ToolbarRow{"choosecolors", ButtonStyle::Plain, "Create your own skin.", "choosecolors"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"compare_size", ButtonStyle::Check, "Include size when comparing folders.",
               "compare_size"},
    ToolbarRow{"compare_date", ButtonStyle::Check, "Include date when comparing folders.",
               "compare_date"},
    ToolbarRow{"compare", ButtonStyle::Plain, "Compare folder contents.", "compare"},
    ToolbarRow{"", ButtonStyle::Separator, "", ""},
    ToolbarRow{"recyclebin", ButtonStyle::Plain, "Open the recycle bin.", "recyclebin"},
};

constexpr std::array<std::string_view, 46> Images = {
    "pane0x",
    "pane1x",
    "pane3x",
    "pane2x",
    "pane4x",
    "headright",
    "headleft",
    "headasc",
    "headdes",
    "headdesadd",
    "headascadd",
    "calculate",
    "findfiles",
    "layouthorizontal",
    "layoutvertical",
    "layoutautoexpand",
    "headleft2",
    "headright2",
    "headasc1",
    "headdesadd1",
    "headdes1",
    "headascadd1",
    "enhancedmode",
    "skindefault",
    "skinsecond",
    "choosecolors",
    "commandline",
    "recyclebin",
    "recycleempty",
    "recycleempty2",
    "exit",
    "about3",
    "tw1",
    "unused",
    "about4",
    "pane0",
    "pane1",
    "pane2",
    "pane3",
    "pane4",
    "compare_date",
    "compare_size",
    "compare",
    "colorcode",
    "options1",
    "options",
};

}  // namespace

std::span<const ToolbarRow> ToolbarTable() {
  return Buttons;
}

std::span<const std::string_view> ImageKeys() {
  return Images;
}

void SetToolbarIcons(workspace::MainForm& form) {
  for (const ToolbarRow& row : Buttons) {
    if (row.Image.empty()) continue;
    form.Toolbar1[row.Key].Image = form.ImageList1.Index(row.Image);
  }
}

}  // namespace tarnwell::commands
