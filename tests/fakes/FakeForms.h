// Windows, messages and dialogs without a screen: they record what the program shows, and what the
// user does comes from the test.
#pragma once

#include "Test.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Dialogs.h"
#include "platform/Web.h"

namespace tarnwell::fakes {

class FakeFormHost : public forms::FormHost {
 public:
  using Act = std::function<void(forms::Form&)>;

  std::vector<std::string> Told;  // "open Splash", "show Master", "unload X", in order
  Act OnModal;    // the user; a form that is still open behind that is closed as by its frame
  Act OnRefresh;  // a form asked to be painted at once
  Act OnUnload;   // runs before a form's own handler
  bool Refuses = false;  // no form can be shown modally

  bool IsOpen(const std::string& name) const {
    return std::ranges::any_of(open_, [&](auto& each) { return each->Shown.Name() == name; });
  }

  void Open(forms::Form& form) override {
    if (Find(form) != open_.end()) return;
    Told.push_back("open " + form.Name());
    open_.push_back(std::make_unique<Window>(form, *this));
    form.View = open_.back().get();
    form.Load();
    if (form.Width == 0) {
      form.Width = 4500;
      form.Height = 1800;
    }
  }
  void Show(forms::Form& form, forms::Form*) override {
    Open(form);
    Told.push_back("show " + form.Name());
  }
  void ShowModal(forms::Form& form, forms::Form*) override {
    Open(form);
    if (Refuses) throw std::runtime_error("no window");
    if (OnModal) OnModal(form);
    Unload(form);
  }
  void Unload(forms::Form& form) override {
    const auto found = Find(form);
    if (found == open_.end()) return;
    const std::unique_ptr<Window> window = std::move(*found);
    open_.erase(found);
    Told.push_back("unload " + form.Name());
    if (OnUnload) OnUnload(form);
    form.Unload();
    form.View = nullptr;
  }
  std::vector<forms::Form*> OpenForms() const override {
    std::vector<forms::Form*> forms;
    for (const auto& each : open_) forms.push_back(&each->Shown);
    return forms;
  }
  forms::MousePointer ScreenPointer() const override { return pointer_; }
  void SetScreenPointer(forms::MousePointer pointer) override { pointer_ = pointer; }

 private:
  struct Window : forms::FormView {
    Window(forms::Form& form, const FakeFormHost& host) : Shown(form), Host(host) {}
    void Touched() override {}
    void Refresh() override {
      if (Host.OnRefresh) Host.OnRefresh(Shown);
    }
    forms::Form& Shown;
    const FakeFormHost& Host;
  };
  std::vector<std::unique_ptr<Window>>::iterator Find(forms::Form& form) {
    return std::ranges::find_if(open_, [&](auto& each) { return &each->Shown == &form; });
  }

  std::vector<std::unique_ptr<Window>> open_;
  forms::MousePointer pointer_ = forms::MousePointer::Default;
};

// Records the messages, and answers none.
struct FakeMessenger : forms::Messenger {
  std::vector<std::string> Texts;
  std::function<void()> OnMessage;  // the user, before a message
  std::string Result;

  void Message(const std::string& text, forms::MessageKind, const std::string&) override {
    Texts.push_back(text);
    if (OnMessage) OnMessage();
  }
  const std::string& MessageResult() const override { return Result; }
};

// Gives the answers that a test has put down; whatever else is asked is cancelled.
struct FakeDialogs : platform::Dialogs {
  using Text = std::optional<std::string>;

  std::vector<std::string> Texts;                  // to type, the first one first
  std::vector<platform::TextQuestion> Asked;       // for a text
  std::vector<std::string> Criticals;              // the critical messages, in turn
  Text File;                                       // to open or to save to
  std::optional<platform::FileQuestion> AskedFor;  // the last
  std::function<std::optional<base::Colour>(const platform::ColourQuestion&)> OnColour;

  bool Yes = false;

  bool AskYesNo(const std::string&, const std::string&, bool) override { return Yes; }
  void ShowCritical(const std::string&, const std::string& text) override {
    Criticals.push_back(text);
  }
  Text AskText(const platform::TextQuestion& question) override {
    Asked.push_back(question);
    if (Texts.empty()) return {};
    const std::string text = Texts.front();
    Texts.erase(Texts.begin());
    return text;
  }
  std::optional<base::Colour> AskColour(const platform::ColourQuestion& question) override {
    return OnColour ? OnColour(question) : std::nullopt;
  }
  Text AskOpenFile(const platform::FileQuestion& question) override {
    AskedFor = question;
    return File;
  }
  Text AskSaveFile(const platform::FileQuestion& question) override {
    return AskOpenFile(question);
  }
  Text AskFolder(const std::string&, const std::string&) override { return File; }
};

// Gives the pages that a test has put up; nothing for any other address, or where it is given up.
struct FakeWeb : platform::Web {
  std::map<std::string, std::string> Pages;
  std::vector<std::string> Asked;
  std::function<void()> OnOpen;  // messages that come meanwhile
  bool IsGivenUp = false;

  std::string OpenUrl(const std::string& address, std::size_t most) override {
    Asked.push_back(address);
    IsGivenUp = false;
    if (OnOpen) OnOpen();
    return IsGivenUp ? "" : Pages[address].substr(0, most);
  }
  void GiveUp() override { IsGivenUp = true; }
};

}  // namespace tarnwell::fakes
