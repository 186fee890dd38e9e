// The form that asks whether to copy or to move, and where to.
#pragma once

#include <string>

#include "fileops/OperationDialog.h"
#include "forms/Controls.h"

namespace tarnwell::fileops {

class popCopyMove : public OperationDialog {
 public:
  explicit popCopyMove(forms::FormHost& host) : OperationDialog("popCopyMove", host) {}

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
    txtSource.BackColour = FixedBox;
    txtDest.BackColour = base::White;
  }

  void cmdCopyClick() { Work(platform::CopyWord); }
  void cmdMoveClick() { Work(platform::MoveWord); }

 private:
  // Without a folder there is nowhere to go: an empty path with a separator would be a root.
  void Work(std::string_view word) {
    if (!txtDest.Text.empty()) Close(std::string(word));
  }
};

}  // namespace tarnwell::fileops
