#include "tools/frmFind.h"

#include <iterator>
#include <utility>

#include "base/Text.h"
#include "platform/CountedTexts.h"

namespace tarnwell::tools {

using platform::Counted;
using platform::CountedText;

frmFind::frmFind(const FindServices& services, FoundLists& lists)
    : Form("frmFind"),
      services_(services),
      lists_(lists),
      recent_(services.User),
      notRead_(services.Host) {}

void frmFind::ShowOver(forms::Form& owner) {
  const bool isFirst = Width == 0;
  services_.Host.Open(*this);
  if (isFirst) {
    CentreOn(owner);
    Settings.TakesHidden = lists_.ShowsHidden();
  }
  if (std::string folder = lists_.OpenFolder(); !folder.empty()) Settings.Folder = folder;
  Typed();
  services_.Host.Show(*this, &owner);
}

void frmFind::Load() {
  Caption = "Find Files";
  cmdChoose.Caption = "&Choose...";
  cmdFind.Caption = "&Find";
  cmdFind.Default = true;
  cmdStop.Caption = "&Stop";
  cmdShowInPane.Caption = "Show in &Pane";
  cmdShowInPane.ToolTip = "Go to the folder of the item in the pane that was used last";
  cmdListInPane.Caption = "As a &List in the Pane";
  cmdListInPane.ToolTip = "Show all results in the file list of the pane that was used last";
  cmdClose.Caption = "Close";
  progress_ = {};
  note_.clear();
  troubles_.clear();
  ReadRecent();
  ShowState();
}

// Results take room, and nobody sees them any more.
void frmFind::Unload() {
  search_.reset();
  lists_.Clear();
  troubles_ = {};
  notRead_.cmdCloseClick();
}

void frmFind::ReadRecent() {
  searches_ = recent_.Read();
  lstRecent.Clear();
  for (const FindSettings& each : searches_) lstRecent.Items.push_back(FindCaption(each));
}

// --- The search

void frmFind::cmdFindClick() {
  std::optional<FindRequest> made = MakeFindRequest(Settings, services_.Tools, Faults);
  if (!made) return ShowState();
  search_.reset();
  progress_ = {.Stage = FindStage::Running,
               .LooksIntoFiles = !made->Request.Content.empty() || made->Request.MakeContentTest};
  troubles_.clear();
  searched_ = folder_ = made->Request.Folder;
  namesGivenUp_ = std::move(made->NamesGivenUp);
  const base::Status kept = recent_.Add(Settings);
  note_ = kept ? "" : "This search will not be offered again. " + kept.Reason + ".";
  ReadRecent();
  lists_.Begin(made->Request.Folder);
  search_ = services_.Search.Start(std::move(made->Request), [this](platform::SearchUpdate update) {
    TakeUpdate(std::move(update));
  });
  ShowState();
}

void frmFind::TakeUpdate(platform::SearchUpdate update) {
  progress_.Counts = update.Counts;
  progress_.Elapsed = update.Elapsed;
  progress_.NamesGivenUp = *namesGivenUp_;
  folder_ = std::move(update.Folder);
  troubles_.insert(troubles_.end(), std::make_move_iterator(update.Troubles.begin()),
                   std::make_move_iterator(update.Troubles.end()));
  if (!update.Found.empty()) lists_.Take(std::move(update.Found));
  if (update.IsDone) {
    progress_.Stage = update.Status ? FindStage::Done : FindStage::Failed;
    if (!update.Status) {
      note_ = base::ForDisplay(searched_) + " cannot be searched: " + update.Status.Reason + ".";
    }
    search_.reset();
  }
  ShowState();
}

void frmFind::ShowNews() {
  lists_.ShowSome();
  ShowState();
}

// --- What is shown

void frmFind::ShowState() {
  const bool isFaulty =
      std::ranges::any_of(Faults, [](const std::string& fault) { return !fault.empty(); });
  const bool anyFound = lists_.AnyFound();
  cmdFind.Enabled = !isFaulty;
  cmdStop.Enabled = IsRunning();
  cmdShowInPane.Enabled = cmdListInPane.Enabled = anyFound;
  cmdNotRead.Visible = progress_.Counts.Troubles > 0;
  cmdNotRead.Caption =
      Counted(services_.Tools.Numbers, CountedText::NotReadButton, progress_.Counts.Troubles);
  lblStatus.Caption = FindStatus(progress_, services_.Tools.Numbers);
  lblNote.Caption = note_.empty() && IsRunning() ? folder_ : note_;
  Touch();
}

// --- What the user does

void frmFind::Typed() {
  MakeFindRequest(Settings, services_.Tools, Faults);
  ShowState();
}

void frmFind::cmdChooseClick() {
  const std::optional<std::string> folder = services_.Dialogs.AskFolder("Look In", Settings.Folder);
  if (!folder || View == nullptr) return;
  Settings.Folder = *folder;
  Typed();
}

void frmFind::cmdStopClick() {
  if (!IsRunning()) return;
  search_.reset();
  progress_.Stage = FindStage::Stopped;
  ShowState();
}

void frmFind::EscapeKey() {
  IsRunning() ? cmdStopClick() : cmdCloseClick();
}

bool frmFind::cmdShowInPaneClick() {
  return cmdShowInPane.Enabled && IsDone(lists_.ShowInPane());
}

bool frmFind::cmdListInPaneClick() {
  return cmdListInPane.Enabled && IsDone(lists_.ListInPane());
}

bool frmFind::IsDone(const std::string& trouble) {
  if (!trouble.empty()) services_.Messages.Message(trouble, forms::MessageKind::Ok, Name());
  ShowState();
  return trouble.empty();
}

void frmFind::cmdNotReadClick() {
  if (troubles_.empty()) return;
  notRead_.lblCount.Caption =
      Counted(services_.Tools.Numbers, CountedText::NotReadListed, progress_.Counts.Troubles);
  notRead_.txtItems.Text = TroubleLines(troubles_);
  if (progress_.Counts.Troubles > troubles_.size()) {
    notRead_.txtItems.Text += Counted(services_.Tools.Numbers, CountedText::DotsAndMore,
                                      progress_.Counts.Troubles - troubles_.size());
  }
  notRead_.ShowOver(*this);
}

void frmFind::lstRecentClick(std::size_t index) {
  if (index >= searches_.size()) return;
  Settings = searches_[index];
  Typed();
}

void frmFind::ForgetRecent() {
  const base::Status status = recent_.ForgetAll();
  if (!status) {
    services_.Messages.Message("The searches could not be forgotten.\r\n\r\n" + status.Reason + ".",
                               forms::MessageKind::Ok, Name());
  }
  ReadRecent();
  ShowState();
}

}  // namespace tarnwell::tools
