#include "platform/win32/files/LinkTarget.h"

#include <winioctl.h>

#include <array>
#include <cstdint>
#include <cstring>

#include "base/PathSyntax.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

// How names of the system's kernel begin.
constexpr std::string_view KernelMark = R"(\??\)", KernelNetworkMark = R"(\??\UNC\)";
constexpr std::string_view VolumeMark = R"(\\?\Volume{)";

constexpr int LinkLimit = 63;  // the system's own: "Symbolic Link Programming Considerations"

// What every reparse point begins with, and behind it what both kinds of links do.
struct ReparseHead {
  std::uint32_t Tag;
  std::uint16_t Length;
  std::uint16_t Reserved;
};
struct LinkNames {
  std::uint16_t TargetStart;  // both in bytes, from the end of the head of the kind
  std::uint16_t TargetLength;
  std::uint16_t ShownStart;
  std::uint16_t ShownLength;
};
constexpr std::size_t SymbolicLinkFlags = 4;  // bytes, before the names

std::string TextAt(std::string_view names, std::size_t start, std::size_t length) {
  if (start + length > names.size()) return "";
  std::wstring text(length / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), names.data() + start, text.size() * sizeof(wchar_t));
  return Narrow(text);
}

// As people write it.
std::string WithoutKernelMark(std::string target) {
  if (target.starts_with(KernelNetworkMark))
    return R"(\\)" + target.substr(KernelNetworkMark.size());
  if (!target.starts_with(KernelMark)) return target;
  target = target.substr(KernelMark.size());
  return base::PathSyntax::Windows().IsWhole(target) ? target : R"(\\?\)" + target;
}

}  // namespace

std::string LinkTargetFrom(std::string_view bytes) {
  ReparseHead head;
  LinkNames names;
  if (bytes.size() < sizeof head + sizeof names) return "";
  std::memcpy(&head, bytes.data(), sizeof head);
  std::memcpy(&names, bytes.data() + sizeof head, sizeof names);
  if (!IsLinkTag(FILE_ATTRIBUTE_REPARSE_POINT, head.Tag)) return "";
  std::size_t start = sizeof head + sizeof names;
  if (head.Tag == IO_REPARSE_TAG_SYMLINK) start += SymbolicLinkFlags;
  if (start > bytes.size()) return "";
  bytes.remove_prefix(start);
  return names.ShownLength != 0
             ? TextAt(bytes, names.ShownStart, names.ShownLength)
             : WithoutKernelMark(TextAt(bytes, names.TargetStart, names.TargetLength));
}

std::string ReadLinkTarget(const std::wstring& path) {
  const Handle link = OpenItem(path, false);
  alignas(std::uint64_t) std::array<char, MAXIMUM_REPARSE_DATA_BUFFER_SIZE> buffer;
  DWORD length = 0;
  if (!link || DeviceIoControl(link.Get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, buffer.data(),
                               buffer.size(), &length, nullptr) == 0) {
    return "";
  }
  return LinkTargetFrom({buffer.data(), length});
}

bool IsVolumeTarget(std::string_view target) {
  return target.starts_with(VolumeMark);
}

std::string LinkedPath(const std::string& link, const std::string& target) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (syntax.IsWhole(target)) return target;
  if (!target.starts_with(syntax.Separator)) return syntax.Join(syntax.ParentOf(link), target);
  // From the root of the link's volume, which is a share or a drive.
  std::size_t end = link.find(syntax.Separator, syntax.FindNetworkStart(link) == 0 ? 2 : 0);
  if (syntax.FindNetworkStart(link) == 0) end = link.find(syntax.Separator, end + 1);
  return link.substr(0, end) + target;
}

DWORD FollowLinks(std::string& path) {
  for (int links = 0; links <= LinkLimit; ++links) {
    const SystemPath reached(path);
    if (reached.Error() != ERROR_SUCCESS) return reached.Error();
    WIN32_FIND_DATAW found;
    if (LookAtItem(reached.Wide(), found) != ERROR_SUCCESS || !IsLinkEntry(found)) {
      return ERROR_SUCCESS;
    }
    const std::string target = ReadLinkTarget(reached.Wide());
    if (target.empty()) return ERROR_INVALID_REPARSE_DATA;
    path = LinkedPath(path, target);
  }
  return ERROR_CANT_RESOLVE_FILENAME;
}

}  // namespace tarnwell::platform
