#include "shell/MessageBox.h"

#include <array>
#include <cstddef>
#include <exception>
#include <string_view>

#include "base/Text.h"
#include "shell/popMsgBox.h"

namespace tarnwell::shell {
namespace {

// Captions of c1 to c4; an empty one hides its button.
using Captions = std::array<std::string_view, popMsgBox::ButtonCount>;

constexpr Captions CaptionsOf(forms::MessageKind kind) {
  switch (kind) {
    case forms::MessageKind::YesNo:
      return {"No", "Yes"};
    case forms::MessageKind::YesNoCancel:
      return {"Cancel", "No", "Yes"};
    default:
      return {"OK"};
  }
}

}  // namespace

forms::Form& MessageBox::FindParent(const std::string& parentName) const {
  if (!parentName.empty()) {
    for (forms::Form* form : host_.OpenForms()) {
      if (base::EqualsIgnoringCase(form->Name(), parentName)) return *form;
    }
  }
  return mainForm_;
}

void MessageBox::Message(const std::string& text, forms::MessageKind kind,
                         const std::string& parentName) {
  result_.clear();
  if (silent_) return;
  try {
    forms::Form& parent = FindParent(parentName);
    popMsgBox box(host_, result_);
    box.lblText.Text = text;
    box.Caption = "Tarnwell";
    const Captions captions = CaptionsOf(kind);
    for (std::size_t i = 0; i < captions.size(); ++i) {
      box.Buttons[i].Caption = captions[i];
      box.Buttons[i].Visible = !captions[i].empty();
    }
    host_.Open(box);
    box.CentreOn(parent);
    const forms::MousePointer pointer = host_.ScreenPointer();
    host_.SetScreenPointer(forms::MousePointer::Arrow);
    try {
      host_.ShowModal(box, &parent);
    } catch (...) {
      host_.SetScreenPointer(pointer);
      host_.Unload(box);
      throw;
    }
    host_.SetScreenPointer(pointer);
  } catch (const std::exception&) {
    // Nobody can be told that nobody can be told.
  }
}

}  // namespace tarnwell::shell
