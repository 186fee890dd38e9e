#include "lister/FolderBody.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "lister/CellText.h"
#include "lister/KeepColour.h"

namespace tarnwell::lister {

using platform::ItemKind;

namespace {

std::vector<std::string_view> NamesIn(std::string_view path, char separator) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find(separator));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

}  // namespace

// What a folder holds, as far as a tree has use for it.
struct FolderBody::Listing {
  std::vector<Subfolder> Folders;
  bool IsEmpty = true;
  // Keys of the names that are remembered as expanded and that the folder does not hold.
  std::set<std::string> Missing;
};

// --- Commands, one after the other.

void FolderBody::Run(Command command) {
  waiting_.push_back(std::move(command));
  while (!busy_ && !terminated_ && !waiting_.empty()) {
    const Command next = std::move(waiting_.front());
    waiting_.pop_front();
    Perform(next);
  }
  // From the event loop: whoever gave the command is not to wait for it.
  if (!busy_ && sizes_.HasWishes()) state_.View().CatchUpLater(0);
}

void FolderBody::RunOnRow(RowId row, std::function<Outcome()> command) {
  Run([this, row, removals = tree_.Removals(), work = std::move(command)] {
    return tree_.Has(row) && tree_.Removals() == removals ? work() : Outcome::Nothing;
  });
}

void FolderBody::Perform(const Command& command) {
  busy_ = true;
  stopped_ = false;
  sizes_.HeedCancel();
  trouble_.clear();
  pace_.emplace(state_.Services.Clock, state_.Services.Pump);
  state_.Control.CancelRequested = false;
  const Outcome outcome = command();
  state_.Control.CancelRequested = false;
  busy_ = false;
  if (terminated_) return;

  if (tree_.Has(tree_.Open())) {
    state_.Folder = tree_.PathOf(tree_.Open());
    Follower.Follow(state_.Folder);
  }
  state_.SetStatus(trouble_);
  // Last, since what follows may open another folder.
  const ListId id = state_.Control.Id();
  if (outcome == Outcome::FolderOpened) state_.Events.FolderSelected(id);
  if (outcome == Outcome::DriveChosen) state_.Events.DriveSelected(id);
}

void FolderBody::LoadDrive(const std::string& drive, bool chosen) {
  Run([this, drive, chosen] { return Load(drive, chosen); });
}

void FolderBody::OpenFolder(const std::string& folder) {
  Run([this, folder] { return OpenPath(folder); });
}

void FolderBody::ExpandFolder(const std::string& folder) {
  Run([this, folder] {
    const RowId row = Reach(folder);
    if (row != NoRow) {
      ExpandAncestors(row);
      ExpandRow(row);
    }
    return Outcome::Nothing;
  });
}

void FolderBody::Refresh() {
  Run([this] { return RefreshAll(); });
}

void FolderBody::FolderChanged(const platform::FolderChanges&) {
  Run([this] { return RefreshOpenBranch(); });
}

void FolderBody::Resort() {
  Run([this] {
    tree_.Sort(state_.Keys.Entries()[0].Descending, state_.View());
    return Outcome::Nothing;
  });
}

void FolderBody::Terminate() {
  terminated_ = true;
  waiting_.clear();
  Follower.Stop();
}

void FolderBody::MoveCurrent(RowId row) {
  RunOnRow(row, [this, row] { return OpenRow(row, false); });
}

void FolderBody::Activate(RowId row) {
  RunOnRow(row, [this, row] {
    const Outcome outcome = OpenRow(row, false);
    ExpandRow(row);
    return outcome;
  });
}

void FolderBody::Expand(RowId row) {
  RunOnRow(row, [this, row] {
    ExpandRow(row);
    return Outcome::Nothing;
  });
}

void FolderBody::Collapse(RowId row) {
  RunOnRow(row, [this, row] {
    state_.Expanded.Remove(tree_.PathOf(row));
    tree_.SetExpanded(row, false, state_.View());
    if (tree_.IsWithin(tree_.Current(), row)) tree_.SetCurrent(row, state_.View());
    return Outcome::Nothing;
  });
}

// --- The work of the commands.

FolderBody::Outcome FolderBody::Load(const std::string& drive, bool chosen) {
  state_.Drive = drive;
  tree_.Reset(PlainPath(state_.Syntax, state_.Syntax.DriveRoot(drive)), state_.View());
  state_.View().DrivesChanged();
  ExpandRow(FolderTree::TopRow);

  const std::string folder = state_.DriveFolder(drive);
  RowId row = NoRow;
  if (IsOnTree(folder) && state_.Services.Files.FolderExists(folder)) row = Reach(folder);
  OpenRow(row == NoRow ? FolderTree::TopRow : row, true);
  return chosen ? Outcome::DriveChosen : Outcome::FolderOpened;
}

FolderBody::Outcome FolderBody::OpenPath(const std::string& folder) {
  const bool loaded = tree_.Has(FolderTree::TopRow);
  if (folder.empty()) return loaded ? OpenRow(FolderTree::TopRow, true) : Outcome::Nothing;
  const RowId row = Reach(folder);
  return row == NoRow ? Outcome::Nothing : OpenRow(row, true);
}

FolderBody::Outcome FolderBody::OpenRow(RowId row, bool always) {
  const bool moved = tree_.Open() != row;
  ExpandAncestors(row);
  tree_.SetOpen(row, state_.View());
  tree_.SetCurrent(row, state_.View());
  state_.Folder = tree_.PathOf(row);
  state_.Active.Set(tree_.PathOf(FolderTree::TopRow), state_.Folder);
  return moved || always ? Outcome::FolderOpened : Outcome::Nothing;
}

FolderBody::Outcome FolderBody::RefreshAll() {
  if (!tree_.Has(FolderTree::TopRow)) return Outcome::Nothing;
  const std::string before = state_.Folder;
  std::vector<RowId> rows{FolderTree::TopRow};
  while (!rows.empty() && GoesOn()) {
    const RowId row = rows.back();
    rows.pop_back();
    RefreshBranch(row);
    const std::vector<RowId>& children = tree_.Node(row).Children;
    rows.insert(rows.end(), children.rbegin(), children.rend());
  }
  return TellIfMoved(before);
}

FolderBody::Outcome FolderBody::RefreshOpenBranch() {
  const RowId row = tree_.Open();
  if (!tree_.Has(row)) return Outcome::Nothing;
  if (!state_.Services.Files.Exists(tree_.PathOf(row))) return RefreshAll();
  if (tree_.Node(row).State != BranchState::Unread) RefreshBranch(row);
  return Outcome::Nothing;
}

FolderBody::Outcome FolderBody::TellIfMoved(const std::string& before) {
  if (tree_.PathOf(tree_.Open()) == before) return Outcome::Nothing;
  return OpenRow(tree_.Open(), true);
}

// A branch that nobody sees is forgotten rather than read: it is read again when it is expanded.
void FolderBody::RefreshBranch(RowId row) {
  const FolderNode& node = tree_.Node(row);
  const std::string wanted = OpenChildOf(row);
  const bool knownEmpty = node.State == BranchState::Read && node.Children.empty();
  if (node.IsExpanded || !wanted.empty() || knownEmpty) {
    ReadBranch(row, wanted);
  } else {
    tree_.Forget(row, state_.View());
  }
}

RowId FolderBody::Reach(const std::string& folder) {
  const std::string path = PlainPath(state_.Syntax, folder);
  const std::string shown = base::ForDisplay(path);
  if (!IsOnTree(path)) {
    trouble_ = "Cannot open " + shown + ": it is not on this drive";
    return NoRow;
  }
  platform::ItemAttributes attributes;
  const base::Status status = state_.Services.Files.ReadAttributes(path, "", attributes);
  if (!status || attributes.Kind != ItemKind::Folder) {
    trouble_ = "Cannot open " + shown + ": " + (status ? "it is not a folder" : status.Reason);
    return NoRow;
  }

  const std::vector<std::string_view> names = NamesIn(path, state_.Syntax.Separator);
  const std::string top = tree_.PathOf(FolderTree::TopRow);
  RowId row = FolderTree::TopRow;
  for (std::size_t level = NamesIn(top, state_.Syntax.Separator).size();
       level < names.size() && row != NoRow; ++level) {
    RowId child = tree_.FindChild(row, names[level]);
    // Also a branch that has been read may lack the folder: it can be new, or hidden.
    if (child == NoRow && ReadBranch(row, std::string(names[level]))) {
      child = tree_.FindChild(row, names[level]);
    }
    row = child;
  }
  if (row == NoRow && trouble_.empty()) trouble_ = "Cannot open " + shown;
  return row;
}

void FolderBody::ExpandAncestors(RowId row) {
  std::vector<RowId> ancestors;
  for (RowId parent = tree_.Node(row).Parent; parent > RootRow;
       parent = tree_.Node(parent).Parent) {
    if (!tree_.Node(parent).IsExpanded) ancestors.push_back(parent);
  }
  for (; !ancestors.empty(); ancestors.pop_back()) ExpandRow(ancestors.back());
}

void FolderBody::ExpandRow(RowId row) {
  if (IsToBeRead(row)) ReadBranch(row, "");
  ShowBranch(row);
}

bool FolderBody::IsToBeRead(RowId row) const {
  const FolderNode& node = tree_.Node(row);
  return node.State != BranchState::Read && node.Children.empty();
}

void FolderBody::ShowBranch(RowId row) {
  const bool shows = !IsToBeRead(row);
  if (shows) state_.Expanded.Add(tree_.PathOf(row));
  tree_.SetExpanded(row, shows, state_.View());
}

// --- Reading.

// No call within a call for what is expanded below: trees can be deeper than the stack.
bool FolderBody::ReadBranch(RowId row, const std::string& wanted) {
  std::vector<RowId> remembered;
  if (!ReadOneBranch(row, wanted, remembered)) return false;
  while (!remembered.empty() && GoesOn()) {
    const RowId below = remembered.back();
    remembered.pop_back();
    if (IsToBeRead(below)) ReadOneBranch(below, "", remembered);
    ShowBranch(below);
  }
  return true;
}

bool FolderBody::ReadOneBranch(RowId row, const std::string& wanted,
                               std::vector<RowId>& remembered) {
  if (!GoesOn()) return false;
  const std::string folder = tree_.PathOf(row);
  Listing listing;
  const base::Status status = ReadSubfolders(folder, wanted, listing);
  if (stopped_ || terminated_) return false;
  tree_.Update(row, std::move(listing.Folders), status ? BranchState::Read : BranchState::Failed,
               state_.View());
  sizes_.FolderWasRead(row);
  if (status) {
    CollectRemembered(row, folder, listing, remembered);
  } else {
    trouble_ = CannotRead(folder, status);
  }
  return true;
}

// A branch is forgotten when it is gone for certain: one that cannot be looked at may come back,
// and so may all that lies below an empty folder, which can be where a volume will be mounted.
void FolderBody::CollectRemembered(RowId row, const std::string& path, const Listing& listing,
                                   std::vector<RowId>& remembered) {
  for (const std::string& entry : state_.Expanded.In(path)) {
    const std::string_view name = state_.Syntax.LastComponent(entry);
    const RowId child = tree_.FindChild(row, name);
    platform::ItemAttributes attributes;
    if (child != NoRow) {
      if (!tree_.Node(child).IsExpanded) remembered.push_back(child);
    } else if (!listing.IsEmpty && listing.Missing.contains(state_.Syntax.Key(name)) &&
               !state_.Services.Files.ReadAttributes(entry, "", attributes)) {
      state_.Expanded.RemoveWithin(entry);
    }
  }
}

base::Status FolderBody::ReadSubfolders(const std::string& folder, const std::string& wanted,
                                        Listing& listing) {
  const platform::FileSystem& files = state_.Services.Files;
  const auto isFolder = [&](const std::string& name, platform::ItemAttributes& attributes) {
    return files.ReadAttributes(folder, name, attributes) && attributes.Kind == ItemKind::Folder;
  };
  for (const std::string& path : state_.Expanded.In(folder)) {
    listing.Missing.insert(state_.Syntax.Key(state_.Syntax.LastComponent(path)));
  }
  bool foundWanted = wanted.empty();
  platform::ItemAttributes attributes;
  base::Status status = files.ReadFolder(folder, [&](const platform::FolderEntry& entry) {
    if (!GoesOn()) return false;
    listing.IsEmpty = false;
    if (!listing.Missing.empty()) listing.Missing.erase(state_.Syntax.Key(entry.Name));
    const bool isWanted = !wanted.empty() && state_.Syntax.Same(entry.Name, wanted);
    if (state_.IsFilteredOut(entry) && !isWanted) return true;
    const bool untold = entry.IsLink || entry.Kind == ItemKind::Unknown;
    if (untold ? !isFolder(std::string(entry.Name), attributes) : entry.Kind != ItemKind::Folder)
      return true;
    foundWanted = foundWanted || isWanted;
    listing.Folders.push_back({std::string(entry.Name), entry.IsLink, entry.IsHidden});
    return true;
  });
  // A folder can be entered although the one above it cannot be listed, or does not list it.
  const bool step = wanted == "." || wanted == "..";
  if (!foundWanted && !step && isFolder(wanted, attributes)) {
    listing.Folders.push_back({wanted, attributes.IsLink, false});
  }
  return status;
}

bool FolderBody::GoesOn() {
  if (!stopped_ && !terminated_ && pace_->IsDue()) {
    pace_->Pump();
    if (state_.Control.CancelRequested) {
      stopped_ = true;
      trouble_ = "Reading stopped";
    }
  }
  return !stopped_ && !terminated_;
}

std::string FolderBody::OpenChildOf(RowId row) const {
  RowId child = tree_.Open();
  while (child > RootRow && tree_.Node(child).Parent != row) child = tree_.Node(child).Parent;
  return child > RootRow ? tree_.Node(child).Name : "";
}

bool FolderBody::IsOnTree(const std::string& folder) const {
  return tree_.Has(FolderTree::TopRow) &&
         state_.Syntax.IsWithin(folder, tree_.PathOf(FolderTree::TopRow));
}

// --- Tools.

void FolderBody::SetItemColour(ItemColour colour) {
  if (tree_.Has(tree_.Current())) KeepColour(state_, tree_.PathOf(tree_.Current()), colour);
}

void FolderBody::CalculateFolderSizes() {
  sizes_.AskForAll();
  CatchUp();
}

void FolderBody::CalculateItemSize() {
  sizes_.AskForItem();
  CatchUp();
}

// Sizes that were asked for; a command that runs sees to them when it is done.
void FolderBody::CatchUp() {
  if (!busy_) sizes_.Work();
}

// --- What the widget and the form ask.

std::string FolderBody::ParentOfKey(const std::string& key) const {
  if (!tree_.Has(FolderTree::TopRow)) return "";
  const std::string top = tree_.PathOf(FolderTree::TopRow);
  return IsOnTree(key) && !state_.Syntax.Same(key, top) ? state_.Syntax.ParentOf(key) : top;
}

int FolderBody::OpenLevel() const {
  return tree_.Has(tree_.Open()) ? tree_.LevelOf(tree_.Open()) : 0;
}

int FolderBody::ChildCount(RowId parent) const {
  if (parent != RootRow && !tree_.Has(parent)) return 0;
  return static_cast<int>(tree_.Node(parent).Children.size());
}

RowId FolderBody::Child(RowId parent, int position) const {
  if (position < 0 || position >= ChildCount(parent)) return NoRow;
  return tree_.Node(parent).Children[static_cast<std::size_t>(position)];
}

RowId FolderBody::Parent(RowId row) const {
  return tree_.Has(row) ? tree_.Node(row).Parent : NoRow;
}

int FolderBody::PositionOf(RowId row) const {
  return tree_.Has(row) ? tree_.Node(row).Position : -1;
}

RowLook FolderBody::Look(RowId row) const {
  if (!tree_.Has(row)) return {};
  const FolderNode& node = tree_.Node(row);
  return {.Kind = ItemKind::Folder,
          .IsLink = node.IsLink,
          .IsHidden = node.IsHidden,
          .IsOpen = row == tree_.Open(),
          .HasChildren = node.HasChildren(),
          .IsExpanded = node.IsExpanded};
}

// A tree knows the names of its folders, and sizes once measured; its other cells are empty.
std::string FolderBody::CellText(RowId row, HeadingId heading) const {
  if (!tree_.Has(row)) return "";
  const FolderNode& node = tree_.Node(row);
  if (heading == HeadingId::Name) return base::ForDisplay(node.Name);
  if (heading == HeadingId::FileType) return "Folder";
  if (heading == HeadingId::Size) {
    const auto bytes = sizes_.SizeOf(row);
    return bytes ? GroupedNumber(*bytes) : "";
  }
  if (heading == HeadingId::Path && row != FolderTree::TopRow) {
    return base::ForDisplay(tree_.PathOf(node.Parent));
  }
  return "";
}

std::string FolderBody::CellBytes(RowId row, HeadingId heading) const {
  if (!tree_.Has(row)) return "";
  const FolderNode& node = tree_.Node(row);
  if (heading == HeadingId::Name) return node.Name;
  if (heading == HeadingId::Path) return row == FolderTree::TopRow ? "" : tree_.PathOf(node.Parent);
  const auto bytes = heading == HeadingId::Size ? sizes_.SizeOf(row) : std::nullopt;
  return bytes ? std::to_string(*bytes) : heading == HeadingId::Size ? "" : CellText(row, heading);
}

std::string FolderBody::PathOf(RowId row) const {
  return tree_.Has(row) ? tree_.PathOf(row) : "";
}

}  // namespace tarnwell::lister
