// The services of the system, by the names of the tests that every adapter passes.
#pragma once

#include "TempFolder.h"
#include "platform/linux/system/LinuxClock.h"
#include "platform/linux/system/LinuxCollation.h"
#include "platform/linux/system/LinuxDrives.h"
#include "platform/linux/system/LinuxLogFile.h"
#include "platform/linux/system/LinuxSystemInfo.h"
#include "platform/linux/system/LinuxUserSettings.h"

namespace tarnwell::platform {

using TestedClock = LinuxClock;
using TestedLogFile = LinuxLogFile;
using TestedSystemInfo = LinuxSystemInfo;

// A program whose own folder holds none of the user's files.
struct InstalledProgram {
  const TempFolder Root;
  const std::string DataFolder = Root / "share/tarnwell",
                    UserFolder = Root / "home/.local/share/tarnwell";
  ProgramPlaces Places{.ExecutableFolder = Root / "bin",
                       .TarnwellHome = {},
                       .DataHome = {},
                       .HomeFolder = Root / "home"};
};

class TestedDrives : public LinuxDrives {
 public:
  TestedDrives() : LinuxDrives(mounts_) {}

 private:
  DesktopMounts mounts_;
};

inline LocalTime InCentralEurope(std::int64_t moment) {
  setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1);
  tzset();
  const LocalTime time = LinuxClock().ToLocal(moment);
  unsetenv("TZ");
  tzset();
  return time;
}

// Made here from the system's sources: few are made where it is installed.
class TestedLanguages {
  static std::string Make(const TempFolder& locales, const std::string& language) {
    const std::string made = locales / language;
    EXPECT_EQ(std::system(("localedef --no-archive -f UTF-8 -i " + language + " " + made).c_str()),
              0);
    setenv("LOCPATH", locales.Path().c_str(), 1);
    return language;
  }
  const TempFolder locales_;

 public:
  ~TestedLanguages() { unsetenv("LOCPATH"); }

  const LinuxCollation English{Make(locales_, "en_US").c_str()};
  const LinuxCollation Danish{Make(locales_, "da_DK").c_str()};
};

// Settings that are kept nowhere else, until this ends.
class TestedSettings {
 public:
  std::unique_ptr<UserSettings> Open() const {
    return std::make_unique<LinuxUserSettings>(root_ / "config/tarnwell/tarnwell.conf");
  }

 private:
  const TempFolder root_;
};

}  // namespace tarnwell::platform
