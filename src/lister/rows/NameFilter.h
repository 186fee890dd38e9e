// Which items a list shows by their names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::lister {

class NameFilter {
 public:
  // Patterns with ; between them, any of which may take a name; blanks at their ends do not count,
  // nor does case. A pattern in which `*` stands for any run of characters, `?` for one or `#` for
  // a digit is one of the whole name; one without these takes every name that contains it.
  void SetText(const std::string& text);
  // In lower case; empty for all.
  void SetExtension(const std::string& extension) { extension_ = extension; }
  const std::string& Text() const { return text_; }
  const std::string& Extension() const { return extension_; }

  bool IsOn() const { return !patterns_.empty() || !extension_.empty(); }
  // The text bears on files and folders, the extension on files alone.
  bool Takes(std::string_view name, bool isFolder) const;

 private:
  struct Pattern {
    std::string Text;  // lower case
    bool IsWhole;      // has wildcards
  };

  std::string text_;
  std::vector<Pattern> patterns_;
  std::string extension_;
  mutable std::string lower_;  // the name at hand; kept so that nothing is allocated for the next
};

// An entry of the drop-down list of extensions.
struct ExtensionChoice {
  std::string Extension;  // bytes, lower case; what NameFilter::SetExtension takes
  int Count = 0;          // files that have it
};

// The name in lower case, as filters compare it; bytes that are no UTF-8 stay as they are.
std::string LowerCase(std::string_view name);

}  // namespace tarnwell::lister
