#include "platform/win32/files/WindowsFolder.h"

#include <utility>

#include "base/PathSyntax.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/NamedStreams.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

bool IsDots(const wchar_t* name) {
  return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

}  // namespace

std::unique_ptr<WindowsFolder> WindowsFolder::Open(std::string_view path, base::Status& status) {
  const SystemPath folder(path);
  status = SystemError(folder.Error());
  if (!status) return nullptr;
  std::unique_ptr<WindowsFolder> opened(new WindowsFolder(path));
  std::wstring pattern = folder.Wide();
  if (!pattern.ends_with(L'\\')) pattern += L'\\';
  opened->items_ =
      FindHandle(FindFirstFileExW((pattern + L'*').c_str(), FindExInfoBasic, &opened->next_,
                                  FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (opened->items_) return opened;
  DWORD error = GetLastError();
  // The root of a drive without items has not even "." to tell of; the system's own words for a
  // file do not fit.
  if (const DWORD found = FindFolder(folder.Wide()); found == ERROR_DIRECTORY) {
    error = found;
  } else if ((error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES) &&
             found == ERROR_SUCCESS) {
    error = ERROR_SUCCESS;
  }
  status = SystemError(error);
  return status ? std::move(opened) : nullptr;
}

base::Status WindowsFolder::Read(const TakeEntry& take) {
  while (items_) {
    const bool goesOn = IsDots(next_.cFileName) || Hand(take);
    if (FindNextFileW(items_.Get(), &next_) == 0) {
      const DWORD error = GetLastError();
      items_ = FindHandle();
      if (error != ERROR_NO_MORE_FILES) return SystemError(error);
    }
    if (!goesOn) break;
  }
  return {};
}

bool WindowsFolder::Hand(const TakeEntry& take) {
  FolderEntry entry;
  NarrowInto(next_.cFileName, name_);
  entry.Name = name_;
  const ItemAttributes attributes = AttributesFrom(next_);
  entry.IsHidden = attributes.IsHidden;
  entry.IsSystem = attributes.IsSystem;
  entry.IsLink = IsLinkEntry(next_);
  entry.Kind = entry.IsLink ? ItemKind::Unknown : attributes.Kind;
  if (!entry.IsLink) entry.Attributes = &attributes;
  return take(entry);
}

DWORD WindowsFolder::PathOf(std::string_view name, std::wstring& path) const {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (name.find(syntax.Separator) != name.npos) return ERROR_INVALID_NAME;
  const SystemPath item(name.empty() ? path_ : syntax.Join(path_, name));
  path = item.Wide();
  return item.Error();
}

base::Status WindowsFolder::ReadAttributes(std::string_view name,
                                           ItemAttributes& attributes) const {
  std::wstring path;
  const DWORD error = PathOf(name, path);
  return error == ERROR_SUCCESS ? ReadItem(path, attributes) : SystemError(error);
}

base::Status WindowsFolder::ReadExtendedAttribute(std::string_view name,
                                                  ExtendedAttribute attribute,
                                                  std::string& text) const {
  text.clear();
  std::wstring path;
  if (const DWORD error = PathOf(name, path); error != ERROR_SUCCESS) return SystemError(error);
  if (!keepsStreams_) keepsStreams_ = platform::KeepsStreams(SystemPath(path_).Wide());
  return *keepsStreams_ ? ReadNote(path, attribute, text) : base::Status();
}

}  // namespace tarnwell::platform
