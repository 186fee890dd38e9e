// The settings file: everything that the program remembers between runs, skins apart.
//
// Reads it at the start, keeps what it said of the panes, and writes it anew at the end. What a
// record means is the business of ApplySetting.
#pragma once

#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "settings/ApplySetting.h"
#include "settings/SettingRecord.h"

namespace tarnwell::settings {

// Found out while the file is read; never saved.
struct ReadMarkers {
  bool PositionFound = false;    // the file told the window's place
  bool FirstArrangement = true;  // true only without a settings file, or with an empty one
  bool FirstTips = true;         // the same; the first tip of the day comes first
};

class SettingsFile {
 public:
  SettingsFile(platform::FileSystem& files, std::string path, const SettingTargets& targets)
      : files_(files), path_(std::move(path)), targets_(targets) {}

  const std::string& Path() const { return path_; }

  // Forgets the loaded settings.
  void Clear() { loaded_.clear(); }
  // Applies every record of the file; with GlobalScope those that speak of the lists of panes are
  // also kept. A file that
  // cannot be read leaves everything as it is. Damaged records take effect as far as they can be
  // read.
  void ReadSettingsFile(int scope, ReadMarkers& markers);
  // Applies what the kept records say of the pane's lists.
  void ReplayPaneSettings(int pane) const;
  // Writes the file, in one step: a failure leaves the old file as it was, and is not told. Panes
  // that were not set up in this run keep the records that they had. A file that was there and
  // could not be read is not written over: it moves aside as <path>.unread, with a number behind
  // where that is taken; one that cannot move is left, and nothing is saved.
  void SaveSettings();

 private:
  bool MoveAside();

  platform::FileSystem& files_;
  std::string path_;
  SettingTargets targets_;
  std::vector<SettingRecord> loaded_;  // of panes, in file order
  bool isUnread_ = false;              // the file is there, and what it holds is not known
};

}  // namespace tarnwell::settings
