// Why an operation may not take an item away.
#pragma once

#include <string>
#include <string_view>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// "The home folder cannot be deleted.": the subject comes with a capital. What a copy would take
// away is an item that it replaces.
std::string RefusalSentence(std::string_view subject, FileFunction function);

}  // namespace tarnwell::platform
