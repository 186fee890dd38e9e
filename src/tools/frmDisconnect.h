// The form that lists what is mounted from elsewhere, and disconnects it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/NetworkPlaces.h"
#include "tools/PlaceConversation.h"

namespace tarnwell::tools {

class frmDisconnect : public forms::Form {
 public:
  frmDisconnect(forms::FormHost& host, platform::NetworkPlaces& places)
      : Form("frmDisconnect"), host_(host), places_(places) {}

  // A line of the list. Not all of it is the program's own text.
  struct Row {
    std::string Id;
    std::string Name;
    std::string Source;
    std::string State;
  };

  forms::Label lblPlaces;
  forms::ListBox lstPlaces;  // the names
  forms::Label lblStatus;    // of the chosen place
  forms::Button cmdDisconnect;
  forms::Button cmdClose;

  // What the lines of lstPlaces stand for.
  const std::vector<Row>& Rows() const { return rows_; }

  // As frmMapDrive's.
  void ShowOver(forms::Form& owner);

  void Load() override;
  void Unload() override;

  // --- What the user does.
  void lstPlacesClick(int index);  // -1 for none
  // Disconnects the chosen place, or gives that up where it is just being done.
  void cmdDisconnectClick();
  // Also by Escape and the window's frame.
  void cmdCloseClick() { host_.Unload(*this); }

 private:
  // One for each place that was tried. They go with the next load alone, since one of them may be
  // running when this is closed.
  struct Attempt {
    std::unique_ptr<PlaceConversation> Conversation;
    std::string State;
  };
  void List();
  void ShowChosen();
  const Row* Chosen() const;
  bool IsRunning(const std::string& id) const;
  void Disconnected(const std::string& id, const platform::PlaceOutcome& outcome);

  forms::FormHost& host_;
  platform::NetworkPlaces& places_;
  std::vector<Row> rows_;
  std::map<std::string, Attempt> attempts_;
};

}  // namespace tarnwell::tools
