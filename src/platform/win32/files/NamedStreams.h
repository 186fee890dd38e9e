// Colours and comments that file systems keep with items, in streams of their own.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Whether the volume that the path is on keeps streams beside the content of files. NTFS and ReFS
// do, FAT does not: there a colon is no part of a name.
bool KeepsStreams(const std::wstring& path);

// Of the item that the path leads to. Empty, and no error, where there is none.
base::Status ReadNote(const std::wstring& path, ExtendedAttribute attribute, std::string& text);

// Keeps the text, or takes the note away when the text is empty. The times of the item stay as they
// were: to the file system a note is a change of the file.
base::Status WriteNote(const std::wstring& path, ExtendedAttribute attribute,
                       const std::string& text);

// Copies what the file has beside its content to another file. Gives a code of winerror.h.
DWORD CopyStreams(const std::wstring& from, const std::wstring& to);

}  // namespace tarnwell::platform
