// The form that asks what a place on the network wants to know: who the user is, or which way to go
// on.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/NetworkPlaces.h"

namespace tarnwell::tools {

class popPlaceQuestion : public forms::Form {
 public:
  explicit popPlaceQuestion(forms::FormHost& host) : Form("popPlaceQuestion"), host_(host) {}

  // Null where the user takes the question back.
  using Answered = std::function<void(const platform::PlaceAnswer* answer)>;

  forms::TextBox txtQuestion;  // fixed, of many lines
  forms::CheckBox chkAnonymous;
  forms::Label lblUser;
  forms::TextBox txtUser;
  forms::Label lblDomain;
  forms::TextBox txtDomain;
  forms::Label lblPassword;
  forms::TextBox txtPassword;  // not to be read on the screen
  // By PasswordKeeping.
  std::array<forms::OptionButton, 3> optKeep;
  std::vector<forms::Button> cmdChoice;
  forms::Button cmdCancel;

  // Asks over the owner, in place of what was asked before, and returns. `answered` is called once,
  // after the form is closed; not at all behind a Close.
  void Ask(const platform::PlaceQuestion& question, forms::Form& owner, Answered answered);
  // Without an answer.
  void Close();

  void Unload() override { txtPassword.Text.clear(); }

  // --- What the user does.
  void chkAnonymousClick(bool on);
  void optKeepClick(std::size_t which);
  void cmdChoiceClick(std::size_t which);
  // Also by Escape and the window's frame.
  void cmdCancelClick() { Finish(nullptr); }

 private:
  void Finish(const platform::PlaceAnswer* answer);
  void EnableFields();

  forms::FormHost& host_;
  Answered answered_;
};

}  // namespace tarnwell::tools
