// Texts and paths as calls of the system take and give them.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::platform {

// See base/WideText.h.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view wide);
// The same into a text that serves for one after the other.
void NarrowInto(std::wstring_view wide, std::string& text);

// A full path for a call of the file system: by the prefix "\\?\" it may be of any length, and
// blanks and dots at the end of names, and names of devices, are what they are ("Naming Files,
// Paths, and Namespaces" of the system's documentation). What the system would have tidied without
// the prefix is tidied here: "." and "..", several separators in a row, one at the end. The shell
// takes Wide instead. What is no full path comes back as it is.
std::wstring LongPath(std::string_view path);
// The path without that prefix, but for a volume that has no other name.
std::string FromLongPath(std::wstring_view path);

}  // namespace tarnwell::platform
