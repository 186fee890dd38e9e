// The work behind a ListerControl: what the two kinds of list share, and the face of each kind.
#pragma once

#include <string>
#include <utility>

#include "lister/FolderFollower.h"
#include "lister/Headings.h"
#include "lister/ListMemory.h"
#include "lister/ListerControl.h"
#include "lister/NoView.h"
#include "lister/SortKeys.h"

namespace tarnwell::lister {

// The state that a list of either kind has.
struct ListState {
  ListState(ListerControl& control, const ListerServices& services, ListerEvents& events);

  ListerControl& Control;
  ListerServices Services;
  ListerEvents& Events;
  const base::PathSyntax& Syntax;
  Headings Table;
  SortKeys Keys;
  ExpandedFolders Expanded;
  ActiveItems Active;
  std::string Drive;   // on show, or remembered for the first load
  std::string Folder;  // open or on show
  std::string Status;

  // The list's widget, or one that does nothing.
  ListerView& View() { return Control.View != nullptr ? *Control.View : nobody_; }
  void SetStatus(std::string text);
  // Items that the user does not want to see.
  bool IsFilteredOut(const platform::FolderEntry& entry) const {
    return (entry.IsHidden && !Control.ShowHidden) || (entry.IsSystem && !Control.ShowSystem);
  }
  std::string DriveFolder(const std::string& drive) const;

 private:
  NoView nobody_;
};

// A list of one kind. What a kind has no use for does nothing.
class ListBody {
 public:
  explicit ListBody(ListState& state)
      : Follower(state.Services.Watches, [this] { FolderChanged(); }), state_(state) {}
  virtual ~ListBody() = default;

  FolderFollower Follower;

  virtual void SetFolder(const std::string&) {}
  virtual void Refresh() = 0;
  virtual void CatchUp() {}
  virtual void Resort() = 0;
  virtual void Terminate() = 0;

  // `chosen`: the user picked the drive, and the form learns that.
  virtual void LoadDrive(const std::string& /*drive*/, bool /*chosen*/) {}
  virtual void OpenFolder(const std::string&) {}
  virtual void ExpandFolder(const std::string&) {}
  virtual std::string ParentOfKey(const std::string&) const { return ""; }
  virtual int OpenLevel() const { return 0; }

  virtual void LoadContents(const std::string&) {}

  virtual int ChildCount(RowId parent) const = 0;
  virtual RowId Child(RowId parent, int position) const = 0;
  virtual RowId Parent(RowId row) const = 0;
  virtual int PositionOf(RowId row) const = 0;
  virtual RowLook Look(RowId row) const = 0;
  virtual std::string CellText(RowId row, HeadingId heading) const = 0;
  virtual std::string PathOf(RowId row) const = 0;
  virtual RowId CurrentRow() const = 0;

  virtual void MoveCurrent(RowId row) = 0;
  virtual void Activate(RowId row) = 0;
  virtual void Expand(RowId) {}
  virtual void Collapse(RowId) {}

 protected:
  // A notice that the folder changed on disk.
  virtual void FolderChanged() = 0;

  ListState& state_;
};

}  // namespace tarnwell::lister
