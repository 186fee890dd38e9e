#include "platform/win32/files/FarPath.h"

#include <algorithm>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

// "\\server\share" of the path.
std::string ShareOfNetworkPath(const std::string& path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  const std::size_t server = path.find(syntax.Separator, syntax.NetworkMark.size());
  if (server == path.npos) return path;
  return path.substr(0, path.find(syntax.Separator, server + 1));
}

// What the letter stands for among the system's devices, by their table: a drive of the network is
// a name of its redirector, "\Device\Mup\;LanmanRedirector\;Z:...", and one that stands for a
// folder is that folder, "\??\C:\folder" or "\??\UNC\server\share".
std::string DeviceOf(char letter) {
  const wchar_t drive[] = {static_cast<wchar_t>(static_cast<unsigned char>(letter)), L':', 0};
  std::wstring device(1024, L'\0');
  const DWORD length = QueryDosDeviceW(drive, device.data(), static_cast<DWORD>(device.size()));
  return length == 0 ? std::string() : Narrow(device.c_str());
}

}  // namespace

std::optional<std::string> NetworkShareOf(const std::string& path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (path.starts_with(syntax.NetworkMark)) {
    // "\\?\" and "\\.\" name what is here.
    const bool isDevice = path.starts_with(R"(\\?\)") || path.starts_with(R"(\\.\)");
    return isDevice ? std::nullopt : std::optional(ShareOfNetworkPath(path));
  }
  if (!syntax.IsWhole(path)) return {};
  std::string device = DeviceOf(path.front());
  constexpr std::string_view folderMark = R"(\??\)";
  for (int stands = 0; stands < 26 && device.starts_with(folderMark); ++stands) {
    device.erase(0, folderMark.size());
    if (device.starts_with(R"(UNC\)")) return path.substr(0, 3);
    device = DeviceOf(device.empty() ? ' ' : device.front());
  }
  const bool isShare = device.find(R"(\;)") != device.npos ||
                       device.starts_with(R"(\Device\LanmanRedirector)") ||
                       device.starts_with(R"(\Device\Mup)");
  return isShare ? std::optional(path.substr(0, 3)) : std::nullopt;
}

}  // namespace tarnwell::platform
