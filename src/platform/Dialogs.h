// Port: the platform's own plain dialogs.
#pragma once

#include <optional>
#include <string>

#include "base/Colour.h"

namespace tarnwell::platform {

struct FileQuestion {
  std::string Title;
  std::string FilterName;     // "File Listing"
  std::string FilterPattern;  // "*.csv"
  std::string DefaultSuffix;  // "csv"
  std::string Name;           // the name offered
  std::string Folder;         // the folder shown first; empty for the platform's choice
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // A Yes/No box; Enter gives `usual`. Closed by other means than a button it counts as No.
  virtual bool AskYesNo(const std::string& title, const std::string& text, bool usual = false) = 0;
  // A critical message with one button.
  virtual void ShowCritical(const std::string& title, const std::string& text) = 0;
  // A line of text; nothing on cancel.
  virtual std::optional<std::string> AskText(const std::string& title, const std::string& prompt,
                                             const std::string& start) = 0;
  // A colour, started on the one given; nothing on cancel.
  virtual std::optional<base::Colour> AskColour(base::Colour start) = 0;
  // The path of a file to open, or to save to after a question about replacing; nothing on cancel.
  virtual std::optional<std::string> AskOpenFile(const FileQuestion& question) = 0;
  virtual std::optional<std::string> AskSaveFile(const FileQuestion& question) = 0;
};

}  // namespace tarnwell::platform
