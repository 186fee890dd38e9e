// The list of a pane: a folder tree of one drive, or the items of one folder.
//
// Reads, sorts and keeps the rows, the headings and what was expanded and open; tells the form by
// ListerEvents and its widget by ListerView. Knows no widget, no menu and no other list: a folder
// list and its file list meet only in the form.
//
// Folder paths are taken with or without a separator at their end. Everything runs on one thread;
// a long read lets messages through and looks at CancelRequested, so a call to a list can arrive
// inside another one. The newest LoadFolderContents wins.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Colour.h"
#include "base/Value.h"
#include "forms/Controls.h"
#include "lister/Headings.h"
#include "lister/ListId.h"
#include "lister/ListerEvents.h"
#include "lister/ListerView.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/FolderWatch.h"
#include "platform/MessagePump.h"

namespace tarnwell::lister {

struct ListerServices {
  platform::FileSystem& Files;
  platform::Drives& Drives;
  platform::FolderWatch& Watches;
  platform::MessagePump& Pump;
  platform::Clock& Clock;
};

// The colours that a list paints itself with, each named as the property that sets it.
struct ListerColours {
  base::Colour ActiveHeading = 0;
  base::Colour ActiveHeadingText = 0;
  base::Colour InactiveHeading = 0;
  base::Colour InactiveHeadingText = 0;
  base::Colour HeadingHoverText = 0;
  base::Colour ProgramBackground = 0;
  base::Colour PaneBackground = 0;
  base::Colour DriveList = 0;
  base::Colour DriveText = 0;
  base::Colour StatusBackground = 0;
  base::Colour StatusText = 0;
  base::Colour MinorToolbar = 0;
  base::Colour ListBackground = 0;
  base::Colour ListText = 0;
  base::Colour ActiveListOutline = 0;
  base::Colour InActiveListOutline = 0;
  base::Colour ActiveItemOutline = 0;
  base::Colour ActiveItemUnderline = 0;
  base::Colour TextSecondary = 0;
};

// What the widget shows of a row, without its cells.
struct RowLook {
  platform::ItemKind Kind = platform::ItemKind::File;
  bool IsLink = false;
  bool IsHidden = false;
  bool IsOpen = false;       // the open folder of a folder list
  bool HasChildren = false;  // may be expanded, as far as is known
  bool IsExpanded = false;
};

class ListerControl : public forms::Control {
 public:
  ListerControl(ListId list, const ListerServices& services, ListerEvents& events);
  ~ListerControl();

  ListId Id() const { return id_; }

  // --- The contract with the form. Plain fields first.

  std::int32_t ListType = 0;  // 1 folder list, 2 file list; saved for file lists
  std::int32_t ListMode = 0;  // view of a file list: 0 details; saved
  std::string ParentFolder;   // the folder that the folder list handed over
  bool ShowHidden = false;    // takes effect at the next RefreshList or load
  bool ShowSystem = false;
  bool CancelRequested = false;  // stops the read that runs; the list itself sets it back
  bool IsWin9x = false;

  // 1 when the list shows folders.
  std::int32_t FolderListType() const;

  // The open folder of a folder list, the folder on show of a file list; no separator at its end
  // unless it is a root. Empty before the first load.
  const std::string& CurrentFolder() const;
  // Makes the folder the list's own without reading it.
  void SetCurrentFolder(const std::string& folder);

  // Called once, after all properties are set and before anything is loaded.
  void Initialize();
  // A selection extends from the row that was last chosen by itself. The widget knows that row, and
  // it stays while keys come and go, or else Shift with one arrow key after another would not work:
  // the list has none of its own to forget.
  void ResetStartItem();
  // The last call: drops watchers and view.
  void Terminate();

  void SetActive(bool active);
  // `modifier` is "shift", "ctrl" or empty.
  void TakeFocus(std::string_view modifier = "");
  void RedrawList();
  // Reads the folder again and shows it; branches that are expanded stay so, the cursor stays on
  // the item of its name, or goes to the place where that was. In a file list selection and scroll
  // position stay too.
  void RefreshList();
  void SetLayout(std::int32_t layout);

  // Named settings: "FileCountMax", "ShowColor", "ShowFileIcons", "ShowFolderIcons",
  // "ActiveHeading", "ActiveButton", "ActiveString", "BorderWidth" and the colours. Of these
  // "FileCountMax", "ShowColor", "ActiveButton", "ActiveString" and "BorderWidth" have no effect
  // yet. A name that the list does not know is ignored; a value of the wrong type throws
  // base::ConversionError.
  void SetProperty(std::string_view name, const base::Value& value);
  // The three steps of a change of colours.
  void ReloadColors();
  void RedrawHeadings();
  void RedrawItems();

  // The drive on show, by the name that settings keep.
  std::string InitialDrive() const;
  // Shows the tree of the drive with the folder last open there, and raises FolderSelected. A
  // folder that is gone gives the drive's root.
  void LoadDrive(std::string& drive, bool);
  // The folder last open on the drive, or the home folder for the drive that holds it, or the
  // drive's root. An empty name means the drive on show.
  std::string DriveFolder(const std::string& drive = "") const;
  bool FolderExists(const std::string& folder) const;
  // The folder becomes the one last open on the drive.
  void SetDriveFolder(const std::string& drive, const std::string& folder);

  // File list: reads the folder and shows it. What cannot be read is told in the status line and
  // shown as far as it goes. Throws nothing. Inside another such call of this list it leaves the
  // folder to that one, which goes on with it, and returns at once.
  void LoadFolderContents(std::string& folder, bool handOver);

  // Folder list: opens the folder, expanding the branches above it, and raises FolderSelected. An
  // empty path means the top of the tree. A folder that cannot be found is told in the status line.
  void OpenFolder(int level, const std::string& folder = "");
  void ExpandFolder(int level, const std::string& folder, int);
  // Key of the open node; its depth, 1 for the top; the folder above the node of a key.
  std::string CurrentNodeKey() const;
  std::int32_t CurrentNodeLevel() const;
  std::string ParentOfKey(const std::string& key) const;

  // Sorts by the active heading: "asc", "des" start anew, "ascadd", "desadd" add a level.
  void SortCommand(std::string_view word);
  std::int16_t SortKeyCount() const;
  bool GetSortKey(int level, std::string& key, std::string& direction) const;
  // Sets the entry of that level, 0 to SortKeyCount, and drops those behind it; a key that is no
  // heading's, a direction other than "asc" or "des" and any other level change nothing.
  void AddSortKey(int level, const std::string& key, const std::string& direction);

  bool HeadingActive(std::string_view name) const;
  base::Value HeadingProperty(int heading, std::string_view attribute) const;
  void SetHeadingProperty(int heading, std::string_view attribute, const base::Value& value);

  // Highest number in use, -1 when there is none.
  std::int16_t ExpandedCount() const;
  // Empty for a number that is not in use.
  std::string ExpandedFolder(int number) const;
  void AddExpanded(const std::string& folder);
  std::int16_t ActiveItemCount() const;
  void GetActiveItem(int number, std::string& folder, std::string& item) const;
  // The pair of a drive's root and a full path below it is the folder last open on that drive.
  void AddActiveItem(const std::string& folder, const std::string& item);

  void ShowStatus(const std::string& text);

  void WatchStart();
  void WatchStop();
  void WatchResume();

  // --- What the widget shows. Rows are read in place; a row that does not exist gives nothing.

  ListerView* View = nullptr;

  int ChildCount(RowId parent) const;
  RowId Child(RowId parent, int position) const;
  RowId Parent(RowId row) const;
  int PositionOf(RowId row) const;  // among the children of its parent
  RowLook Look(RowId row) const;
  // Text of a cell, for showing: valid UTF-8.
  std::string CellText(RowId row, HeadingId heading) const;
  std::string PathOf(RowId row) const;  // bytes
  RowId CurrentRow() const;
  const Headings& HeadingTable() const;
  int ActiveHeading() const;
  bool IsActive() const;
  // Whether items are told apart by icons of their own type, or all of a kind look the same; by
  // kind of list, from the named settings.
  bool ShowIcons() const;
  const ListerColours& Colours() const;
  const std::string& StatusText() const;
  std::vector<platform::Drive> DriveChoices() const;

  // The folder changed while it was read: reads it again. The view calls this when the list has
  // asked for it by CatchUpLater.
  void CatchUp();

  // --- What the user does in the widget.

  void Focused();
  void MouseReleased();
  // The cursor moved to the row: a folder list opens it, a file list tells the item.
  void MoveCurrent(RowId row);
  // Enter or a double click: a folder list opens and expands, a file list enters a folder.
  void Activate(RowId row);
  void Expand(RowId row);
  void Collapse(RowId row);
  void KeyUpFolder();
  void ChooseDrive(const std::string& drive);
  void ClickHeading(int heading);  // makes it the active one
  void DoubleClickHeading(int heading, bool shift);

 private:
  struct Parts;
  ListId id_;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tarnwell::lister
