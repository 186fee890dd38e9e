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
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "forms/Controls.h"
#include "lister/list/FolderFollower.h"
#include "lister/list/ListAppearance.h"
#include "lister/list/ListFields.h"
#include "lister/list/ListId.h"
#include "lister/list/ListInput.h"
#include "lister/list/ListServices.h"
#include "lister/list/ListerEvents.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/ListRows.h"
#include "platform/FileOperation.h"
#include "platform/FileSearch.h"

namespace tarnwell::lister {

class ListColumns;
class ListerUser;

class ListerControl : public forms::Control, public ListFields {
 public:
  ListerControl(ListId list, const ListServices& services, ListerEvents& events);
  ~ListerControl();

  ListId Id() const;

  // --- The contract with the form. Plain fields first; more of them in ListFields.

  std::int32_t ListType = 0;         // 1 folder list, 2 file list; saved for file lists
  std::int32_t ListMode = 0;         // view of a file list: 0 details; saved
  std::string ParentFolder;          // the folder that the folder list handed over
  std::int32_t SelectionCursor = 0;  // where NextSelected goes on; 0 starts the walk
  bool OperationResult = false;      // for file operations to leave a note in
  bool IsWin9x = false;

  // 1 when the list shows folders.
  std::int32_t FolderListType() const;

  // The open folder of a folder list, the folder on show of a file list; no separator at its end
  // unless it is a root. Empty before the first load.
  const std::string& CurrentFolder() const;
  // Makes the folder the list's own without reading it.
  void SetCurrentFolder(const std::string& folder);

  // Whether marks of a drag, and of the row under the pointer, are drawn; false wipes them.
  void SetDragGraphicsOn(bool on);
  void SetHoverGraphicsOn(bool on);

  // Called once, after all properties are set and before anything is loaded.
  void Initialize();
  // Forgets the item where a selection by Space and arrows began.
  void ResetStartItem();
  // The last call: drops watchers and view.
  void Terminate();

  void SetActive(bool active);
  // `modifier` is "shift", "ctrl" or empty: the key that was pressed as the list was given the
  // keyboard.
  void TakeFocus(std::string_view modifier = "");
  // Gives the keyboard to the marks of a comparison, where there are any.
  void EnterMarks();
  void RedrawList();
  // Reads the folder again and shows it; branches that are expanded stay so, the cursor stays on
  // the item of its name, or goes to the place where that was. In a file list selection and scroll
  // position stay too. What was found is looked at again, once the brackets that are open are
  // closed.
  void RefreshList();
  // As CancelRequested, where the job waits for another machine; otherwise the job goes on.
  void EndWait();
  // The same, after a file operation.
  void RefreshAfterOperation();
  void SetLayout(std::int32_t layout);
  // Colours and comments are shown, or neither.
  void SetEnhancedMode(bool on);

  // Named settings: "FileCountMax", "ShowColor", "ShowFileIcons", "ShowFolderIcons",
  // "ActiveHeading", "ActiveButton", "ActiveString", "BorderWidth" and the colours. A name that the
  // list does not know is ignored, and so is "ActiveButton", which means nothing to it; for the
  // others a value of the wrong type throws base::ConversionError.
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

  // --- What was found. A file list can show items of many folders.

  // From now on the list shows what was found below that folder (full path): none yet. Stays so
  // until LoadFolderContents; RefreshList looks at each item again, and those that are gone go.
  // There is no folder to drop, paste or make anything in then.
  void ShowFound(const std::string& folder);
  // More of them, which come into their places. Nothing if the list shows a folder by now. To be
  // called with some thousands at a time.
  void AddFound(const std::vector<platform::FoundItem>& items);
  bool ShowsFound() const;
  // All of them, filtered out or not.
  std::vector<platform::FoundItem> FoundItems() const;
  // An operation gave these another path: their rows follow, as far as it is below the folder.
  void FollowMoved(const std::vector<platform::PlacedItem>& placed);

  // Folder list: opens the folder, expanding the branches above it, and raises FolderSelected. An
  // empty path means the top of the tree. A folder that cannot be found is told in the status line.
  void OpenFolder(int level, const std::string& folder = "");
  void ExpandFolder(int level, const std::string& folder, int);
  // Either kind of list: to the folder, on another drive if need be. One that cannot be opened is
  // told by StatusMessage, with the reason.
  void GoToFolder(const std::string& folder);
  // Key of the open node; its depth, 1 for the top; the folder above the node of a key.
  std::string CurrentNodeKey() const;
  std::int32_t CurrentNodeLevel() const;
  std::string ParentOfKey(const std::string& key) const;

  // Sorts by the active heading: "asc", "des" start anew, "ascadd", "desadd" add a level.
  void SortCommand(std::string_view word);
  // Moves the active heading one place among those on show: "headleft", "headright". Past the end
  // it stays where it is.
  void MoveHeading(std::string_view word);
  // By the same words: the heading beside the active one becomes that.
  void ChooseHeading(std::string_view word);
  // Starts a new sort by the active heading; turns it round if that is how the list is sorted.
  void TurnSort();
  // Shows or hides the heading of that menu entry, "mnuHeadingSize" say, and raises
  // HeadingsChanged.
  void HeadingMenuClick(std::string_view menuName);
  std::int16_t SortKeyCount() const;
  bool GetSortKey(int level, std::string& key, std::string& direction) const;
  // Sets the entry of that level, 0 to SortKeyCount, and drops those behind it; a key that is no
  // heading's, a direction other than "asc" or "des" and any other level change nothing.
  void AddSortKey(int level, const std::string& key, const std::string& direction);

  bool HeadingActive(std::string_view name) const;
  base::Value HeadingProperty(int heading, std::string_view attribute) const;
  void SetHeadingProperty(int heading, std::string_view attribute, const base::Value& value);
  // The widths of the headings are the user's; otherwise the name takes the room that is left.
  bool NameSized() const;
  void SetNameSized(bool sized);

  // Highest number in use, -1 when there is none.
  std::int16_t ExpandedCount() const;
  // Empty for a number that is not in use.
  std::string ExpandedFolder(int number) const;
  void AddExpanded(const std::string& folder);
  std::int16_t ActiveItemCount() const;
  void GetActiveItem(int number, std::string& folder, std::string& item) const;
  // The pair of a drive's root and a full path below it is the folder last open on that drive.
  void AddActiveItem(const std::string& folder, const std::string& item);

  // --- Selection and targets. Paths are full ones; folders to work in end with a separator.

  // A file list selects all, or nothing for "none"; the selection of a folder list is its open
  // folder and stays.
  void SelectAll(std::string_view word = "");
  // Up (38) or Down (40). With `spaceHeld` the rows that are passed become what Space made of the
  // first one; with Shift, as KeyDown or TakeFocus told it, the selection extends; with Ctrl the
  // cursor alone moves; else the row reached is the one selected.
  void ArrowKey(std::int16_t& keyCode, bool& spaceHeld);
  // Selects the current item, or takes it out of the selection.
  void SpaceKey();
  void WheelScroll(bool up);
  // Sees to it that what is to be acted on is selected. By mouse: within the bracket of an action
  // the item that was clicked for it, if it has been taken out of the selection since. By keyboard:
  // the current item if nothing is selected.
  void PrepareSelectionMouse();
  void PrepareSelectionKeyboard();
  // One item: its full path; a drive root: the drive's name and ":". More: their names. Empty when
  // nothing is selected. Also makes ActiveItemName.
  std::string FirstSelected();
  // The full path of the next selected item from SelectionCursor on, "end" after the last.
  std::string NextSelected();
  // As of the last FirstSelected: full paths, each ended by a NUL, and one more NUL at the end.
  // Empty when nothing was selected, and for a drive root.
  const std::string& ActiveItemName() const;
  // File list: the cursor goes to the first of the items that are in its folder, which comes into
  // view, and the selection to all of them unless more is selected than they, what they came from
  // and the row with the cursor. While a read runs this waits for its end. `tells` is asked then:
  // whether ItemFocused is to be raised. Nothing moves where an action has begun meanwhile.
  void PlaceCursor(const std::vector<platform::PlacedItem>& placed, std::function<bool()> tells);
  // Where a new item would go; empty when nothing can be made here, as among what was found. By
  // key: the folder of the list. Otherwise, in a folder list: the folder clicked or opened last.
  std::string TargetFolder(bool byKey = false, bool forPaste = false) const;
  std::string PasteFolder() const;
  std::string DropFolder() const;  // under the last drop; empty if that was no folder
  // The item that a click or a key led to last, or the current one when the wish came by key. Kind
  // 1: a drive root, whole in `folder`. 2: a folder, 4: a file, as parent and name. 8: empty space
  // of a file list, as its folder and an empty name. 0, with both empty: nothing.
  void GetClickedItem(std::string& folder, std::string& name, bool byKey, std::int32_t& kind) const;
  // The full path of the first selected item up to the last dot of its name; empty if there is
  // none.
  std::string DuplicateBaseName() const;
  // Brackets of an action on the selection, and of a drop: the rows meant are shown as such.
  void BeginContextAction();
  void EndAction();
  bool IsInAction() const;
  void EndDrop();
  // The form's answer to DragBegun; action 1 begins the drag.
  void Drag(int action);

  // --- Tools.

  // Keeps the colour of that word, "default" for none, with each selected item, in a folder list
  // within the bracket of an action with the folder that was clicked for it; what does not take it
  // is told by StatusMessage. `count` gets the number of files in the list's folder. Gives those
  // that have another colour now.
  std::vector<ColouredItem> SetItemColor(const std::string& word, std::int32_t& count);
  // Of all folders on show; of the folder under the mouse pointer. Messages are let through and
  // CancelRequested is looked at. While a read runs the work waits for its end.
  void CalculateFolderSizes();
  void CalculateItemSize();
  // What takes part in a comparison, read by the two below.
  std::vector<CompareRecord> CompareRecords() const;
  // Marks this list's items against the records of another, by the bits of `mode`: 1 size, 2 date.
  // Leaves in each record what was found, for CompareSelf.
  void CompareAgainst(std::vector<CompareRecord>& records, std::int32_t& mode);
  // Marks this list's items by what CompareAgainst left in its own records.
  void CompareSelf(const std::vector<CompareRecord>& records);
  // Writes what the list shows to the file, see ListingFile.h. False if it cannot be written whole;
  // the file is then as it was.
  bool SaveListing(const std::string& path);

  // Shows the text in the status line; that of a file list goes on saying it until it shows another
  // folder.
  void ShowStatus(const std::string& text);

  // From WatchStop on changes on disk are not followed. WatchStart follows them again, for a list
  // that shows what it should; WatchResume looks first whether items came or went meanwhile.
  void WatchStart();
  void WatchStop();
  void WatchResume();

  // Where nobody tells the list of changes on disk, since its watch was left stopped or its folder
  // cannot be watched: looks for some, and takes them over. To be called when the list comes on
  // show, gets the keyboard or the pointer, when its window is activated, and as LookLater says. A
  // list that is not on show looks for LookReason::Mounts alone, and one for which a bracket is
  // open not at all. The list itself looks before it tells what is selected.
  void LookAtDisk(LookReason reason);

  // Volumes came or went: the drive list shows it, and so does a tree or a folder that is another
  // one now, or is there again.
  void DrivesChanged();

  // --- For the widget.

  const ListRows& Rows() const;
  ListRows& Rows();
  const ListInput& Input() const;  // mouse and keys
  ListInput& Input();
  const ListAppearance& Shown() const;
  ListColumns& Columns();
  const ListerUser& User() const;
  ListerUser& User();
  // For what the widget itself says in numbers.
  const platform::NumberForms& Forms() const;
  // The folder changed while it was read: reads it again. The view calls this when the list has
  // asked for it by CatchUpLater.
  void CatchUp();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tarnwell::lister
