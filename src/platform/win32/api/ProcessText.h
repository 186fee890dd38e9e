// Texts of this process, of any length.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// A variable of the environment; empty if it is not set.
std::wstring EnvironmentText(const wchar_t* name);
// What the path leads to from the current folder on, without "." and ".."; empty if it is none.
std::wstring FullPath(const std::wstring& path);
// The same for a folder that a person has named: without the mark of long paths, and with a
// separator at the end where it is the root of a drive alone.
std::string FullFolder(std::string_view path);
// The program's own file.
std::wstring ExecutablePath();

}  // namespace tarnwell::platform
