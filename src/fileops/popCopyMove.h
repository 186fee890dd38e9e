// The form that asks whether to copy or to move, and where to.
#pragma once

#include <string>

#include "fileops/DialogFields.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::fileops {

class popCopyMove : public forms::Form {
 public:
  popCopyMove(forms::FormHost& host, DialogFields& fields)
      : Form("popCopyMove"), host_(host), fields_(fields) {}

  forms::Label Label1;
  forms::TextBox txtSource;  // fixed
  forms::Label Label2;
  forms::TextBox txtDest;
  forms::Button cmdCopy;
  forms::Button cmdMove;
  forms::Button cmdCancel;

  void Load() override {
    Caption = "File Operation...";
    Label1.Caption = "Source:";
    Label2.Caption = "Destination:";
    cmdCopy.Caption = "&Copy Here";
    cmdMove.Caption = "&Move Here";
    cmdCancel.Caption = "Ca&ncel";
    cmdCopy.Default = true;
    txtSource.BackColour = FixedBox;
    txtDest.BackColour = base::White;
  }
  void Unload() override { fields_.DialogDestination = txtDest.Text; }

  void cmdCopyClick() { Work("copy"); }
  void cmdMoveClick() { Work("move"); }
  void cmdCancelClick() { Answer("cancel"); }

 private:
  // Without a folder there is nowhere to go: an empty path with a separator would be a root.
  void Work(const char* word) {
    if (!txtDest.Text.empty()) Answer(word);
  }
  void Answer(const char* word) {
    fields_.DialogResult = word;
    host_.Unload(*this);
  }

  forms::FormHost& host_;
  DialogFields& fields_;
};

}  // namespace tarnwell::fileops
