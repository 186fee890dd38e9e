// The base of the small dialogs of file operations.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "base/Colour.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

// The box of a dialog that cannot be changed; those that can are white.
inline constexpr base::Colour FixedBox = base::Rgb(166, 202, 240);

class OperationDialog : public forms::Form {
 public:
  OperationDialog(std::string name, forms::FormHost& host) : Form(std::move(name)), host_(host) {}

  // The word of the button that was pressed, or the name that was typed; the two share it, so that
  // a name like a word is taken for that. Nothing while the dialog is open, and where it was closed
  // by other means.
  std::optional<std::string> Result;

  // Shows the dialog over the middle of the form and returns when it is closed.
  void Ask(forms::Form& owner) {
    CentreOn(owner);
    host_.ShowModal(*this, &owner);
  }
  void cmdCancelClick() { Close(std::string(platform::CancelWord)); }

 protected:
  void Close(std::optional<std::string> result) {
    Result = std::move(result);
    host_.Unload(*this);
  }

 private:
  forms::FormHost& host_;
};

}  // namespace tarnwell::fileops
