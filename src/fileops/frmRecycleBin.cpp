#include "fileops/frmRecycleBin.h"

#include <iterator>
#include <utility>

#include "base/Text.h"
#include "fileops/TrashRequests.h"
#include "fileops/popDelete.h"
#include "lists/WatchPanes.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CountedText;
using platform::TrashedItem;

namespace {

// Of these the greatest are looked for, or the latest.
bool IsDescendingAtFirst(TrashColumn column) {
  return column == TrashColumn::Deleted || column == TrashColumn::Size;
}

}  // namespace

frmRecycleBin::frmRecycleBin(workspace::Workspace& workspace, const TrashServices& services,
                             const platform::Collation& order, platform::ItemWindows& windows,
                             EmptyCommand& empty, OpenFolder openFolder)
    : Form("frmRecycleBin"),
      workspace_(workspace),
      services_(services),
      windows_(windows),
      empty_(empty),
      openFolder_(std::move(openFolder)),
      rows_(order) {}

void frmRecycleBin::ShowOver(forms::Form& owner) {
  const bool isNew = View == nullptr;
  services_.Host.Open(*this);
  if (isNew) CentreOn(owner);
  services_.Host.Show(*this, &owner);
}

void frmRecycleBin::Load() {
  Caption = "Recycle Bin";
  txtFilter.Text.clear();
  cmdRestore.Caption = "&Restore";
  cmdRestore.ToolTip = "Put the selected items back to where they were";
  cmdDelete.Caption = "&Delete...";
  cmdDelete.ToolTip = "Delete the selected items for good";
  cmdEmpty.Caption = "&Empty...";
  cmdEmpty.ToolTip = "Delete everything for good";
  cmdOpenFolder.Caption = "&Open Folder";
  cmdOpenFolder.ToolTip = "Show the folder where the item was";
  cmdProperties.Caption = "&Properties";
  cmdProperties.ToolTip = "Show what is known of the selected items";
  cmdClose.Caption = "&Close";
  rows_.Clear();
  rows_.Filter("");
  newItems_.clear();
  gone_.clear();
  hasNews_ = isSettled_ = false;
  troubles_.clear();
  view_ = services_.Trash.Follow(*this, "");
  ShowState();
}

void frmRecycleBin::Unload() {
  view_.reset();
  RowsView = nullptr;
}

// --- What the trash tells

void frmRecycleBin::OnItems(std::vector<TrashedItem> items) {
  newItems_.insert(newItems_.end(), std::move_iterator(items.begin()),
                   std::move_iterator(items.end()));
  TakeNews();
}

void frmRecycleBin::OnGone(const std::vector<std::uint64_t>& ids) {
  gone_.insert(gone_.end(), ids.begin(), ids.end());
  TakeNews();
}

void frmRecycleBin::OnTroubles(const std::vector<platform::TrashTrouble>& troubles) {
  troubles_ = troubles;
  TakeNews();
}

void frmRecycleBin::OnSettled() {
  isSettled_ = true;
  TakeNews();
}

void frmRecycleBin::TakeNews() {
  hasNews_ = true;
  Touch();
}

template <typename Change>
void frmRecycleBin::ChangeRows(Change change) {
  if (RowsView != nullptr) RowsView->BeginRows();
  change();
  if (RowsView != nullptr) RowsView->EndRows();
  ShowState();
}

// While all is read, what is shown doubles each time: so sorting costs little in the end.
void frmRecycleBin::ShowNews() {
  if (!hasNews_ || (!isSettled_ && newItems_.size() < rows_.All().Items)) return;
  hasNews_ = false;
  if (newItems_.empty() && gone_.empty()) return ShowState();
  ChangeRows([this] {
    rows_.Take(std::exchange(newItems_, {}));
    rows_.Drop(std::exchange(gone_, {}));
  });
}

// --- What is shown

std::string frmRecycleBin::CellText(std::size_t row, TrashColumn column) const {
  return TrashCellText(rows_[row], column, services_.Forms);
}

const TrashedItem* frmRecycleBin::OnlySelected() const {
  if (rows_.Selected().Items != 1) return nullptr;
  return rows_.Find(rows_.SelectedIds()[0]);
}

std::string frmRecycleBin::StatusText() const {
  const platform::NumberForms& numbers = services_.Forms.Numbers;
  const TrashSum& all = rows_.All();
  if (!isSettled_) {
    return platform::Counted(numbers, CountedText::TrashBeingRead, all.Items);
  }
  if (all.Items == 0) return troubles_.empty() ? "The recycle bin is empty" : "Nothing to show";
  const TrashSum& selected = rows_.Selected();
  if (selected.Items > 0) {
    return platform::Counted(
        numbers, CountedText::TrashSelected, all.Items,
        {numbers.Grouped(selected.Items), TrashBytesText(selected, services_.Forms)});
  }
  if (rows_.IsFiltered()) {
    return platform::Counted(numbers, CountedText::TrashShown, all.Items,
                             {numbers.Grouped(rows_.Count())});
  }
  return TrashSumText(all, services_.Forms);
}

std::string frmRecycleBin::NoteText() const {
  const TrashedItem* const item = OnlySelected();
  if (item != nullptr && !platform::CanRestore(*item)) return TrashNote(*item);
  const TrashSum& selected = rows_.Selected();
  if (selected.Restorable < selected.Items) {
    return platform::Counted(services_.Forms.Numbers, CountedText::NotRestorable,
                             selected.Items - selected.Restorable);
  }
  std::string text;
  for (const platform::TrashTrouble& trouble : troubles_) {
    if (!text.empty()) text += ' ';
    text += TrashTroubleText(trouble);
  }
  return text;
}

void frmRecycleBin::ShowState() {
  const TrashSum& selected = rows_.Selected();
  const TrashedItem* const only = OnlySelected();
  cmdRestore.Enabled = selected.Restorable > 0;
  cmdDelete.Enabled = cmdProperties.Enabled = selected.Items > 0;
  cmdOpenFolder.Enabled = only != nullptr && platform::CanRestore(*only);
  cmdEmpty.Enabled = !isSettled_ || rows_.All().Items > 0;
  lblStatus.Caption = StatusText();
  lblNote.Caption = NoteText();
  Touch();
}

// --- What the user does

void frmRecycleBin::Select(std::size_t first, std::size_t last, bool on) {
  rows_.Select(first, last, on);
  ShowState();
}

void frmRecycleBin::HeadingClick(TrashColumn column) {
  const bool descending =
      column == rows_.SortColumn() ? !rows_.IsDescending() : IsDescendingAtFirst(column);
  ChangeRows([&] { rows_.Sort(column, descending); });
}

void frmRecycleBin::FilterTyped(const std::string& text) {
  txtFilter.Text = text;
  ChangeRows([&] { rows_.Filter(text); });
}

void frmRecycleBin::Refresh() {
  if (view_ == nullptr) return;
  isSettled_ = false;
  view_->Refresh();
  ShowState();
}

std::vector<const TrashedItem*> frmRecycleBin::Find(const std::vector<std::uint64_t>& ids) const {
  std::vector<const TrashedItem*> items;
  items.reserve(ids.size());
  for (const std::uint64_t id : ids) items.push_back(rows_.Find(id));
  return items;
}

void frmRecycleBin::Start(platform::CommandKind kind, platform::OperationRequest request) {
  if (request.Items.empty()) return;
  const std::string refusal = services_.Operation.Refusal(request.Function, request.Items);
  if (!refusal.empty()) {
    return services_.Messages.Message(refusal, forms::MessageKind::Ok, Name());
  }
  // What goes wrong, the platform tells.
  services_.Operation.WhenDone(
      services_.Operation.Start({.Kind = kind, .Requests = {std::move(request)}}),
      [&workspace = workspace_](const auto&) { lists::LookAtPanes(workspace); });
}

void frmRecycleBin::cmdRestoreClick() {
  if (!cmdRestore.Enabled) return;
  Start(platform::CommandKind::Restore,
        RequestToRestore(Find(rows_.SelectedIds()), services_.Files.Syntax()));
}

// Items can go while the question is open, and the form can.
void frmRecycleBin::cmdDeleteClick() {
  const TrashSum& selected = rows_.Selected();
  if (selected.Items == 0) return;
  const std::vector<std::uint64_t> ids = rows_.SelectedIds();
  popDelete dialog(services_.Host);
  services_.Host.Open(dialog);
  dialog.AskForGood();
  const TrashedItem* const only = OnlySelected();
  dialog.txtSource.Text = only != nullptr ? only->Name : TrashSumText(selected, services_.Forms);
  dialog.Ask(*this);
  if (dialog.Result != platform::DeleteWord || view_ == nullptr) return;
  Start(platform::CommandKind::Delete, RequestToPurge(Find(ids)));
}

void frmRecycleBin::cmdEmptyClick() {
  std::string all;
  empty_.EmptyRecycleBin(all, Name());
}

void frmRecycleBin::cmdOpenFolderClick() {
  const TrashedItem* const item = OnlySelected();
  if (item == nullptr || !platform::CanRestore(*item)) return;
  const std::string folder = item->Folder;
  if (services_.Files.FolderExists(folder)) return openFolder_(folder);
  services_.Messages.Message("The folder " + base::ForDisplay(folder) + " is no longer there.",
                             forms::MessageKind::Ok, Name());
}

void frmRecycleBin::cmdPropertiesClick() {
  std::vector<std::string> paths;
  for (const TrashedItem* const item : Find(rows_.SelectedIds())) paths.push_back(item->Place);
  if (!paths.empty()) windows_.ShowProperties(paths);
}

}  // namespace tarnwell::fileops
