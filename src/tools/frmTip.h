// The tip of the day: shows one line of the tips file at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/UserSettings.h"
#include "settings/SettingsFile.h"
#include "tools/TipLines.h"

namespace tarnwell::tools {

inline constexpr char TipsName[] = "TIPOFDAY.TXT";

// What the tips work with. `OpenHelp` shows the help.
struct TipServices {
  forms::FormHost& Host;
  platform::FileSystem& Files;
  const platform::Clock& Clock;
  platform::UserSettings& Settings;
  forms::Messenger& Messages;
  const settings::ReadMarkers& Markers;
  std::function<void()> OpenHelp;
};

class frmTip : public forms::Form {
 public:
  // `programFolder` holds the tips file.
  frmTip(TipServices services, const std::string& programFolder);

  bool ForceShow = false;  // set by who opens the form on demand; the form clears it as it closes

  forms::Picture Picture1;
  forms::Label Label1;
  forms::TextBox lblTipText;
  forms::CheckBox chkLoadTipsAtStartup;
  forms::Button cmdNextTip;
  forms::Button cmdOK;

  // Opens the form over the middle of the owner and shows it, not modally. Nothing comes of it
  // where neither ForceShow nor the switch asks for tips.
  void ShowOver(forms::Form& owner);

  void Load() override;
  void Unload() override;

  // False if the path is empty or no file is there that can be read. Else the tips are the lines
  // of the file, empty ones too, and one of them is shown: the first of all in the program's first
  // run, later the one behind a tip drawn by lot.
  bool LoadTips(const std::string& path);
  // To the tip behind the current one; behind the last comes the first.
  void NextTip();
  void DisplayCurrentTip();

  // --- What the user does.

  void UserKeyDown(int keyCode, int shift);
  // The setting is kept at once. Where that cannot be, the user is told, and the box shows what is.
  void chkLoadTipsAtStartupClick(bool on);
  void cmdNextTipClick() { NextTip(); }
  // By the button, the window's frame, or Escape.
  void cmdOKClick() { services_.Host.Unload(*this); }

 private:
  bool IsOnAtStartup() const;

  TipServices services_;
  std::string path_;
  std::string unread_;  // why the file could not be read; empty where it could
  TipLines tips_;
  int currentTip_ = 0;  // counts from 1
  std::mt19937_64 random_;
};

}  // namespace tarnwell::tools
