// The form that asks for the name of a new folder.
#pragma once

#include <string>

#include "fileops/DialogFields.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::fileops {

class popNewFolder : public forms::Form {
 public:
  popNewFolder(forms::FormHost& host, DialogFields& fields)
      : Form("popNewFolder"), host_(host), fields_(fields) {}

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

  void cmdCopyClick() { Answer(txtNewFolderName.Text); }
  void cmdCancelClick() { Answer("cancel"); }

 private:
  void Answer(const std::string& result) {
    fields_.DialogResult = result;
    host_.Unload(*this);
  }

  forms::FormHost& host_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
