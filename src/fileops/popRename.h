// The form that asks for an item's new name.
#pragma once

#include <string>

#include "base/Text.h"
#include "fileops/OperationDialog.h"
#include "forms/Controls.h"

namespace tarnwell::fileops {

class popRename : public OperationDialog {
 public:
  explicit popRename(forms::FormHost& host) : OperationDialog("popRename", host) {}

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

  // The name that it has is no answer.
  void cmdRenameClick() {
    const bool isNew = txtSource.Text != txtDest.Text;
    Close(isNew ? std::optional(txtDest.Text) : std::nullopt);
  }
};

}  // namespace tarnwell::fileops
