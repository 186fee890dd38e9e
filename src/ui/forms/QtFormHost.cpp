#include "ui/forms/QtFormHost.h"

#include <QApplication>
#include <algorithm>
#include <utility>

#include "ui/toolkit/Pointer.h"

namespace tarnwell::ui {
QtFormHost::~QtFormHost() = default;

QtFormHost::OpenForm* QtFormHost::Find(const forms::Form& form) {
  const auto found = std::ranges::find_if(
      open_, [&form](const std::unique_ptr<OpenForm>& each) { return each->Form == &form; });
  return found == open_.end() ? nullptr : found->get();
}

void QtFormHost::Open(forms::Form& form) {
  if (Find(form) != nullptr) return;
  auto entry = std::make_unique<OpenForm>();
  entry->Form = &form;
  entry->Window = makers_.at(typeid(form))(form);
  FormWindow& window = *entry->Window;
  window.Widget().setObjectName(QString::fromStdString(form.Name()));
  form.View = &window;
  open_.push_back(std::move(entry));
  try {
    form.Load();
    if (Find(form) == nullptr) return;  // unloaded while its load let messages through
    window.Sync();
    window.Measure();
  } catch (...) {
    Forget(form);
    throw;
  }
}

// Takes the form from the open ones and its window from the screen. The window itself goes later:
// this may run inside one of its own events, and inside loops within those.
std::unique_ptr<QtFormHost::OpenForm> QtFormHost::Forget(forms::Form& form) {
  const auto found = std::ranges::find_if(
      open_, [&form](const std::unique_ptr<OpenForm>& each) { return each->Form == &form; });
  if (found == open_.end()) return nullptr;
  std::unique_ptr<OpenForm> entry = std::move(*found);
  open_.erase(found);
  form.View = nullptr;
  FormWindow* window = entry->Window.release();
  window->Close();
  window->Widget().hide();
  window->Widget().deleteLater();
  return entry;
}

QWidget* QtFormHost::OwnerWidget(forms::Form* owner) {
  if (owner != nullptr) {
    OpenForm* entry = Find(*owner);
    if (entry != nullptr && entry->Window->Widget().isVisible()) return &entry->Window->Widget();
  }
  for (const auto& each : open_) {
    if (each->Window->Widget().isVisible()) return &each->Window->Widget();
  }
  return nullptr;
}

QWidget* QtFormHost::ModalOwner(forms::Form* owner) {
  QWidget* const active = QApplication::activeWindow();
  const bool isForm = std::ranges::any_of(
      open_, [active](const auto& each) { return &each->Window->Widget() == active; });
  return isForm ? active : OwnerWidget(owner);
}

void QtFormHost::Show(forms::Form& form, forms::Form* owner) {
  Open(form);
  QWidget* parent = owner == nullptr ? nullptr : OwnerWidget(owner);
  OpenForm* entry = Find(form);
  if (entry == nullptr) return;
  entry->Window->Sync();
  entry->Window->Show(parent);
}

void QtFormHost::ShowModal(forms::Form& form, forms::Form* owner) {
  Open(form);
  QWidget* parent = ModalOwner(owner);
  QEventLoop loop;
  OpenForm* entry = Find(form);
  entry->Loop = &loop;
  entry->Window->Widget().setWindowModality(Qt::ApplicationModal);
  entry->Window->Sync();
  entry->Window->Show(parent);
  loop.exec();
  // The loop also ends when the whole program is asked to.
  if (OpenForm* left = Find(form)) {
    left->Loop = nullptr;
    Unload(form);
  }
}

void QtFormHost::Unload(forms::Form& form) {
  const std::unique_ptr<OpenForm> entry = Forget(form);
  if (!entry) return;
  if (entry->Loop != nullptr) entry->Loop->quit();
  form.Unload();
  if (open_.empty() && AllGone) AllGone();
}

std::vector<forms::Form*> QtFormHost::OpenForms() const {
  std::vector<forms::Form*> forms;
  forms.reserve(open_.size());
  for (const auto& each : open_) forms.push_back(each->Form);
  return forms;
}

void QtFormHost::SetScreenPointer(forms::MousePointer pointer) {
  if (pointer == pointer_) return;
  if (pointer_ != forms::MousePointer::Default) QApplication::restoreOverrideCursor();
  if (pointer != forms::MousePointer::Default) QApplication::setOverrideCursor(ShapeOf(pointer));
  pointer_ = pointer;
}

}  // namespace tarnwell::ui
