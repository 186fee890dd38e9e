// Which items a list shows by their names.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::lister {

class NameFilter {
 public:
  // See ListerControl::SetFilterText and SetExtensionFilter.
  void SetText(const std::string& text);
  void SetExtension(const std::string& extension);
  const std::string& Text() const { return text_; }
  const std::string& Extension() const { return extension_; }

  bool IsOn() const { return !text_.empty() || !extension_.empty(); }
  // The text bears on files and folders, the extension on files alone.
  bool Takes(std::string_view name, bool isFolder) const;

 private:
  std::string text_;
  std::string pattern_;    // the text in lower case, less blanks at its ends
  std::string extension_;  // lower case
};

// The name in lower case, as filters compare it.
std::string LowerCase(std::string_view name);

}  // namespace tarnwell::lister
