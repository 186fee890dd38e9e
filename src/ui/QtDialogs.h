// The plain dialogs of the toolkit.
#pragma once

#include "platform/Dialogs.h"

namespace tarnwell::ui {

class QtDialogs : public platform::Dialogs {
 public:
  bool AskYesNo(const std::string& title, const std::string& text) override;
  void ShowCritical(const std::string& title, const std::string& text) override;
  std::optional<std::string> AskText(const std::string& title, const std::string& prompt,
                                     const std::string& start) override;
  std::optional<base::Colour> AskColour(base::Colour start) override;
  std::optional<std::string> AskOpenFile(const platform::FileQuestion& question) override;
  std::optional<std::string> AskSaveFile(const platform::FileQuestion& question) override;
};

}  // namespace tarnwell::ui
