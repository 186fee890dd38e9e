// Port: the platform's own plain dialogs.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "base/Colour.h"
#include "base/Measure.h"

namespace tarnwell::platform {

// A place on the screen, in twips.
struct ScreenPlace {
  base::Twips Left = 0;
  base::Twips Top = 0;
};

struct TextQuestion {
  std::string Title;
  std::string Prompt;
  std::string Text;  // offered; what the user leaves alone comes back byte for byte
  std::optional<ScreenPlace> Place{};  // of the window's upper left corner; else the platform's
};

inline constexpr std::size_t CustomColourCount = 16;
using CustomColours = std::array<base::Colour, CustomColourCount>;

struct ColourQuestion {
  base::Colour Start = base::Black;
  // The colours that the user puts aside in the dialog, shown and kept for the next time.
  CustomColours& Custom;
  // Hears of every colour that the dialog shows while it is open.
  std::function<void(base::Colour)> Shown{};
};

struct FileQuestion {
  std::string Title;
  std::string FilterName;     // "File Listing"
  std::string FilterPattern;  // "*.csv"
  std::string DefaultSuffix;  // "csv"
  std::string Name;           // the name offered
  std::string Folder;         // the folder shown first; empty for the platform's choice
  bool IsCentred = false;     // on the screen, and not over the window in use
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // A Yes/No box; Enter gives `usual`. Closed by other means than a button it counts as No.
  virtual bool AskYesNo(const std::string& title, const std::string& text, bool usual = false) = 0;
  // A critical message with one button.
  virtual void ShowCritical(const std::string& title, const std::string& text) = 0;
  // A line of text; nothing on cancel.
  virtual std::optional<std::string> AskText(const TextQuestion& question) = 0;
  // A colour; nothing on cancel.
  virtual std::optional<base::Colour> AskColour(const ColourQuestion& question) = 0;
  // The path of a file to open, or to save to after a question about replacing; nothing on cancel.
  virtual std::optional<std::string> AskOpenFile(const FileQuestion& question) = 0;
  virtual std::optional<std::string> AskSaveFile(const FileQuestion& question) = 0;
  // The path of a folder; `folder` is shown first, empty for the platform's choice. Nothing on
  // cancel.
  virtual std::optional<std::string> AskFolder(const std::string& title,
                                               const std::string& folder) = 0;
};

}  // namespace tarnwell::platform
