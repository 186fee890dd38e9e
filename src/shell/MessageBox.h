// Asks and tells the user through the program's own message box.
#pragma once

#include <string>

#include "forms/FormHost.h"
#include "forms/Messenger.h"

namespace tarnwell::shell {

class MessageBox : public forms::Messenger {
 public:
  MessageBox(forms::FormHost& host, forms::Form& mainForm) : host_(host), mainForm_(mainForm) {}

  // A box that cannot be shown leaves an empty result, which counts as neither yes nor no.
  void Message(const std::string& text, forms::MessageKind kind,
               const std::string& parentName = "") override;
  const std::string& MessageResult() const override { return result_; }

  // From now on no box is shown, and every question counts as not answered: the program ends.
  void FallSilent() { silent_ = true; }

 private:
  forms::Form& FindParent(const std::string& parentName) const;

  forms::FormHost& host_;
  forms::Form& mainForm_;
  std::string result_;
  bool silent_ = false;
};

}  // namespace tarnwell::shell
