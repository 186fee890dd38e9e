// The plain dialogs of the toolkit.
#pragma once

#include "platform/Dialogs.h"
#include "ui/toolkit/IconSource.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {

// Files and colours are asked for in the colours that the desktop gave when this was made.
class QtDialogs : public platform::Dialogs {
 public:
  explicit QtDialogs(const IconSource& icons) : icons_(icons), desktop_(DesktopPalette()) {}

  bool AskYesNo(const std::string& title, const std::string& text, bool usual) override;
  void ShowCritical(const std::string& title, const std::string& text) override;
  std::optional<std::string> AskText(const platform::TextQuestion& question) override;
  std::optional<base::Colour> AskColour(const platform::ColourQuestion& question) override;
  std::optional<std::string> AskOpenFile(const platform::FileQuestion& question) override;
  std::optional<std::string> AskSaveFile(const platform::FileQuestion& question) override;
  std::optional<std::string> AskFolder(const std::string& title,
                                       const std::string& folder) override;

 private:
  const IconSource& icons_;
  const QPalette desktop_;
};

}  // namespace tarnwell::ui
