#include "lister/tree/FolderBody.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/Text.h"
#include "lister/list/KeepColour.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {
namespace {

// In milliseconds. After work of more than this on notices the next ones wait as long as it took.
constexpr std::int64_t QuickNotices = 20;
// So long a command may wait for another machine while the next one is there already.
constexpr std::int64_t WaitBeforeOthers = 2000;

}  // namespace

// --- Commands, one after the other.

void FolderBody::Run(Command command) {
  waiting_.push_back(std::move(command));
  if (busy_) return;
  while (!state_.IsTerminated && !waiting_.empty()) {
    const Command next = std::move(waiting_.front());
    waiting_.pop_front();
    Perform(next);
  }
  MindNotices();
  facts_.Run();
  // From the event loop: whoever gave the command is not to wait for it.
  if (sizes_.HasWishes()) state_.View().CatchUpLater(0);
}

void FolderBody::RunOnRow(RowId row, std::function<Outcome()> command) {
  Run([this, row, removals = tree_.Removals(), work = std::move(command)] {
    return tree_.Has(row) && tree_.Removals() == removals ? work() : Outcome::Nothing;
  });
}

void FolderBody::Perform(const Command& command) {
  busy_ = true;
  folders_.Stopped = false;
  sizes_.HeedCancel();
  folders_.Trouble.clear();
  folders_.Pace.emplace(state_.Services.Clock, state_.Services.Pump);
  state_.Fields.CancelRequested = false;
  const Outcome outcome = RunWaiting(command);
  busy_ = false;
  if (state_.IsTerminated) return;
  state_.Summary =
      platform::Counted(state_.Services.Forms, platform::CountedText::Folders, tree_.CountOnShow());
  state_.SetStatus(folders_.Trouble);
  // Last, since what follows may open another folder.
  const ListId id = state_.Id;
  if (outcome == Outcome::FolderOpened) state_.Events.FolderSelected(id);
  if (outcome == Outcome::DriveChosen) state_.Events.DriveSelected(id);
}

// Any call on the way may have to wait for another machine.
FolderBody::Outcome FolderBody::RunWaiting(const Command& command) {
  const std::int64_t start = state_.Services.Clock.Ticks();
  const platform::WaitScope waits(state_.Services.Pump, [this, start](const std::string& place) {
    state_.SetStatus(WaitText(place));
    state_.IsWaiting = true;
    folders_.LetThrough();
    state_.IsWaiting = false;
    const bool isLate = state_.Services.Clock.Ticks() - start >= WaitBeforeOthers;
    return !folders_.Stopped && !state_.IsTerminated && (waiting_.empty() || !isLate);
  });
  const Outcome outcome = command();
  state_.Fields.CancelRequested = false;
  if (!state_.IsTerminated && tree_.Has(tree_.Open())) {
    state_.Folder = tree_.PathOf(tree_.Open());
    FollowBranches();
  }
  return outcome;
}

void FolderBody::FolderChanged(const std::string& folder, const platform::FolderChanges& changes) {
  notices_.Gather(folder, changes);
  if (!busy_) MindNotices();
}

void FolderBody::MindNotices() {
  if (state_.IsTerminated || willCatchUp_ || !notices_.AnyWaiting()) return;
  const std::int64_t rest = restUntil_ - state_.Services.Clock.Ticks();
  if (rest <= 0 || !state_.HasView()) return Run([this] { return ApplyNotices(); });
  willCatchUp_ = true;
  state_.View().CatchUpLater(static_cast<int>(rest));
}

// Notices that had to wait, and sizes that were asked for; a command that runs sees to them when it
// is done.
void FolderBody::CatchUp() {
  willCatchUp_ = false;
  if (busy_) return;
  MindNotices();
  sizes_.Work();
}

void FolderBody::LoadDrive(const std::string& drive, bool chosen) {
  Run([this, drive, chosen] { return Load(drive, chosen); });
}

void FolderBody::OpenFolder(const std::string& folder) {
  Run([this, folder] { return OpenPath(folder); });
}

void FolderBody::ExpandFolder(const std::string& folder) {
  Run([this, folder] {
    const RowId row = reader_.Reach(folder);
    if (row != NoRow && reader_.ExpandAncestors(row)) reader_.Expand(row);
    return Outcome::Nothing;
  });
}

void FolderBody::Refresh() {
  Run([this] { return RefreshAll(); });
}

// A volume that was taken out and put in again: its root could not be read, and now it can.
void FolderBody::DrivesChanged() {
  Run([this] {
    const std::string news = state_.News();
    const bool failed = tree_.Has(FolderTree::TopRow) &&
                        tree_.Node(FolderTree::TopRow).State == BranchState::Failed;
    if (failed && state_.Services.Files.FolderExists(tree_.PathOf(FolderTree::TopRow))) {
      return RefreshAll();
    }
    folders_.Trouble = news;  // nobody asked for this
    return Outcome::Nothing;
  });
}

void FolderBody::Resort() {
  Run([this] {
    tree_.SortBy(state_.Keys.Entries()[0], state_.View());
    return Outcome::Nothing;
  });
}

void FolderBody::Terminate() {
  state_.IsTerminated = true;
  waiting_.clear();
  notices_.Clear();
  Follower.Stop();
}

void FolderBody::SettingsChanged() {
  if (!busy_) facts_.Run();
}

void FolderBody::MoveCurrent(RowId row) {
  RunOnRow(row, [this, row] { return OpenRow(row, false); });
}

void FolderBody::Activate(RowId row) {
  RunOnRow(row, [this, row] {
    const Outcome outcome = OpenRow(row, false);
    reader_.Expand(tree_.Open());
    if (outcome == Outcome::Nothing) state_.Events.OpenFolderChosen(state_.Id);
    return outcome;
  });
}

void FolderBody::Expand(RowId row) {
  RunOnRow(row, [this, row] {
    reader_.Expand(row);
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
  notices_.Clear();
  willCatchUp_ = false;
  tree_.Reset(PlainPath(state_.Syntax, state_.Syntax.DriveRoot(drive)), state_.View());
  state_.View().DrivesChanged();
  reader_.Expand(FolderTree::TopRow);

  const std::string folder = state_.DriveFolder(drive);
  RowId row = NoRow;
  if (reader_.IsOnTree(folder) && state_.Services.Files.FolderExists(folder)) {
    row = reader_.Reach(folder);
  }
  OpenRow(row == NoRow ? FolderTree::TopRow : row, true);
  return chosen ? Outcome::DriveChosen : Outcome::FolderOpened;
}

FolderBody::Outcome FolderBody::OpenPath(const std::string& folder) {
  const bool loaded = tree_.Has(FolderTree::TopRow);
  if (folder.empty()) return loaded ? OpenRow(FolderTree::TopRow, true) : Outcome::Nothing;
  const RowId row = reader_.Reach(folder);
  return row == NoRow ? Outcome::Nothing : OpenRow(row, true);
}

FolderBody::Outcome FolderBody::OpenRow(RowId row, bool always) {
  const bool moved = tree_.Open() != row;
  // Open first: branches that are read again on the way keep the node, or hand the mark upwards.
  tree_.SetOpen(row, state_.View());
  tree_.SetCurrent(row, state_.View());
  reader_.ExpandAncestors(row);
  state_.View().ScrollToCurrent();  // which nobody could while a branch above was closed
  state_.Folder = tree_.PathOf(tree_.Open());
  state_.Active.Set(tree_.PathOf(FolderTree::TopRow), state_.Folder);
  input_.Opened(tree_.Open());
  return moved || always ? Outcome::FolderOpened : Outcome::Nothing;
}

FolderBody::Outcome FolderBody::RefreshAll() {
  if (!tree_.Has(FolderTree::TopRow)) return Outcome::Nothing;
  const std::string before = state_.Folder;
  notices_.Clear();
  willCatchUp_ = false;
  tree_.AskAnew(FolderTree::TopRow);
  reader_.RefreshAllBelow(FolderTree::TopRow);
  return TellIfMoved(before);
}

FolderBody::Outcome FolderBody::ApplyNotices() {
  const std::string before = state_.Folder, news = state_.News();
  const std::int64_t start = state_.Services.Clock.Ticks();
  notices_.Apply();
  const std::int64_t now = state_.Services.Clock.Ticks();
  if (now - start > QuickNotices) restUntil_ = now + std::min(now - start, MostRest);
  // Nobody asked for this: what the line says of earlier trouble stands.
  if (folders_.Trouble.empty()) folders_.Trouble = news;
  return tree_.Has(tree_.Open()) ? TellIfMoved(before) : Outcome::Nothing;
}

FolderBody::Outcome FolderBody::TellIfMoved(const std::string& before) {
  if (tree_.PathOf(tree_.Open()) == before) return Outcome::Nothing;
  return OpenRow(tree_.Open(), true);
}

void FolderBody::FollowBranches() {
  std::vector<RowId> rows;
  for (RowId row = tree_.Open(); row > RootRow; row = tree_.Node(row).Parent) rows.push_back(row);
  for (const RowId row : tree_.BranchesOnShow()) {
    if (!tree_.IsWithin(tree_.Open(), row)) rows.push_back(row);
  }
  rows.resize(std::min(rows.size(), FolderFollower::Most));
  std::vector<std::string> folders;
  folders.reserve(rows.size());
  for (const RowId row : rows) folders.push_back(tree_.PathOf(row));
  Follower.KeepOnly(folders);

  // What nobody tells of is fresh no more.
  std::set<RowId> fresh;
  for (std::size_t at = 0; at < rows.size(); ++at) {
    if (tree_.Node(rows[at]).IsFresh && Follower.Follows(folders[at])) fresh.insert(rows[at]);
  }
  for (const RowId row : folders_.Fresh) {
    if (tree_.Has(row)) tree_.SetFresh(row, fresh.contains(row));
  }
  folders_.Fresh = std::move(fresh);
}

// --- Tools.

std::vector<ColouredItem> FolderBody::SetItemColour(ItemColour colour) {
  const RowId row = input_.Meant();
  if (!tree_.Has(row)) return {};
  std::vector<ColouredItem> changed = KeepColour(state_, tree_.PathOf(row), colour);
  if (tree_.Has(row)) tree_.AskAnew(row);
  SettingsChanged();
  return changed;
}

void FolderBody::CalculateFolderSizes() {
  sizes_.AskForAll();
  CatchUp();
}

void FolderBody::CalculateItemSize() {
  sizes_.AskForItem();
  CatchUp();
}

// --- What the widget and the form ask.

std::string FolderBody::ParentOfKey(const std::string& key) const {
  if (!tree_.Has(FolderTree::TopRow)) return "";
  const std::string top = tree_.PathOf(FolderTree::TopRow);
  return reader_.IsOnTree(key) && !state_.Syntax.Same(key, top) ? state_.Syntax.ParentOf(key) : top;
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

RowState FolderBody::OwnStateOf(RowId row) const {
  if (!tree_.Has(row)) return {};
  const FolderNode& node = tree_.Node(row);
  const CutItems& cut = state_.Services.Cut;
  return {
      .Kind = platform::ItemKind::Folder,
      .IsLink = node.IsLink,
      .IsHidden = node.IsHidden,
      .IsCut = !cut.IsEmpty() && cut.Has(tree_.PathOf(row)),
      .IsOpen = row == tree_.Open(),
      .HasChildren = node.HasChildren(),
      .IsExpanded = node.IsExpanded,
      .IsSelected = input_.IsSelected(row),
      .Colour = facts_.ShowsColours(node.Parent) ? tree_.FactsOf(row).Colour : ItemColour::Default};
}

std::string FolderBody::CellText(RowId row, HeadingId heading) const {
  if (!tree_.Has(row)) return "";
  const FolderNode& node = tree_.Node(row);
  const FolderFacts& facts = tree_.FactsOf(row);
  const ListServices& services = state_.Services;
  switch (heading) {
    case HeadingId::Name:
      return base::ForDisplay(node.Name);
    case HeadingId::Extension:
      return "";
    case HeadingId::Size: {
      const auto size = sizes_.SizeOf(row);
      return size ? MeasuredText(services.Forms, size->Bytes, size->IsWhole) : "";
    }
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
      return DateText(services.Forms, services.Clock, DateOf(facts, heading));
    case HeadingId::FileType:
      return TypeText(node.Name, platform::ItemKind::Folder, node.IsLink);
    case HeadingId::Attributes:
      return AttributeText(node, facts);
    case HeadingId::Comments:
      return base::ForDisplay(facts.Comment);
    case HeadingId::Path:
      return row == FolderTree::TopRow ? "" : base::ForDisplay(tree_.PathOf(node.Parent));
    case HeadingId::Permissions:
      return facts.HasAttributes ? PermissionText(facts.Mode) : "";
  }
  return "";
}

std::int64_t FolderBody::MomentOf(RowId row, HeadingId heading) const {
  return tree_.Has(row) ? DateOf(tree_.FactsOf(row), heading) : platform::UnknownTime;
}

bool FolderBody::IsSizePartial(RowId row) const {
  const auto size = tree_.Has(row) ? sizes_.SizeOf(row) : std::nullopt;
  return size && !size->IsWhole;
}

std::string FolderBody::CellBytes(RowId row, HeadingId heading) const {
  if (!tree_.Has(row)) return "";
  const FolderNode& node = tree_.Node(row);
  switch (heading) {
    case HeadingId::Name:
      return node.Name;
    case HeadingId::Path:
      return row == FolderTree::TopRow ? "" : tree_.PathOf(node.Parent);
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
      return IsoText(state_.Services.Clock, DateOf(tree_.FactsOf(row), heading));
    case HeadingId::Comments:
      return tree_.FactsOf(row).Comment;
    case HeadingId::Size: {
      const auto size = sizes_.SizeOf(row);
      return size ? MeasuredDigits(size->Bytes, size->IsWhole) : "";
    }
    default:
      return CellText(row, heading);
  }
}

std::string FolderBody::PathOf(RowId row) const {
  return tree_.Has(row) ? tree_.PathOf(row) : "";
}

}  // namespace tarnwell::lister
