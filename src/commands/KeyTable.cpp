#include "commands/KeyTable.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <string>

#include "lists/EnterList.h"
#include "workspace/ScreenOrder.h"

namespace tarnwell::commands {
namespace {

using Keyed = const KeyParts&;

// To the file list of the next open pane, or of the one after it.
void Send(Keyed parts, std::string_view word, std::size_t place) {
  const lister::ListId source = parts.Space.CurrentList;
  if (parts.Space.Lists.Find(source) == nullptr) return;
  const auto others = workspace::PanesAfter(parts.Space.Panes, lister::PaneOf(source));
  if (others.empty()) {
    parts.Messages.Message("There is no other open pane to " + std::string(word) + " to.",
                           forms::MessageKind::Ok);
    return;
  }
  const int target = others[std::min(place, others.size() - 1)];
  parts.Drop.SendSelected(word, source, lister::FileListOf(target));
}

void ShowProperties(Keyed parts) {
  auto* const list = parts.Space.Lists.Find(parts.Space.CurrentList);
  if (list == nullptr) return;
  list->PrepareSelectionKeyboard();
  parts.Actions.ShowShellMenu(shellmenu::MenuMode::Properties);
}

template <int Steps>
void GoInHistory(Keyed parts) {
  if (parts.Space.Lists.Find(parts.Space.ActiveList) == nullptr) return;
  if (Steps < 0 && parts.Navigation.LeaveFound(parts.Space.ActiveList)) return;
  const int pane = lister::PaneOf(parts.Space.ActiveList);
  const std::size_t here = parts.Space.Histories[pane].Here;
  if (Steps < 0 && here == 0) return;
  parts.Navigation.OpenFromHistory(pane, Steps < 0 ? here - 1 : here + 1);
}

void GoUp(Keyed parts) {
  if (parts.Space.Lists.Find(parts.Space.ActiveList) == nullptr) return;
  parts.Navigation.MoveFocusUpOneFolder(parts.Space.ActiveList);
}

void EnterMarks(Keyed parts) {
  const lister::ListId active = parts.Space.ActiveList;
  if (parts.Space.Lists.Find(active) == nullptr) return;
  parts.Space.Lists.Files(lister::PaneOf(active)).EnterMarks();
}

// To the list of the same kind.
void EnterBeside(Keyed parts, bool back) {
  const lister::ListId from = parts.Space.ActiveList;
  const auto others = workspace::PanesAfter(parts.Space.Panes, lister::PaneOf(from));
  if (others.empty()) return;
  const int pane = back ? others.back() : others.front();
  lists::EnterList(
      parts.Space, parts.Layout,
      lister::IsFileList(from) ? lister::FileListOf(pane) : lister::FolderListOf(pane));
}

template <int Pane>
void EnterFiles(Keyed parts) {
  const workspace::PaneRecord& record = parts.Space.Panes[Pane];
  if (!record.IsOpen()) parts.Panes.ChangePanes(Pane);
  if (record.IsOpen()) lists::EnterList(parts.Space, parts.Layout, lister::FileListOf(Pane));
}

constexpr std::string_view Window = "main window";
constexpr std::string_view Panes = "panes, toolbar";  // all of the window but its text fields
constexpr std::string_view AllLists = "lists, trees";
constexpr std::string_view FileLists = "file lists";
constexpr std::string_view Trees = "trees";
constexpr std::string_view Filter = "filter";
constexpr std::string_view Marks = "marks";
constexpr std::string_view CommandStrip = "command line";
constexpr std::string_view FindFiles = "find files";
constexpr std::string_view RecycleBin = "recycle bin";

constexpr auto AllKeys = std::to_array<KeyRow>({
    {"Going about"},
    {"Tab, Shift+Tab", Window,
     "to the next part of the window: trees, lists, title buttons, toolbar, command line"},
    {"Left, Right", "toolbar", "from button to button; Space presses one"},
    {"F10, Alt with a letter", Window, "the menus"},
    {"Shift+F10, Menu", AllLists, "the context menu of what is selected"},
    {"F4", Window, "unfolds the drives of the pane"},
    {"Ctrl+F", Window, "into the filter of the pane"},
    {"Ctrl+Shift+F", Panes, "finds files below the open folder, by name or content", "mnuFindFiles",
     [](Keyed parts) { parts.Actions.FindFiles(); }},
    {"Alt+1", Panes, "into the files of pane 1, which opens if it is hidden", "mnuPane0",
     EnterFiles<0>},
    {"Alt+2", Panes, "the same for pane 2", "mnuPane1", EnterFiles<1>},
    {"Alt+3", Panes, "the same for pane 3", "mnuPane2", EnterFiles<2>},
    {"Alt+4", Panes, "the same for pane 4", "mnuPane3", EnterFiles<3>},
    {"Alt+5", Panes, "the same for pane 5", "mnuPane4", EnterFiles<4>},
    {"Ctrl+Tab", Panes, "to the next pane on the screen, tree to tree and files to files", "",
     [](Keyed parts) { EnterBeside(parts, false); }},
    {"Ctrl+Shift+Tab", Panes, "to the pane before it", "",
     [](Keyed parts) { EnterBeside(parts, true); }},
    {"Ctrl+J", Window, "to the operations that run or wait, and back"},
    {"Tab, Space, Escape", "operations", "from button to button; presses one; back to the list"},
    {"Escape", "lists",
     "stops reading and measuring; gives up a drag, a search by typing, a check for updates"},
    {"Ctrl+Q", AllLists, "ends the program", "mnuExit"},
    {"F1", "everywhere", "help", "mnuHelp"},
    {"Folders"},
    {"Alt+Up", Panes, "up one folder", "", GoUp},
    {"Backspace", AllLists, "the same; takes a letter back while typed text is shown"},
    {"Alt+Left", Panes, "back to the folder that the pane showed before", "", GoInHistory<-1>},
    {"Alt+Right", Panes, "forward again", "", GoInHistory<1>},
    {"Alt+Down", Panes, "the menu of the pane's title: folders above, history, bookmarks, accent",
     "", [](Keyed parts) { parts.Actions.OpenTitleMenu(); }},
    {"Ctrl+1 to Ctrl+9, Ctrl+0", AllLists, "to the bookmark in slot 1 to 9, 10"},
    {"Ctrl+R", Panes, "reads the list again", "", [](Keyed parts) { parts.Lists.Refresh(); }},
    {"In lists and trees"},
    {"Up, Down, Home, End, Page Up, Page Down", AllLists,
     "moves the cursor; with Shift it selects (file lists), with Ctrl it leaves the selection "
     "alone"},
    {"Left, Right", Trees, "closes or opens a branch"},
    {"Left, Right", FileLists, "scrolls sideways"},
    {"letters", AllLists, "goes to the next name that begins so"},
    {"Ctrl+G, Ctrl+Shift+G", AllLists, "to the next name that begins so, to the one before"},
    {"Enter", FileLists, "opens the item, or all selected files"},
    {"Enter", Trees, "opens the branch"},
    {"Ctrl+Enter", AllLists, "puts the path of the item into the command line"},
    {"Headings"},
    {"Ctrl+Left", Panes, "makes the heading to the left the active one", "",
     [](Keyed parts) { parts.Lists.ChooseHeading("headleft"); }},
    {"Ctrl+Right", Panes, "makes the heading to the right the active one", "",
     [](Keyed parts) { parts.Lists.ChooseHeading("headright"); }},
    {"Ctrl+Shift+Left", Panes, "moves the active heading to the left", "mnuHeadLeft",
     [](Keyed parts) { parts.Lists.MoveHeading("headleft"); }},
    {"Ctrl+Shift+Right", Panes, "moves the active heading to the right", "mnuHeadRight",
     [](Keyed parts) { parts.Lists.MoveHeading("headright"); }},
    {"Ctrl+Shift+S", Panes, "sorts by the active heading; again, the other way round", "",
     [](Keyed parts) { parts.Lists.TurnSort(); }},
    {"Selecting"},
    {"Space", FileLists, "selects the item or takes it out; held with Up or Down, several"},
    {"Ctrl+Space", FileLists, "the same for the item under the cursor"},
    {"Insert", FileLists, "the same, and one down"},
    {"Ctrl+A", FileLists, "selects all"},
    {"Ctrl+E", Panes, "into the marks of a comparison: the arrows lead from one to the next", "",
     EnterMarks},
    {"Space, Ctrl+Space", Marks, "selects what bears the mark; adds it to what is selected"},
    {"Files and folders"},
    {"F5", Panes, "copies what is selected to the next pane, after a question", "",
     [](Keyed parts) { Send(parts, platform::CopyWord, 0); }},
    {"F6", Panes, "moves it there, after a question", "",
     [](Keyed parts) { Send(parts, platform::MoveWord, 0); }},
    {"Shift+F5", Panes, "copies it to the pane after the next", "",
     [](Keyed parts) { Send(parts, platform::CopyWord, 1); }},
    {"Shift+F6", Panes, "moves it to the pane after the next", "",
     [](Keyed parts) { Send(parts, platform::MoveWord, 1); }},
    {"Ctrl+C", AllLists, "copies what is selected, for a paste", "Copy"},
    {"Ctrl+X", AllLists, "cuts it, for a paste", "Cut"},
    {"Ctrl+V", AllLists, "pastes", "Paste"},
    {"F7", Panes, "new folder", "New Folder",
     [](Keyed parts) { parts.NewFolder.CreateNewFolder(true); }},
    {"Ctrl+Shift+N", AllLists, "the same"},
    {"F2", AllLists, "renames", "Rename"},
    {"Ctrl+M", Panes, "renames all that is selected at once", "Rename Items...",
     [](Keyed parts) { parts.Actions.RenameItems(); }},
    {"Delete", AllLists, "to the trash, after a question", "Delete"},
    {"Shift+Delete", AllLists, "deletes for good, after a question"},
    {"Ctrl+Z", Panes, "takes the last command back", "Undo",
     [](Keyed parts) { parts.Undo.Undo(); }},
    {"Ctrl+Shift+Z", Panes, "does again what was taken back last", "",
     [](Keyed parts) { parts.Undo.Redo(); }},
    {"Alt+Return", Panes, "the properties of what is selected", "Properties", ShowProperties},
    {"F3", AllLists, "measures the folder under the mouse pointer"},
    {"Filter"},
    {"Enter, Down", Filter, "back to the list, which stays filtered"},
    {"Up", Filter, "unfolds the extensions"},
    {"Escape", Filter, "clears the filter and goes back to the list"},
    {"Command line"},
    {"Enter", CommandStrip, "starts what is typed, in the folder of the pane"},
    {"Shift+Enter", CommandStrip, "the same, and the terminal stays open behind the program"},
    {"Other windows"},
    {"Enter, Escape", "questions and dialogs",
     "the button that is framed; the answer that changes nothing"},
    {"Alt+P", "rename items", "to the next name that cannot be used"},
    {"Enter", FindFiles, "starts the search, in a field; opens the result"},
    {"Escape", FindFiles, "stops the search; closes the window where none runs"},
    {"Ctrl+Enter", FindFiles, "shows the result in the pane that was used last"},
    {"Enter, F2, Delete", "skin chooser, list of skins", "loads, renames, deletes the skin"},
    {"Space, Shift+Space, arrows, Page Up, Page Down", "help", "scrolls"},
    {"letters, Ctrl+F", RecycleBin,
     "into the filter; Enter or Down goes back to the list, Escape clears it"},
    {"Alt+R, Alt+O", RecycleBin, "restores what is selected; shows the folder where it was"},
    {"Enter, Alt+Enter", RecycleBin, "the properties of what is selected"},
    {"Delete, Alt+E", RecycleBin,
     "deletes what is selected, or everything, for good, after a question"},
    {"Ctrl+A, F5", RecycleBin, "selects all; reads the trash again"},
    {"Shift+F10, Menu", RecycleBin, "the context menu, with the order of the list"},
    {"Enter, Delete", "network drives, list of places",
     "connects or disconnects the place; takes it off the list of those connected before"},
});

}  // namespace

std::span<const KeyRow> KeyTable() {
  return AllKeys;
}

std::string_view KeysBeside(std::string_view entry) {
  const auto row = std::ranges::find(AllKeys, entry, &KeyRow::Entry);
  return entry.empty() || row == AllKeys.end() ? "" : row->Keys;
}

void RunKeys(std::string_view keys, const KeyParts& parts) {
  const auto row = std::ranges::find_if(
      AllKeys, [keys](const KeyRow& each) { return each.Run != nullptr && each.Keys == keys; });
  if (row == AllKeys.end()) return;
  try {
    row->Run(parts);
  } catch (const std::exception&) {
    parts.Messages.Message("An error occurred while handling which keys were pressed.",
                           forms::MessageKind::Ok);
  }
}

}  // namespace tarnwell::commands
