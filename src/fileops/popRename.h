// The form that asks for an item's new name.
#pragma once

#include <string>

#include "base/Text.h"
#include "fileops/DialogFields.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::fileops {

class popRename : public forms::Form {
 public:
  popRename(forms::FormHost& host, DialogFields& fields)
      : Form("popRename"), host_(host), fields_(fields) {}

  forms::Label Label1;
  forms::TextBox txtSource;  // fixed
  forms::Label Label2;
  forms::TextBox txtDest;
  forms::Button cmdRename;
  forms::Button cmdCancel;

  // What is selected in txtDest as the dialog opens, in code points.
  std::size_t SelStart = 0;
  std::size_t SelLength = 0;

  void Load() override {
    Caption = "Rename...";
    Label1.Caption = "Old Name:";
    Label2.Caption = "New Name:";
    cmdRename.Caption = "&Rename";
    cmdCancel.Caption = "Ca&ncel";
    cmdRename.Default = true;
    txtSource.BackColour = FixedBox;
    txtDest.BackColour = base::White;
  }

  // Puts the caret at the end of the stem, where there is an extension.
  void PositionCursor() {
    const std::size_t dot = txtDest.Text.rfind('.');
    if (dot == std::string::npos) return;
    SelStart = base::CodePointCount(std::string_view(txtDest.Text).substr(0, dot));
    SelLength = 0;
  }

  void cmdRenameClick() {
    if (txtSource.Text != txtDest.Text) fields_.DialogResult = txtDest.Text;
    host_.Unload(*this);
  }
  void cmdCancelClick() {
    fields_.DialogResult = "cancel";
    host_.Unload(*this);
  }

 private:
  forms::FormHost& host_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
