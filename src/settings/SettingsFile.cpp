#include "settings/SettingsFile.h"

#include <exception>
#include <utility>

#include "base/Text.h"
#include "base/Value.h"
#include "settings/RecordReader.h"
#include "settings/SettingsContent.h"

namespace tarnwell::settings {

void SettingsFile::ReadSettingsFile(int scope, ReadMarkers& markers) {
  std::string content;
  if (!files_.ReadFile(path_, content)) return;
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

void SettingsFile::SaveSettings() const {
  // Nobody is left to tell; the old file stands when the new one cannot be written.
  files_.WriteFile(path_, SettingsContent(targets_.Space, loaded_));
}

}  // namespace tarnwell::settings
