// The form that connects a place on the network by its address.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/NetworkPlaces.h"
#include "platform/UserSettings.h"
#include "tools/PlaceConversation.h"
#include "tools/RecentPlaces.h"

namespace tarnwell::tools {

struct MapDriveServices {
  forms::FormHost& Host;
  platform::NetworkPlaces& Places;
  platform::UserSettings& Settings;
  std::function<void(const std::string& folder)> OpenFolder;  // in the active pane
};

// A line of the list of places.
struct KnownPlace {
  std::string Name;  // for people; empty for one that was connected before
  std::string Address;
  bool IsRecent = false;
};

class frmMapDrive : public forms::Form {
 public:
  explicit frmMapDrive(const MapDriveServices& services);

  forms::Label lblKind;
  forms::ListBox lstKind;
  forms::Label lblAddress;
  forms::TextBox txtAddress;  // holds no password for longer than it takes to find it there
  forms::Label lblExample;    // of the chosen kind
  forms::Label lblPlaces;
  forms::ListBox lstPlaces;
  forms::Label lblStatus;  // what goes on, or what went wrong
  forms::Button cmdForget;
  forms::Button cmdConnect;
  forms::Button cmdCancel;

  // What the lines of lstPlaces stand for.
  const std::vector<KnownPlace>& Places() const { return places_; }
  bool IsConnecting() const { return conversation_.IsRunning(); }

  // Opens the form over the middle of the owner and shows it, not modally. One that is open already
  // stays where it is, and comes to the front.
  void ShowOver(forms::Form& owner);

  void Load() override;
  void Unload() override;

  // --- What the user does.
  void lstKindClick(int index);
  void txtAddressChange(const std::string& text);
  void lstPlacesClick(int index);  // -1 for none
  void lstPlacesDblClick();
  void cmdForgetClick();
  void cmdConnectClick();
  // Also by Escape. Gives up what runs; where nothing does, closes.
  void cmdCancelClick();
  void CloseClick() { services_.Host.Unload(*this); }  // by the window's frame

 private:
  std::string Kind() const;  // scheme of the chosen one; empty where none is
  void TakeKinds(const platform::NetworkKinds& kinds);
  void ChooseKind(const std::string& scheme);
  void ListPlaces();
  void Connected(const std::string& address, const platform::PlaceOutcome& outcome);
  void Say(const std::string& text);
  void EnableControls();

  MapDriveServices services_;
  RecentPlaces recent_;
  PlaceConversation conversation_;
  std::unique_ptr<platform::PlaceTask> kindsTask_;
  std::unique_ptr<platform::PlaceTask> offersTask_;
  std::vector<std::string> schemes_;  // that can be connected to, in the order of lstKind
  std::vector<platform::OfferedPlace> offers_;
  std::vector<KnownPlace> places_;
  // A password that stood in the address, and the address that it was for.
  std::string password_;
  std::string passwordHost_;
};

}  // namespace tarnwell::tools
