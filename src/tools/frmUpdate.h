// The form that tells of a newer version of the program.
#pragma once

#include <functional>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::tools {

class frmUpdate : public forms::Form {
 public:
  struct Answers {
    std::function<void()> Update;  // after the form has gone
    std::function<void()> Pass;
  };

  frmUpdate(forms::FormHost& host, Answers answers)
      : Form("frmUpdate"), host_(host), answers_(std::move(answers)) {
    Caption = "Software Update Available!";
    BackColour = base::White;
    cmdUpdate.Caption = "Get Update from Website";
    cmdUpdate.Default = true;
    cmdPass.Caption = "Don't get the Update";
  }

  forms::TextBox txtNews;  // fixed, of several lines
  forms::Button cmdUpdate;
  forms::Button cmdPass;
  // Unasked for, the window would take keys that were meant for another one.
  bool TakesKeyboard = true;

  void cmdUpdateClick() {
    host_.Unload(*this);
    answers_.Update();
  }
  void cmdPassClick() {
    host_.Unload(*this);
    answers_.Pass();
  }
  void CloseClick() { host_.Unload(*this); }  // by its frame, or by Escape

 private:
  forms::FormHost& host_;
  Answers answers_;
};

}  // namespace tarnwell::tools
