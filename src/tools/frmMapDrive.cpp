#include "tools/frmMapDrive.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"
#include "tools/PlaceAddress.h"

namespace tarnwell::tools {

using platform::NetworkKinds;
using platform::PlaceOutcome;

frmMapDrive::frmMapDrive(const MapDriveServices& services)
    : Form("frmMapDrive"),
      services_(services),
      recent_(services.Settings),
      conversation_(services.Host, *this) {}

void frmMapDrive::ShowOver(forms::Form& owner) {
  const bool isNew = View == nullptr;
  services_.Host.Open(*this);
  if (isNew) CentreOn(owner);
  services_.Host.Show(*this, &owner);
}

void frmMapDrive::Load() {
  Caption = "Map Network Drive";
  lblKind.Caption = "&Kind:";
  lblAddress.Caption = "&Address:";
  lblPlaces.Caption = "&Places connected before, and those that the network announces:";
  cmdForget.Caption = "&Forget";
  cmdForget.ToolTip = "Takes the chosen place off the list";
  cmdConnect.Caption = "&Connect";
  cmdConnect.Default = true;
  txtAddress.Text.clear();
  lblExample.Caption.clear();
  lstKind.Clear();
  schemes_.clear();
  offers_.clear();
  ListPlaces();
  Say("Asking the desktop what it can connect to...");
  kindsTask_ = services_.Places.FindKinds([this](const NetworkKinds& kinds) { TakeKinds(kinds); });
}

void frmMapDrive::Unload() {
  conversation_.GiveUp();
  kindsTask_.reset();
  offersTask_.reset();
  password_.clear();
  txtAddress.Text.clear();
}

void frmMapDrive::TakeKinds(const NetworkKinds& kinds) {
  for (const PlaceKind& kind : PlaceKinds()) {
    if (std::ranges::count(kinds.Schemes, kind.Scheme) == 0) continue;
    schemes_.emplace_back(kind.Scheme);
    lstKind.Items.emplace_back(kind.Caption);
  }
  if (schemes_.empty()) return Say(kinds.Status.Reason);
  const std::string typed = SchemeOf(txtAddress.Text);
  ChooseKind(typed.empty() ? schemes_.front() : typed);
  if (txtAddress.Text.empty()) txtAddress.Text = WithScheme("", Kind());
  offersTask_ = services_.Places.FindOffers([this](const auto& found) {
    offers_ = found;
    ListPlaces();
    Touch();
  });
  Say("");
}

std::string frmMapDrive::Kind() const {
  return lstKind.ListIndex < 0 ? "" : schemes_[static_cast<std::size_t>(lstKind.ListIndex)];
}

void frmMapDrive::ChooseKind(const std::string& scheme) {
  const auto found = std::ranges::find(schemes_, scheme);
  if (found == schemes_.end()) return;
  lstKind.ListIndex = static_cast<int>(found - schemes_.begin());
  const auto kind = std::ranges::find(PlaceKinds(), scheme, &PlaceKind::Scheme);
  lblExample.Caption = "Such as " + std::string(kind->Example);
}

// The chosen line stays chosen as far as it is still there.
void frmMapDrive::ListPlaces() {
  const std::string chosen =
      lstPlaces.ListIndex < 0 ? "" : places_[static_cast<std::size_t>(lstPlaces.ListIndex)].Address;
  places_.clear();
  lstPlaces.Clear();
  for (const std::string& address : recent_.Read()) places_.push_back({"", address, true});
  for (const platform::OfferedPlace& offer : offers_) {
    if (std::ranges::count(places_, offer.Address, &KnownPlace::Address) > 0) continue;
    places_.push_back({offer.Name, offer.Address, false});
  }
  for (const KnownPlace& place : places_) {
    if (place.Address == chosen) lstPlaces.ListIndex = static_cast<int>(lstPlaces.Items.size());
    lstPlaces.Items.push_back(place.Name.empty() ? place.Address
                                                 : place.Name + " (" + place.Address + ")");
  }
  EnableControls();
}

void frmMapDrive::EnableControls() {
  const bool isConnecting = IsConnecting();
  const bool isRecent =
      lstPlaces.ListIndex >= 0 && places_[static_cast<std::size_t>(lstPlaces.ListIndex)].IsRecent;
  lstKind.Enabled = txtAddress.Enabled = lstPlaces.Enabled = !isConnecting;
  cmdConnect.Enabled = !isConnecting && !schemes_.empty();
  cmdForget.Enabled = !isConnecting && isRecent;
  cmdCancel.Caption = isConnecting ? "&Stop" : "Close";
}

void frmMapDrive::Say(const std::string& text) {
  lblStatus.Caption = text;
  EnableControls();
  Touch();
}

void frmMapDrive::lstKindClick(int index) {
  if (index < 0 || index >= static_cast<int>(schemes_.size())) return;
  ChooseKind(schemes_[static_cast<std::size_t>(index)]);
  txtAddressChange(WithScheme(txtAddress.Text, Kind()));
}

// Whoever looks at the screen is not to read a password that was pasted with its address.
void frmMapDrive::txtAddressChange(const std::string& text) {
  SplitAddress split = TakePassword(text);
  txtAddress.Text = split.Address;
  ChooseKind(SchemeOf(text));
  if (split.HadPassword) {
    password_ = std::move(split.Password);
    passwordHost_ = HostOf(split.Address);
  }
  // Where nothing can be connected, the reason stays.
  if (!schemes_.empty()) {
    lblStatus.Caption = !split.HadPassword ? ""
                                           : "The password has been taken out of the address. It "
                                             "is used for this connection, and not kept.";
  }
  EnableControls();
  Touch();
}

void frmMapDrive::lstPlacesClick(int index) {
  lstPlaces.ListIndex = index;
  if (index >= 0) txtAddressChange(places_[static_cast<std::size_t>(index)].Address);
  EnableControls();
  Touch();
}

void frmMapDrive::lstPlacesDblClick() {
  if (lstPlaces.ListIndex >= 0) cmdConnectClick();
}

void frmMapDrive::cmdForgetClick() {
  if (!cmdForget.Enabled) return;
  const std::string address = places_[static_cast<std::size_t>(lstPlaces.ListIndex)].Address;
  const base::Status status = recent_.Forget(address);
  ListPlaces();
  Say(status ? "" : "The list of places cannot be changed: " + status.Reason + ".");
}

void frmMapDrive::cmdConnectClick() {
  if (!cmdConnect.Enabled) return;
  const ReadAddress read = ReadPlaceAddress(txtAddress.Text, Kind(), schemes_);
  if (!read.Trouble.empty()) return Say(read.Trouble);
  txtAddress.Text = read.Address;
  const std::string password = HostOf(read.Address) == passwordHost_ ? password_ : "";
  password_.clear();
  conversation_.Start(
      [&](platform::PlaceUser& user) {
        return services_.Places.Connect(read.Address, password, user);
      },
      [this, address = read.Address](const PlaceOutcome& outcome) { Connected(address, outcome); });
  Say("Connecting to " + base::ForDisplay(HostOf(read.Address)) + "...");
}

void frmMapDrive::Connected(const std::string& address, const PlaceOutcome& outcome) {
  if (outcome.IsCancelled) return Say("");
  if (outcome.Status) recent_.Add(address);
  if (outcome.Folder.empty()) {
    ListPlaces();
    return Say(base::ForDisplay(address) + " cannot be opened: " + ReasonOf(outcome));
  }
  const std::string folder = outcome.Folder;
  services_.Host.Unload(*this);
  services_.OpenFolder(folder);
}

void frmMapDrive::cmdCancelClick() {
  if (!IsConnecting()) return services_.Host.Unload(*this);
  conversation_.GiveUp();
  Say("");
}

}  // namespace tarnwell::tools
