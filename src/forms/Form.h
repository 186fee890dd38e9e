// The base of every form: the state of a window, apart from the window.
#pragma once

#include <string>
#include <utility>

#include "base/Colour.h"
#include "base/Measure.h"

namespace tarnwell::forms {

class Form;

// The window that shows a form, as far as the form needs it.
class FormView {
 public:
  virtual ~FormView() = default;
  // The state has changed; show it when the program is next idle.
  virtual void Touched() = 0;
  // Show the state now, on the screen, before returning.
  virtual void Refresh() = 0;
};

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

class Form {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // The name by which code finds a form among the open ones.
  const std::string& Name() const { return name_; }

  std::string Caption;
  // Outer place on the screen, in twips.
  base::Twips Left = 0;
  base::Twips Top = 0;
  base::Twips Width = 0;
  base::Twips Height = 0;
  base::Colour BackColour = base::White;
  WindowState State = WindowState::Normal;

  // Puts the form over the middle of the other one.
  void CentreOn(const Form& other) {
    Left = base::RoundToTwips(other.Left + other.Width / 2.0 - Width / 2.0);
    Top = base::RoundToTwips(other.Top + other.Height / 2.0 - Height / 2.0);
  }

  // Handler of the form's load; runs each time the form is opened, before it is shown.
  virtual void Load() {}
  // Handler of the form's unload, whatever closed it.
  virtual void Unload() {}

  // Called after a change of state. Without a view both do nothing.
  void Touch() {
    if (View != nullptr) View->Touched();
  }
  void Refresh() {
    if (View != nullptr) View->Refresh();
  }

  FormView* View = nullptr;  // set and cleared by the host

 private:
  std::string name_;
};

}  // namespace tarnwell::forms
