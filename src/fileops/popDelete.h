// The form that asks whether to delete.
#pragma once

#include <string>

#include "fileops/DialogFields.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::fileops {

class popDelete : public forms::Form {
 public:
  popDelete(forms::FormHost& host, DialogFields& fields)
      : Form("popDelete"), host_(host), fields_(fields) {}

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

  void cmdDeleteClick() {
    fields_.SendToRecycle = chkSendToRecycleBin.Checked;
    Answer("delete");
  }
  void cmdCancelClick() { Answer("cancel"); }

 private:
  void Answer(const char* word) {
    fields_.DialogResult = word;
    host_.Unload(*this);
  }

  forms::FormHost& host_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
