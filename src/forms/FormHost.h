// The port by which forms are shown. The toolkit side opens a window for a form's state.
#pragma once

#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace tarnwell::forms {

class FormHost {
 public:
  virtual ~FormHost() = default;

  // Opens the form without showing it: runs Form::Load, makes its window, and writes the size that
  // the window needs for its content into Width and Height. Does nothing if the form is open.
  virtual void Open(Form& form) = 0;
  // Opens the form if need be and shows it. `owner` may be null.
  virtual void Show(Form& form, Form* owner) = 0;
  // The same, and returns when the form has been unloaded; other windows take no input until then.
  // Throws std::runtime_error when no window can be shown.
  virtual void ShowModal(Form& form, Form* owner) = 0;
  // Closes the form: runs Form::Unload and takes the window away. Does nothing if it is not open.
  virtual void Unload(Form& form) = 0;

  // The open forms, in the order in which they were opened.
  virtual std::vector<Form*> OpenForms() const = 0;

  // The pointer shown over all windows of the program.
  virtual forms::MousePointer ScreenPointer() const = 0;
  virtual void SetScreenPointer(forms::MousePointer pointer) = 0;
};

}  // namespace tarnwell::forms
