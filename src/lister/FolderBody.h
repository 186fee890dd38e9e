// A folder list: the tree of one drive, read branch by branch as branches are expanded.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "lister/FolderInput.h"
#include "lister/FolderTree.h"
#include "lister/ListBody.h"
#include "lister/ListSizes.h"
#include "lister/Pacer.h"

namespace tarnwell::lister {

class FolderBody : public ListBody {
 public:
  explicit FolderBody(ListState& state)
      : ListBody(state),
        tree_(state.Syntax, state.Names),
        input_(tree_, state.Control),
        sizes_(state, tree_) {}

  ListInput& Input() override { return input_; }
  const ListInput& Input() const override { return input_; }

  void Refresh() override;
  void Resort() override;
  void Terminate() override;
  void CatchUp() override;

  void LoadDrive(const std::string& drive, bool chosen) override;
  void OpenFolder(const std::string& folder) override;
  void ExpandFolder(const std::string& folder) override;
  std::string ParentOfKey(const std::string& key) const override;
  int OpenLevel() const override;

  void SetItemColour(ItemColour colour) override;
  void CalculateFolderSizes() override;
  void CalculateItemSize() override;

  int ChildCount(RowId parent) const override;
  RowId Child(RowId parent, int position) const override;
  RowId Parent(RowId row) const override;
  int PositionOf(RowId row) const override;
  RowLook Look(RowId row) const override;
  std::string CellText(RowId row, HeadingId heading) const override;
  std::string CellBytes(RowId row, HeadingId heading) const override;
  std::string PathOf(RowId row) const override;
  RowId CurrentRow() const override { return tree_.Current(); }

  void MoveCurrent(RowId row) override;
  void Activate(RowId row) override;
  void Expand(RowId row) override;
  void Collapse(RowId row) override;

 protected:
  void FolderChanged(const platform::FolderChanges& changes) override;

 private:
  enum class Outcome { Nothing, FolderOpened, DriveChosen };
  struct Listing;
  using Command = std::function<Outcome()>;

  // Reading lets messages through, so a command can arrive inside another one: it then waits until
  // that is done. A command for a row is dropped if rows have been removed meanwhile.
  void Run(Command command);
  void RunOnRow(RowId row, std::function<Outcome()> command);
  void Perform(const Command& command);

  Outcome Load(const std::string& drive, bool chosen);
  Outcome OpenPath(const std::string& folder);
  Outcome OpenRow(RowId row, bool always);
  Outcome RefreshAll();
  Outcome RefreshOpenBranch();
  // Tells of the node that is open now if another one was before.
  Outcome TellIfMoved(const std::string& before);
  void RefreshBranch(RowId row);

  // The row of a folder of this tree, its ancestors read as needed; NoRow if it cannot be found.
  RowId Reach(const std::string& folder);
  void ExpandAncestors(RowId row);
  void ExpandRow(RowId row);
  bool IsToBeRead(RowId row) const;
  // Marks the branch as expanded if there is anything to show.
  void ShowBranch(RowId row);
  // Reads the children of a row, and expands those that were expanded before; `wanted` is shown
  // even if it is hidden. False when the user stopped it; the branch is then as before.
  bool ReadBranch(RowId row, const std::string& wanted);
  // Adds the children to expand to `remembered`.
  bool ReadOneBranch(RowId row, const std::string& wanted, std::vector<RowId>& remembered);
  void CollectRemembered(RowId row, const std::string& path, const Listing& listing,
                         std::vector<RowId>& remembered);
  base::Status ReadSubfolders(const std::string& folder, const std::string& wanted,
                              Listing& listing);
  // Lets messages through when it is time to. False when the command is to end.
  bool GoesOn();
  // The child of the row that leads to the open node; empty if none does.
  std::string OpenChildOf(RowId row) const;
  bool IsOnTree(const std::string& folder) const;

  FolderTree tree_;
  FolderInput input_;
  TreeSizes sizes_;
  std::deque<Command> waiting_;
  bool busy_ = false;
  std::optional<Pacer> pace_;  // of the command that runs
  bool stopped_ = false;       // by the user, in that command
  bool terminated_ = false;
  std::string trouble_;  // for the status line, from the command that runs
};

}  // namespace tarnwell::lister
