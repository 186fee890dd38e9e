// What is put in the place of a match.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Regex.h"

namespace tarnwell::platform {

struct ReplacementPiece {
  std::string Text;                  // stands as it is, ahead of the group
  std::optional<std::size_t> Group;  // 0 is the whole match
};

// The number of the group of a name; nothing where there is none.
using GroupOfName = std::function<std::optional<std::size_t>(const std::string& name)>;

// As Regex::SetReplacement tells; `groups` counts those of the expression. Nothing, with the
// reason, for a text that names a group which is not there.
std::optional<std::vector<ReplacementPiece>> ReadReplacement(std::string_view text,
                                                             std::size_t groups,
                                                             const GroupOfName& groupOfName,
                                                             RegexFault& fault);

}  // namespace tarnwell::platform
