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

  void cmdDeleteClick() { Close(std::string(platform::DeleteWord)); }
};

}  // namespace tarnwell::fileops
