#include "platform/win32/files/FarPath.h"

#include <algorithm>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

// "server\share\folder".
NetworkShare ShareIn(std::string_view path) {
  const char separator = base::PathSyntax::Windows().Separator;
  const std::size_t server = std::min(path.find(separator), path.size());
  const std::size_t share = path.find(separator, server + 1);
  return {std::string(base::PathSyntax::Windows().NetworkMark).append(path.substr(0, share)),
          std::string(path.substr(0, server))};
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

std::optional<NetworkShare> NetworkShareOf(const std::string& path) {
  constexpr std::string_view folderMark = R"(\??\)", networkMark = R"(UNC\)", driveMark = R"(\;)",
                             longNetworkMark = R"(\\?\UNC\)";
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  if (path.starts_with(longNetworkMark)) return ShareIn(path.substr(longNetworkMark.size()));
  if (path.starts_with(syntax.NetworkMark)) {
    // "\\?\" and "\\.\" name what is here.
    const std::string_view rest = std::string_view(path).substr(syntax.NetworkMark.size());
    return rest.starts_with('?') || rest.starts_with('.') ? std::nullopt
                                                          : std::optional(ShareIn(rest));
  }
  if (!syntax.IsWhole(path)) return {};
  std::string device = DeviceOf(path.front());
  for (int stands = 0; stands < 26 && device.starts_with(folderMark); ++stands) {
    device.erase(0, folderMark.size());
    if (device.starts_with(networkMark)) return ShareIn(device.substr(networkMark.size()));
    device = device.empty() ? std::string() : DeviceOf(device.front());
  }
  if (const std::size_t drive = device.rfind(driveMark); drive != device.npos) {
    const std::size_t server = device.find(syntax.Separator, drive + driveMark.size());
    if (server != device.npos) return ShareIn(std::string_view(device).substr(server + 1));
  } else if (!device.starts_with(R"(\Device\LanmanRedirector)") &&
             !device.starts_with(R"(\Device\Mup)")) {
    return {};
  }
  return NetworkShare{path.substr(0, 3), path.substr(0, 2)};
}

}  // namespace tarnwell::platform
