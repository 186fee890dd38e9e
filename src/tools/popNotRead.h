// What a search could not read, with the reasons: to be read and copied.
#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::tools {

class popNotRead : public forms::Form {
 public:
  explicit popNotRead(forms::FormHost& host) : Form("popNotRead"), host_(host) {}

  forms::Label lblCount;
  forms::TextBox txtItems;  // a line for each, for showing
  forms::Button cmdCopy;
  forms::Button cmdClose;

  void Load() override {
    Caption = "Not Read";
    cmdCopy.Caption = "C&opy";
    cmdCopy.ToolTip = "Copy all lines to the clipboard";
    cmdClose.Caption = "&Close";
    cmdClose.Default = true;
  }

  void ShowOver(forms::Form& owner) {
    host_.Open(*this);
    CentreOn(owner);
    host_.Show(*this, &owner);
  }

  // By the button, the window's frame or Escape.
  void cmdCloseClick() { host_.Unload(*this); }

 private:
  forms::FormHost& host_;
};

}  // namespace tarnwell::tools
