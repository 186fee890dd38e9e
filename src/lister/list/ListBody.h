// The work behind a list: what the two kinds of list share, and the face of each kind.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "lister/list/FolderFollower.h"
#include "lister/list/ListAppearance.h"
#include "lister/list/ListFields.h"
#include "lister/list/ListInput.h"
#include "lister/list/ListMemory.h"
#include "lister/list/ListServices.h"
#include "lister/list/ListerEvents.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/ListRows.h"
#include "lister/rows/NameFilter.h"
#include "lister/rows/NameOrder.h"
#include "lister/rows/NoView.h"
#include "lister/rows/SortKeys.h"
#include "platform/FileOperation.h"
#include "platform/FileSearch.h"

namespace tarnwell::lister {

// The state that a list of either kind has.
struct ListState : ListAppearance {
  // `fields` outlive the state.
  ListState(ListId id, ListFields& fields, const ListServices& services, ListerEvents& events);

  ListFields& Fields;
  ListServices Services;
  ListerEvents& Events;
  const base::PathSyntax& Syntax;
  NameOrder Names;
  SortKeys Keys;
  ExpandedFolders Expanded;
  ActiveItems Active;
  std::string Drive;          // on show, or remembered for the first load
  std::string Folder;         // open or on show
  std::string Summary;        // what the status line says when there is no news
  bool InAction = false;      // a context action runs
  RowId DragRow = NoRow;      // the folder that lies under a drag
  std::string DropFolder;     // under the last drop, as the form asks for it
  bool IsWaiting = false;     // for another machine
  bool IsTerminated = false;  // work that let messages through is to end

  // The list's widget, or one that does nothing.
  ListerView& View() { return HasView() ? *Fields.View : nobody_; }
  bool HasView() const { return Fields.View != nullptr; }
  void SetDragGraphicsOn(bool on);  // off: the marks of a drag are wiped
  // News, unless it is empty: the line then says what it says when there are none.
  void SetStatus(std::string text) { SetStatus(std::move(text), Marks, true); }
  void SetStatus(std::string text, CompareMarks marks, bool isNews);
  // Items that the user does not want to see.
  bool IsFilteredOut(const platform::FolderEntry& entry) const {
    return (entry.IsHidden && !Fields.ShowHidden) || (entry.IsSystem && !Fields.ShowSystem);
  }
  // The folder last open on the drive, or the home folder for the drive that holds it, or the
  // drive's root.
  std::string DriveFolder(const std::string& drive) const;
  // The folder becomes the one last open on the drive.
  void SetDriveFolder(const std::string& drive, const std::string& folder);

 private:
  NoView nobody_;
};

// A list of one kind. What a kind has no use for does nothing.
class ListBody : public ListRows {
 public:
  explicit ListBody(ListState& state)
      : Follower(
            state.Services.Watches, state.Services.Stamps, state.Services.Clock,
            [this](const auto& folder, const auto& changes) { FolderChanged(folder, changes); },
            [&state](int milliseconds) { state.View().LookLater(milliseconds); }),
        state_(state) {}

  FolderFollower Follower;

  virtual void ShowStatus(const std::string& text) { state_.SetStatus(text); }
  virtual ListInput& Input() = 0;
  virtual const ListInput& Input() const = 0;

  virtual void SetFolder(const std::string&) {}
  virtual void Refresh() = 0;
  virtual void CatchUp() {}
  virtual void Resort() = 0;
  virtual void Terminate() = 0;
  virtual void DrivesChanged() {}
  // What is shown of the rows has changed: settings, headings.
  virtual void SettingsChanged() {}

  // `chosen`: the user picked the drive, and the form learns that.
  virtual void LoadDrive(const std::string& /*drive*/, bool /*chosen*/) {}
  virtual void OpenFolder(const std::string&) {}
  virtual void ExpandFolder(const std::string&) {}
  virtual std::string ParentOfKey(const std::string&) const { return ""; }
  virtual int OpenLevel() const { return 0; }

  virtual void LoadContents(const std::string&) {}
  // See ListerControl.
  virtual void ShowFound(const std::string& /*folder*/) {}
  virtual void AddFound(const std::vector<platform::FoundItem>&) {}
  virtual std::vector<platform::FoundItem> FoundItems() const { return {}; }
  virtual void FollowMoved(const std::vector<platform::PlacedItem>&) {}
  // What was found is looked at again if that has been put off.
  virtual void LookAtFound() {}
  virtual void PlaceCursor(const std::vector<platform::PlacedItem>&,
                           std::function<bool()> /*tells*/) {}

  // Of a list that has a filter.
  virtual void SetFilterText(const std::string&) {}
  virtual void SetExtensionFilter(const std::string&) {}
  virtual std::vector<ExtensionChoice> ExtensionChoices() const { return {}; }

  // Tools, as the form asks for them.
  virtual std::vector<ColouredItem> SetItemColour(ItemColour /*colour*/) { return {}; }
  virtual int FileCount() const { return 0; }
  virtual void CalculateFolderSizes() {}
  virtual void CalculateItemSize() {}
  virtual std::vector<CompareRecord> CompareRecords() const { return {}; }
  virtual void CompareAgainst(std::vector<CompareRecord>&, std::int32_t /*mode*/) {}
  virtual void CompareSelf(const std::vector<CompareRecord>&) {}

  RowState StateOf(RowId row) const final;
  std::string BriefText(RowId row, HeadingId heading) const final;
  std::string LinkNote(RowId row) const final;
  // The cell for other programs: bytes as they are, numbers in digits alone.
  virtual std::string CellBytes(RowId row, HeadingId heading) const = 0;

  EmptyNote NoteOfEmptiness() const override { return {}; }
  void Expand(RowId) override {}
  void Collapse(RowId) override {}

 protected:
  // As StateOf, but for IsTarget.
  virtual RowState OwnStateOf(RowId row) const = 0;
  // What stands under a heading of dates; UnknownTime for a row that does not exist.
  virtual std::int64_t MomentOf(RowId row, HeadingId heading) const = 0;
  // A notice that a folder changed on disk, as FolderFollower gives it.
  virtual void FolderChanged(const std::string& folder, const platform::FolderChanges& changes) = 0;

  ListState& state_;
};

}  // namespace tarnwell::lister
