#include "platform/RefusalSentence.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarnwell::platform {

std::string RefusalSentence(std::string_view subject, FileFunction function) {
  constexpr std::array<std::pair<FileFunction, const char*>, 4> words = {{
      {FileFunction::Delete, "deleted"},
      {FileFunction::Move, "moved"},
      {FileFunction::Rename, "renamed"},
      {FileFunction::Copy, "replaced"},
  }};
  const auto* const word =
      std::ranges::find(words, function, [](const auto& row) { return row.first; });
  return std::string(subject) + " cannot be " + (word == words.end() ? "changed" : word->second) +
         ".";
}

}  // namespace tarnwell::platform
