#include "lister/NameFilter.h"

#include "base/Text.h"
#include "lister/CellText.h"

namespace tarnwell::lister {

void NameFilter::SetText(const std::string& text) {
  text_ = text;
  pattern_ = LowerCase(text);
}

void NameFilter::SetExtension(const std::string& extension) {
  extension_ = extension;
}

bool NameFilter::Takes(std::string_view name, bool isFolder) const {
  if (!extension_.empty() && !isFolder && LowerCase(ExtensionOf(name)) != extension_) return false;
  return pattern_.empty() || LowerCase(name).find(pattern_) != std::string::npos;
}

std::string LowerCase(std::string_view name) {
  return base::AsciiUpper(name);
}

}  // namespace tarnwell::lister
