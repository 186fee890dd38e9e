// Colours and comments that file systems keep with items, in extended attributes.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Of the item that the path leads to. Nothing is opened, so that any kind of item may be asked for.
// Links keep none of their own: the text is that of the target, a link that leads nowhere has
// none. Empty, and no error, where it is missing.
base::Status ReadExtendedAttribute(const char* path, ExtendedAttribute attribute,
                                   std::string& text);

// Keeps the text, or takes the attribute away when the text is empty. The path may have any length.
base::Status WriteExtendedAttribute(const std::string& path, ExtendedAttribute attribute,
                                    const std::string& text);

}  // namespace tarnwell::platform
