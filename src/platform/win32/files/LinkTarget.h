// Where symbolic links and junctions lead.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// As the link has it, not followed any further; empty for what is no link.
std::string ReadLinkTarget(const std::wstring& path);

// The same of what a reparse point holds: a REPARSE_DATA_BUFFER ([MS-FSCC] 2.1.2.4 and 2.1.2.5).
// Empty for other kinds, and for what is damaged.
std::string LinkTargetFrom(std::string_view bytes);

// Whether the target is a volume, by its own name.
bool IsVolumeTarget(std::string_view target);

// The path that the target means from where the link is; dots in it are not resolved.
std::string LinkedPath(const std::string& link, const std::string& target);

// The path of a file that is to be written, every link at its end followed; ERROR_CANT_RESOLVE_
// FILENAME for a circle.
DWORD FollowLinks(std::string& path);

}  // namespace tarnwell::platform
