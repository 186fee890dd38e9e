#include "fakes/FakeForms.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarnwell::fakes {

struct FakeFormHost::Window : forms::FormView {
  Window(forms::Form& form, const FakeFormHost& host) : Shown(form), Host(host) {}
  void Touched() override {}
  void Refresh() override {
    if (Host.OnRefresh) Host.OnRefresh(Shown);
  }
  forms::Form& Shown;
  const FakeFormHost& Host;
};

FakeFormHost::FakeFormHost() = default;
FakeFormHost::~FakeFormHost() = default;

bool FakeFormHost::IsOpen(const std::string& name) const {
  return std::ranges::any_of(open_, [&](const auto& each) { return each->Shown.Name() == name; });
}

void FakeFormHost::Open(forms::Form& form) {
  if (std::ranges::any_of(open_, [&](const auto& each) { return &each->Shown == &form; })) return;
  Told.push_back("open " + form.Name());
  open_.push_back(std::make_unique<Window>(form, *this));
  form.View = open_.back().get();
  form.Load();
  if (form.Width == 0) {
    form.Width = 4500;
    form.Height = 1800;
  }
}

void FakeFormHost::Show(forms::Form& form, forms::Form*) {
  Open(form);
  Told.push_back("show " + form.Name());
}

void FakeFormHost::ShowModal(forms::Form& form, forms::Form*) {
  Open(form);
  if (Refuses) throw std::runtime_error("no window");
  Told.push_back("modal " + form.Name());
  if (OnModal) OnModal(form);
  Unload(form);
}

void FakeFormHost::Unload(forms::Form& form) {
  const auto found =
      std::ranges::find_if(open_, [&](const auto& each) { return &each->Shown == &form; });
  if (found == open_.end()) return;
  const std::unique_ptr<Window> window = std::move(*found);
  open_.erase(found);
  Told.push_back("unload " + form.Name());
  if (OnUnload) OnUnload(form);
  form.Unload();
  form.View = nullptr;
}

std::vector<forms::Form*> FakeFormHost::OpenForms() const {
  std::vector<forms::Form*> forms;
  for (const auto& each : open_) forms.push_back(&each->Shown);
  return forms;
}

}  // namespace tarnwell::fakes
