// The form that asks for the name of a new folder.
#pragma once

#include "fileops/OperationDialog.h"
#include "forms/Controls.h"

namespace tarnwell::fileops {

class popNewFolder : public OperationDialog {
 public:
  explicit popNewFolder(forms::FormHost& host) : OperationDialog("popNewFolder", host) {}

  forms::Label Label1;
  forms::TextBox txtDest;  // fixed
  forms::Label Label2;
  forms::TextBox txtNewFolderName;
  forms::Button cmdCopy;
  forms::Button cmdCancel;

  void Load() override {
    Caption = "New Folder...";
    Label1.Caption = "Create In:";
    Label2.Caption = "New Folder Name:";
    cmdCopy.Caption = "&Create";
    cmdCancel.Caption = "Ca&ncel";
    cmdCopy.Default = true;
    txtDest.BackColour = FixedBox;
    txtNewFolderName.BackColour = base::White;
  }

  void cmdCopyClick() { Close(txtNewFolderName.Text); }
};

}  // namespace tarnwell::fileops
