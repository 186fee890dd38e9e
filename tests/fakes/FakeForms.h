// Windows, messages and dialogs without a screen: they record what the program shows, and what the
// user does comes from the test.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Dialogs.h"

namespace tarnwell::fakes {

class FakeFormHost : public forms::FormHost {
 public:
  using Act = std::function<void(forms::Form&)>;
  FakeFormHost();
  ~FakeFormHost() override;

  std::vector<std::string> Told;  // "open Splash", "show Master", "modal X", "unload X", in order
  Act OnModal;    // the user; a form that is still open behind that is closed as by its frame
  Act OnRefresh;  // a form asked to be painted at once
  Act OnUnload;   // runs before a form's own handler
  bool Refuses = false;  // no form can be shown modally

  bool IsOpen(const std::string& name) const;

  void Open(forms::Form& form) override;
  void Show(forms::Form& form, forms::Form* owner) override;
  void ShowModal(forms::Form& form, forms::Form* owner) override;
  void Unload(forms::Form& form) override;
  std::vector<forms::Form*> OpenForms() const override;
  forms::MousePointer ScreenPointer() const override { return pointer_; }
  void SetScreenPointer(forms::MousePointer pointer) override { pointer_ = pointer; }

 private:
  struct Window;
  std::vector<std::unique_ptr<Window>> open_;
  forms::MousePointer pointer_ = forms::MousePointer::Default;
};

// Records the messages and gives the next of the answers; none once they are used up.
struct FakeMessenger : forms::Messenger {
  std::vector<std::string> Texts;
  std::vector<std::string> Answers;
  std::string Result;

  void Message(const std::string& text, forms::MessageKind, const std::string&) override {
    Texts.push_back(text);
    Result.clear();
    if (Answers.empty()) return;
    Result = Answers.front();
    Answers.erase(Answers.begin());
  }
  const std::string& MessageResult() const override { return Result; }
};

// Records the questions, as "title: text"; all but yes-or-no ones are cancelled.
struct FakeDialogs : platform::Dialogs {
  std::vector<std::string> Questions;
  std::function<bool()> OnAskYesNo;  // the user's answer; No without it

  bool AskYesNo(const std::string& title, const std::string& text) override {
    Questions.push_back(title + ": " + text);
    return OnAskYesNo && OnAskYesNo();
  }
  void ShowCritical(const std::string& title, const std::string& text) override {
    Questions.push_back(title + ": " + text);
  }
  std::optional<std::string> AskText(const std::string& title, const std::string& prompt,
                                     const std::string&) override {
    Questions.push_back(title + ": " + prompt);
    return std::nullopt;
  }
  std::optional<base::Colour> AskColour(base::Colour) override { return std::nullopt; }
  std::optional<std::string> AskOpenFile(const platform::FileQuestion& question) override {
    Questions.push_back(question.Title);
    return std::nullopt;
  }
  std::optional<std::string> AskSaveFile(const platform::FileQuestion& question) override {
    Questions.push_back(question.Title);
    return std::nullopt;
  }
};

}  // namespace tarnwell::fakes
