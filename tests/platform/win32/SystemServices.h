// The services of the system, by the names of the tests that every adapter passes.
#pragma once

#include "TempFolder.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/system/WindowsClock.h"
#include "platform/win32/system/WindowsCollation.h"
#include "platform/win32/system/WindowsDrives.h"
#include "platform/win32/system/WindowsLogFile.h"
#include "platform/win32/system/WindowsSystemInfo.h"
#include "platform/win32/system/WindowsUserSettings.h"

namespace tarnwell::platform {

using TestedClock = WindowsClock;
using TestedLogFile = WindowsLogFile;
using TestedDrives = WindowsDrives;

inline LocalTime InCentralEurope(std::int64_t moment) {
  return WindowsClock("W. Europe Standard Time").ToLocal(moment);
}

struct TestedLanguages {
  const WindowsCollation English{"en-US"}, Danish{"da-DK"};
};

struct OnDisk {
  WindowsFileSystem Disk;
};
class TestedSystemInfo : OnDisk, public WindowsSystemInfo {
 public:
  explicit TestedSystemInfo(const ProgramPlaces& places) : WindowsSystemInfo(places, Disk) {}
};

// A program whose own folder holds none of the user's files.
struct InstalledProgram {
  const TempFolder Root;
  const std::string DataFolder = Root / "program/data", UserFolder = Root / "local/Tarnwell";
  ProgramPlaces Places{
      .ExecutableFolder = Root / "program", .TarnwellHome = {}, .LocalAppData = Root / "local"};
};

// Settings that are kept nowhere else, until this ends.
class TestedSettings {
 public:
  ~TestedSettings() { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(key_).c_str()); }
  std::unique_ptr<UserSettings> Open() const { return std::make_unique<WindowsUserSettings>(key_); }

 private:
  const std::string key_ = R"(Software\TarnwellTest)" + std::to_string(GetCurrentProcessId());
};

}  // namespace tarnwell::platform
