// The form in which the program begins. Plays one cycle of its animation, then loads the main form
// inside one tick of its timer and hands over to it. After that it is only the About box.
#pragma once

#include <string>
#include <vector>

#include "base/Version.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/MessagePump.h"
#include "shell/AnimatedGif.h"

namespace tarnwell::shell {

// What the splash asks of the program. None of these throws.
class SplashHooks {
 public:
  virtual ~SplashHooks() = default;
  virtual void LoadMaster() = 0;  // runs all stages; sets LoadFinished or StartFailed
  virtual void ShowMaster() = 0;
  virtual void EndProcess() = 0;  // takes every form away and ends the program
  virtual void UnloadSplash() = 0;
  virtual void ShowTip() = 0;         // of the day, behind the hand-over
  virtual void CheckForUpdate() = 0;  // quietly, once the main form has taken over
  virtual void StopReading() = 0;     // the lists give up what they read
  virtual void RequestQuit() = 0;     // ends the program as soon as it can
  // Of the About box.
  virtual void OpenWebSite() = 0;
  virtual void ShowLicense() = 0;
  virtual void ShowLibraries() = 0;
  virtual void OpenAcknowledgements() = 0;
};

struct SplashTools {
  platform::FileSystem& Files;
  platform::Dialogs& Dialogs;
  platform::MessagePump& Pump;
};

// Where the splash finds what it shows and what it takes away.
struct SplashFacts {
  std::string SettingsPath;
  std::string AnimationPath;
  std::string Site;  // address of the program's site
};

class Splash : public forms::Form {
 public:
  Splash(const base::Version& version, SplashFacts facts, const SplashTools& tools,
         SplashHooks& hooks);

  struct Timer {
    bool Enabled = false;
    int Interval = 0;  // milliseconds
  };

  Timer Timer1;
  std::vector<GifImage> Image1;  // one element for each frame; there is always one
  forms::Label txtVersion;
  forms::Label txtCopyRight;
  forms::Label txtCopyright2;
  forms::Label txtTrademark;
  forms::Label lbweb;
  forms::Label txtStatus;
  forms::TextBox Text1;  // path of the animation; never shown
  forms::Picture cmdClosePane;
  forms::Button Command1;  // these three are of the About box
  forms::Button Command2;
  forms::Button Command3;

  bool SplashDone = false;       // the hand-over is behind us
  bool ResetKeyPressed = false;  // R went down; asked about at the next tick
  bool SplashAnimating = false;
  bool LoadFinished = false;  // set by the main form as the last act of a good load
  bool StartFailed = false;   // set by the main form when a stage failed

  // Writes the start-up status line and shows it at once.
  void ShowStatus(const std::string& text);

  void Load() override;
  void Unload() override;
  // One tick of Timer1.
  void Tick();

  // --- What the user does.

  void KeyDown(int keyCode);
  // By the window's frame. Ends the program that has not come up yet.
  void Close();
  void cmdClosePaneClick() { Close(); }
  void Command1Click() { StartAnimation(); }
  void Command2Click() { hooks_.ShowLicense(); }
  void Command3Click() { hooks_.ShowLibraries(); }
  void lbwebClick() { hooks_.OpenWebSite(); }
  void txtStatusClick();

 private:
  void StartAnimation();
  void ShowFrame(std::int32_t frame);
  void AskReset();

  base::Version version_;
  SplashFacts facts_;
  platform::FileSystem& files_;
  platform::Dialogs& dialogs_;
  SplashHooks& hooks_;
  AnimatedGif animation_;
  std::int32_t currentFrame_ = 0;
};

}  // namespace tarnwell::shell
