#include "tools/frmDisconnect.h"

#include <algorithm>

namespace tarnwell::tools {

using platform::ConnectedPlace;
using platform::PlaceOutcome;

void frmDisconnect::ShowOver(forms::Form& owner) {
  const bool isNew = View == nullptr;
  host_.Open(*this);
  if (isNew) CentreOn(owner);
  host_.Show(*this, &owner);
}

void frmDisconnect::Load() {
  Caption = "Disconnect Network Drive";
  lblPlaces.Caption = "&Places that are connected:";
  cmdDisconnect.Default = true;
  cmdClose.Caption = "Close";
  attempts_.clear();
  lstPlaces.Clear();
  rows_.clear();
  List();
  if (!rows_.empty()) lstPlacesClick(0);
  places_.OnChange([this] { List(); });
}

void frmDisconnect::Unload() {
  places_.OnChange({});
  for (auto& [id, attempt] : attempts_) attempt.Conversation->GiveUp();
}

bool frmDisconnect::IsRunning(const std::string& id) const {
  const auto found = attempts_.find(id);
  return found != attempts_.end() && found->second.Conversation->IsRunning();
}

const frmDisconnect::Row* frmDisconnect::Chosen() const {
  return lstPlaces.ListIndex < 0 ? nullptr : &rows_[static_cast<std::size_t>(lstPlaces.ListIndex)];
}

// Behind a place that went the next one is chosen.
void frmDisconnect::List() {
  const std::string chosen = Chosen() == nullptr ? "" : Chosen()->Id;
  const int place = lstPlaces.ListIndex;
  rows_.clear();
  lstPlaces.Clear();
  for (const ConnectedPlace& each : places_.Connected()) {
    const auto attempt = attempts_.find(each.Id);
    if (each.Id == chosen) lstPlaces.ListIndex = static_cast<int>(rows_.size());
    rows_.push_back({each.Id, each.Name, each.Source,
                     attempt == attempts_.end() ? "Connected" : attempt->second.State});
    lstPlaces.Items.push_back(each.Name);
  }
  if (lstPlaces.ListIndex < 0 && place >= 0) {
    lstPlaces.ListIndex = std::min(place, static_cast<int>(rows_.size()) - 1);
  }
  ShowChosen();
}

void frmDisconnect::ShowChosen() {
  const Row* const row = Chosen();
  cmdDisconnect.Caption = row != nullptr && IsRunning(row->Id) ? "&Stop" : "&Disconnect";
  cmdDisconnect.Enabled = row != nullptr;
  lblStatus.Caption = row != nullptr ? row->State : "";
  if (rows_.empty()) lblStatus.Caption = "Nothing is connected from elsewhere.";
  Touch();
}

void frmDisconnect::lstPlacesClick(int index) {
  lstPlaces.ListIndex = index;
  ShowChosen();
}

void frmDisconnect::cmdDisconnectClick() {
  if (Chosen() == nullptr) return;
  const std::string id = Chosen()->Id;
  Attempt& attempt = attempts_[id];
  if (!attempt.Conversation) {
    attempt.Conversation = std::make_unique<PlaceConversation>(host_, *this);
  }
  if (attempt.Conversation->IsRunning()) {
    attempt.Conversation->GiveUp();
    attempt.State = "Connected";
    return List();
  }
  attempt.State = "Disconnecting...";
  attempt.Conversation->Start(
      [&](platform::PlaceUser& user) { return places_.Disconnect(id, user); },
      [this, id](const PlaceOutcome& outcome) { Disconnected(id, outcome); });
  List();
}

void frmDisconnect::Disconnected(const std::string& id, const PlaceOutcome& outcome) {
  std::string& state = attempts_[id].State;
  if (outcome.Status || outcome.IsCancelled) {
    state = "Connected";
  } else {
    state = (outcome.IsInUse ? "In use: " : "Cannot be disconnected: ") + ReasonOf(outcome);
  }
  List();
}

}  // namespace tarnwell::tools
