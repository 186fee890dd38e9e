// Captions of menu entries, in which "&" marks the access key.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::base {

// A text as part of a caption: each ampersand is doubled, and so shown.
inline std::string AsCaption(std::string_view text) {
  std::string caption;
  caption.reserve(text.size());
  for (const char c : text) caption.append(c == '&' ? 2 : 1, c);
  return caption;
}

// The caption without any ampersand.
inline std::string WithoutMarks(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

}  // namespace tarnwell::base
