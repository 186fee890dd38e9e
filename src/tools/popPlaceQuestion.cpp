#include "tools/popPlaceQuestion.h"

#include <utility>

#include "base/Caption.h"

namespace tarnwell::tools {

using platform::PlaceAnswer;
using platform::PlaceQuestion;

void popPlaceQuestion::Ask(const PlaceQuestion& question, forms::Form& owner, Answered answered) {
  Close();
  Caption = "Network Place";
  txtQuestion.Text = question.Text;
  const bool hasFields = question.Choices.empty();
  chkAnonymous.Caption = "Connect &anonymously";
  chkAnonymous.Checked = false;
  chkAnonymous.Visible = hasFields && question.CanBeAnonymous;
  lblUser.Caption = "User &name:";
  lblDomain.Caption = "&Domain:";
  lblPassword.Caption = "&Password:";
  lblUser.Visible = txtUser.Visible = hasFields && question.WantsUser;
  lblDomain.Visible = txtDomain.Visible = hasFields && question.WantsDomain;
  lblPassword.Visible = txtPassword.Visible = hasFields && question.WantsPassword;
  txtUser.Text = question.User;
  txtDomain.Text = question.Domain;
  txtPassword.Text.clear();
  optKeep[0].Caption = "&Forget the password at once";
  optKeep[1].Caption = "Keep it &until the session ends";
  optKeep[2].Caption = "Keep it in the desktop's &keyring";
  for (forms::OptionButton& option : optKeep) {
    option.Visible = txtPassword.Visible && question.CanKeep;
    option.Selected = &option == optKeep.data();
  }
  cmdChoice.clear();
  if (hasFields) cmdChoice.emplace_back().Caption = "&Connect";
  cmdCancel.Caption = "Cancel";
  for (const std::string& choice : question.Choices) {
    forms::Button& button = cmdChoice.emplace_back();
    button.Caption = base::AsCaption(choice);
    button.Visible = choice != cmdCancel.Caption;  // taking back is the same
  }
  // What others ask is answered by nobody's mere Enter.
  cmdChoice.front().Default = hasFields;
  cmdCancel.Default = !hasFields;
  EnableFields();
  answered_ = std::move(answered);
  host_.Open(*this);
  CentreOn(owner);
  host_.Show(*this, &owner);
}

void popPlaceQuestion::Close() {
  answered_ = nullptr;
  host_.Unload(*this);
}

void popPlaceQuestion::EnableFields() {
  for (forms::TextBox* box : {&txtUser, &txtDomain, &txtPassword}) {
    box->Enabled = !chkAnonymous.Checked;
  }
  for (forms::OptionButton& option : optKeep) option.Enabled = !chkAnonymous.Checked;
}

void popPlaceQuestion::chkAnonymousClick(bool on) {
  chkAnonymous.Checked = on;
  EnableFields();
  Touch();
}

void popPlaceQuestion::optKeepClick(std::size_t which) {
  for (std::size_t i = 0; i < optKeep.size(); ++i) optKeep[i].Selected = i == which;
}

void popPlaceQuestion::cmdChoiceClick(std::size_t which) {
  PlaceAnswer answer{.Choice = which,
                     .User = txtUser.Text,
                     .Domain = txtDomain.Text,
                     .Password = txtPassword.Text,
                     .IsAnonymous = chkAnonymous.Checked};
  for (std::size_t i = 0; i < optKeep.size(); ++i) {
    if (optKeep[i].Selected) answer.Keeping = static_cast<platform::PasswordKeeping>(i);
  }
  Finish(&answer);
}

// The answer may end what owns this form.
void popPlaceQuestion::Finish(const PlaceAnswer* answer) {
  const Answered answered = std::exchange(answered_, nullptr);
  host_.Unload(*this);
  if (answered) answered(answer);
}

}  // namespace tarnwell::tools
