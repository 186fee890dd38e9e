// The form that asks whether to delete.
#pragma once

#include "fileops/OperationDialog.h"
#include "forms/Controls.h"

namespace tarnwell::fileops {

class popDelete : public OperationDialog {
 public:
  explicit popDelete(forms::FormHost& host) : OperationDialog("popDelete", host) {}

  forms::Label Label1;
  forms::TextBox txtSource;  // fixed
  forms::CheckBox chkSendToRecycleBin;
  forms::Label Label2;  // of the check box
  forms::Button cmdDelete;
  forms::Button cmdCancel;

  void Load() override {
    Caption = "File Operation...";
    Label1.Caption = "Delete:";
    Label2.Caption = "Send to Recycle Bin";
    cmdDelete.Caption = "&Delete";
    cmdCancel.Caption = "Ca&ncel";
    cmdDelete.Default = true;
    txtSource.BackColour = FixedBox;
  }

  // Of a form that is open already: asks about what cannot be undone, which takes more than Enter.
  void AskForGood() {
    chkSendToRecycleBin.Visible = Label2.Visible = false;
    Label1.Caption = "Permanently Delete?";
    cmdDelete.Default = false;
    cmdCancel.Default = true;
  }

  void cmdDeleteClick() { Close(std::string(platform::DeleteWord)); }
};

}  // namespace tarnwell::fileops
