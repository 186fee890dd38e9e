#include "platform/win32/system/WindowsDrives.h"

#include "platform/win32/api/Windows.h"
// Behind the system's own, which they need.
#define IS_32  // else dbt.h wants a macro "far"
#include <dbt.h>
#include <knownfolders.h>
#include <winioctl.h>
#include <winnetwk.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/KnownFolder.h"
#include "platform/win32/api/PostToLoop.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

constexpr int LetterCount = 26;
constexpr char DefaultLetter = 'C';

std::string KindOfDrive(UINT type, char letter) {
  if (type == DRIVE_REMOVABLE && letter < DefaultLetter) return "Floppy Disk";
  constexpr std::array<std::pair<UINT, const char*>, 4> kinds = {
      {{DRIVE_REMOVABLE, "Removable Disk"},
       {DRIVE_REMOTE, "Network Drive"},
       {DRIVE_CDROM, "Disc Drive"},
       {DRIVE_RAMDISK, "RAM Disk"}}};
  for (const auto& [kind, name] : kinds) {
    if (kind == type) return name;
  }
  return "Local Disk";
}

// Whether there is something in the drive, without having it run up.
bool HasMedium(wchar_t letter) {
  const std::wstring device = std::wstring(LR"(\\.\)") + letter + L":";
  const Handle drive(CreateFileW(device.c_str(), FILE_READ_ATTRIBUTES,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                 nullptr));
  DWORD got = 0;
  return drive && DeviceIoControl(drive.Get(), IOCTL_STORAGE_CHECK_VERIFY2, nullptr, 0, nullptr, 0,
                                  &got, nullptr) != FALSE;
}

// "share on server", from what the system keeps of the connection.
std::string ShareName(wchar_t letter) {
  const wchar_t drive[] = {letter, L':', L'\0'};
  std::array<wchar_t, 1024> remote{};
  auto length = static_cast<DWORD>(remote.size());
  const DWORD error = WNetGetConnectionW(drive, remote.data(), &length);
  // One that is kept, and not connected at the moment, is told as well.
  if (error != NO_ERROR && error != ERROR_CONNECTION_UNAVAIL) return {};
  const std::string path = Narrow(remote.data());
  const base::PathSyntax& rules = base::PathSyntax::Windows();
  if (!path.starts_with(rules.NetworkMark)) return path;
  const std::string server = rules.ParentOf(path);
  if (server.size() <= rules.NetworkMark.size()) return path;
  return std::string(rules.LastComponent(path)) + " on " + server.substr(rules.NetworkMark.size());
}

std::string VolumeName(wchar_t letter, UINT type) {
  if (type == DRIVE_REMOTE) return ShareName(letter);
  const bool mayBeEmpty = type == DRIVE_REMOVABLE || type == DRIVE_CDROM;
  if (mayBeEmpty && (letter < DefaultLetter || !HasMedium(letter))) return {};
  const wchar_t root[] = {letter, L':', L'\\', L'\0'};
  std::array<wchar_t, MAX_PATH + 1> name{};
  if (GetVolumeInformationW(root, name.data(), static_cast<DWORD>(name.size()), nullptr, nullptr,
                            nullptr, nullptr, 0) == FALSE) {
    return {};
  }
  return Narrow(name.data());
}

Drive DriveBy(char letter) {
  const auto wide = static_cast<wchar_t>(letter);
  const wchar_t root[] = {wide, L':', L'\\', L'\0'};
  const UINT type = GetDriveTypeW(root);
  std::string name = VolumeName(wide, type);
  if (name.empty()) name = KindOfDrive(type, letter);
  return {std::string(1, letter), name + " (" + letter + ":)"};
}

bool TellsOfVolume(WPARAM event, LPARAM data) {
  const auto* const header = reinterpret_cast<const DEV_BROADCAST_HDR*>(data);
  return (event == DBT_DEVICEARRIVAL || event == DBT_DEVICEREMOVECOMPLETE) && header != nullptr &&
         header->dbch_devicetype == DBT_DEVTYP_VOLUME;
}

}  // namespace

std::vector<Drive> WindowsDrives::List() const {
  const DWORD present = GetLogicalDrives() | (1U << (DefaultLetter - 'A'));
  std::vector<Drive> drives;
  for (int at = 0; at < LetterCount; ++at) {
    if ((present >> at & 1U) != 0) drives.push_back(DriveBy(static_cast<char>('A' + at)));
  }
  return drives;
}

std::string WindowsDrives::HomeFolder() const {
  std::string home = FindKnownFolder(FOLDERID_Profile);
  const DWORD attributes = GetFileAttributesW(LongPath(home).c_str());
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return isFolder ? home : std::string();
}

std::string WindowsDrives::DriveOf(const std::string& path) const {
  const base::PathSyntax& rules = base::PathSyntax::Windows();
  if (!rules.IsWhole(path)) return {};
  if (!path.starts_with(rules.NetworkMark)) {
    const char letter = path.front();
    return {letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter};
  }
  const std::size_t share = path.find(rules.Separator, rules.NetworkMark.size()) + 1;
  if (share == 0 || share == path.size()) return {};
  return path.substr(0, path.find(rules.Separator, share));
}

// Told from the loop, since messages of the system also come in the midst of other calls.
void WindowsDrives::OnChange(std::function<void()> changed) {
  window_.reset();
  if (!changed) return;
  const auto kept = std::make_shared<std::function<void()>>(std::move(changed));
  window_ = std::make_unique<HiddenWindow>(
      L"TarnwellDrives", [kept](UINT message, WPARAM event, LPARAM data) -> std::optional<LRESULT> {
        if (message == WM_DEVICECHANGE && TellsOfVolume(event, data)) {
          PostToLoop([told = std::weak_ptr<std::function<void()>>(kept)] {
            if (const auto call = told.lock()) (*call)();
          });
        }
        return {};
      });
}

}  // namespace tarnwell::platform
