// A folder list: the tree of one drive, read branch by branch as branches are expanded. Runs its
// commands one after the other and puts its parts together: tree, readers, notices, input.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "lister/tree/BranchReader.h"
#include "lister/tree/FolderFactReader.h"
#include "lister/tree/FolderInput.h"
#include "lister/tree/FolderListState.h"
#include "lister/tree/FolderNotices.h"
#include "lister/tree/TreeSizes.h"

namespace tarnwell::lister {

class FolderBody : public ListBody {
 public:
  explicit FolderBody(ListState& state)
      : ListBody(state),
        folders_(state, Follower),
        sizes_(state, tree_),
        reader_(folders_, sizes_),
        notices_(folders_, reader_),
        facts_(folders_, sizes_),
        input_(tree_, state, *this) {
    tree_.SizeOf = [this](RowId row) { return sizes_.SizeOf(row); };
  }

  ListInput& Input() override { return input_; }
  const ListInput& Input() const override { return input_; }

  void Refresh() override;
  void CatchUp() override;
  void Resort() override;
  void Terminate() override;
  void DrivesChanged() override;
  void SettingsChanged() override;

  void LoadDrive(const std::string& drive, bool chosen) override;
  void OpenFolder(const std::string& folder) override;
  void ExpandFolder(const std::string& folder) override;
  std::string ParentOfKey(const std::string& key) const override;
  int OpenLevel() const override;

  std::vector<ColouredItem> SetItemColour(ItemColour colour) override;
  void CalculateFolderSizes() override;
  void CalculateItemSize() override;

  int ChildCount(RowId parent) const override;
  RowId Child(RowId parent, int position) const override;
  RowId Parent(RowId row) const override;
  int PositionOf(RowId row) const override;
  std::string CellText(RowId row, HeadingId heading) const override;
  bool IsSizePartial(RowId row) const override;
  std::string CellBytes(RowId row, HeadingId heading) const override;
  std::string PathOf(RowId row) const override;
  RowId CurrentRow() const override { return tree_.Current(); }

  void MoveCurrent(RowId row) override;
  void Activate(RowId row) override;
  void Expand(RowId row) override;
  void Collapse(RowId row) override;

 protected:
  RowState OwnStateOf(RowId row) const override;
  std::int64_t MomentOf(RowId row, HeadingId heading) const override;
  void FolderChanged(const std::string& folder, const platform::FolderChanges& changes) override;

 private:
  enum class Outcome { Nothing, FolderOpened, DriveChosen };
  using Command = std::function<Outcome()>;

  // Reading lets messages through, so a command can arrive inside another one: it then waits until
  // that is done. A command for a row is dropped if rows have been removed meanwhile.
  void Run(Command command);
  void RunOnRow(RowId row, std::function<Outcome()> command);
  void Perform(const Command& command);
  Outcome RunWaiting(const Command& command);
  // Brings the tree up to date with what is on disk, unless that was just done for long.
  void MindNotices();

  Outcome Load(const std::string& drive, bool chosen);
  Outcome OpenPath(const std::string& folder);
  Outcome OpenRow(RowId row, bool always);
  Outcome RefreshAll();
  Outcome ApplyNotices();
  // Tells of the node that is open now if another one was before.
  Outcome TellIfMoved(const std::string& before);
  // Follows the open folder, those above it and the branches on show.
  void FollowBranches();

  FolderListState folders_;
  FolderTree& tree_ = folders_.Tree;
  TreeSizes sizes_;
  BranchReader reader_;
  FolderNotices notices_;
  FolderFactReader facts_;
  FolderInput input_;
  std::deque<Command> waiting_;
  bool busy_ = false;
  std::int64_t restUntil_ = 0;  // ticks before which notices wait
  bool willCatchUp_ = false;    // the view was asked for it
};

}  // namespace tarnwell::lister
