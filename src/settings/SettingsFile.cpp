#include "settings/SettingsFile.h"

#include <exception>
#include <system_error>
#include <utility>

#include "base/Text.h"
#include "base/Value.h"
#include "settings/RecordReader.h"
#include "settings/SettingsContent.h"

namespace tarnwell::settings {
namespace {

constexpr int MostUnread = 100;

bool IsMissing(const base::Status& status) {
  return std::error_code(status.Code, std::system_category()) ==
         std::errc::no_such_file_or_directory;
}

}  // namespace

void SettingsFile::ReadSettingsFile(int scope, ReadMarkers& markers) {
  std::string content;
  const base::Status status = files_.ReadFile(path_, content);
  isUnread_ = !status && !IsMissing(status);
  if (!status) return;
  RecordReader reader(content);
  SettingRecord record;
  while (reader.Read(record)) {
    markers.FirstArrangement = false;
    markers.FirstTips = false;
    if (record.Key == "ProgramPosition") markers.PositionFound = true;
    if (!base::HoldsNothing(record.Fields[0])) {
      try {
        ApplySetting(targets_, record, scope);
      } catch (const std::exception&) {
        // The fields before the bad one have taken effect; the next record goes on.
      }
    }
    // Only what speaks of a pane's lists is ever asked for again, and a damaged file may hold
    // millions of other records.
    if (scope == GlobalScope && IsPaneKey(base::AsciiUpper(record.Key))) {
      loaded_.push_back(std::move(record));
    }
  }
}

void SettingsFile::ReplayPaneSettings(int pane) const {
  for (const SettingRecord& record : loaded_) {
    try {
      ApplySetting(targets_, record, pane);
    } catch (const std::exception&) {
      // As when the file was read: a bad record ends, the next goes on.
    }
  }
}

bool SettingsFile::MoveAside() {
  const std::string aside = path_ + ".unread";
  for (int number = 1; number <= MostUnread; ++number) {
    const std::string free = number == 1 ? aside : aside + std::to_string(number);
    if (!files_.Exists(free)) return static_cast<bool>(files_.Rename(path_, free));
  }
  return false;
}

void SettingsFile::SaveSettings() {
  if (isUnread_ && files_.Exists(path_) && !MoveAside()) return;
  isUnread_ = false;
  // Nobody is left to tell; the old file stands when the new one cannot be written.
  files_.WriteFile(path_, SettingsContent(targets_.Space, loaded_));
}

}  // namespace tarnwell::settings
