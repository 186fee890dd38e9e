// Shows forms in Qt windows.
#pragma once

#include <QEventLoop>
#include <functional>
#include <map>
#include <memory>
#include <typeindex>
#include <vector>

#include "forms/FormHost.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class QtFormHost : public forms::FormHost {
 public:
  ~QtFormHost() override;

  // Says which window shows forms of the type FormType.
  template <typename FormType>
  void Bind(std::function<std::unique_ptr<FormWindow>(FormType&)> make) {
    makers_[typeid(FormType)] = [make = std::move(make)](forms::Form& form) {
      return make(static_cast<FormType&>(form));
    };
  }

  // Throws std::out_of_range for a form whose type is not bound.
  void Open(forms::Form& form) override;
  void Show(forms::Form& form, forms::Form* owner) override;
  void ShowModal(forms::Form& form, forms::Form* owner) override;
  // The window is deleted when the event loop is reached again.
  void Unload(forms::Form& form) override;
  std::vector<forms::Form*> OpenForms() const override;
  forms::MousePointer ScreenPointer() const override { return pointer_; }
  void SetScreenPointer(forms::MousePointer pointer) override;

  // Called when the last form has gone, unless empty.
  std::function<void()> AllGone;

 private:
  struct OpenForm {
    forms::Form* Form = nullptr;
    std::unique_ptr<FormWindow> Window;
    QEventLoop* Loop = nullptr;  // of a modal form
  };
  OpenForm* Find(const forms::Form& form);
  std::unique_ptr<OpenForm> Forget(forms::Form& form);
  // The form's window if it can be seen, else any window that can, else null.
  QWidget* OwnerWidget(forms::Form* owner);
  // The active window if it is a form's, so that the keyboard comes back to it; else as above.
  QWidget* ModalOwner(forms::Form* owner);

  std::map<std::type_index, std::function<std::unique_ptr<FormWindow>(forms::Form&)>> makers_;
  std::vector<std::unique_ptr<OpenForm>> open_;
  forms::MousePointer pointer_ = forms::MousePointer::Default;
};

}  // namespace tarnwell::ui
