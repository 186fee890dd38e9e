// The form of the program's message box.
#pragma once

#include <array>
#include <string>

#include "base/Text.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"

namespace tarnwell::shell {

class popMsgBox : public forms::Form {
 public:
  popMsgBox(forms::FormHost& host, std::string& messageResult)
      : Form("popMsgBox"), host_(host), messageResult_(messageResult) {}

  static constexpr std::size_t ButtonCount = 4;

  forms::TextBox lblText;
  forms::Picture Image1;
  // c1 to c4, from the right. c1 has the focus at first, so that Enter gives the careful answer.
  std::array<forms::Button, ButtonCount> Buttons;

  void Load() override {
    messageResult_.clear();
    BackColour = base::Rgb(128, 128, 128);
    lblText.BackColour = base::White;
  }

  // The user pressed the button; 0 is c1.
  void ButtonClick(std::size_t button) {
    messageResult_ = base::AsciiUpper(Buttons.at(button).Caption);
    host_.Unload(*this);
  }

 private:
  forms::FormHost& host_;
  std::string& messageResult_;
};

}  // namespace tarnwell::shell
