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
};

class Splash : public forms::Form {
 public:
  // `programFolder` holds the program's own files.
  Splash(const base::Version& version, std::string programFolder, platform::FileSystem& files,
         platform::Dialogs& dialogs, SplashHooks& hooks);

  struct Timer {
    bool Enabled = false;
    int Interval = 0;  // milliseconds
  };
  struct Frame {
    int Delay = 0;  // milliseconds
    bool Visible = false;
  };

  Timer Timer1;
  std::vector<Frame> Image1;  // one element for each frame, all at the same place
  forms::Label txtVersion;
  forms::Label txtStatus;
  forms::Label lbweb;
  forms::TextBox Text1;  // path of the animation; never shown
  forms::Picture cmdClosePane;

  bool SplashDone = false;       // the hand-over is behind us
  bool ResetKeyPressed = false;  // R went down; asked about at the next tick
  bool SplashAnimating = false;
  bool LoadFinished = false;  // set by the main form as the last act of a good load
  bool StartFailed = false;   // set by the main form when a stage failed

  // Writes the start-up status line and shows it at once.
  void ShowStatus(const std::string& text);

  void Load() override;
  // One tick of Timer1.
  void Tick();
  void KeyDown(int keyCode);

 private:
  void StartAnimation();
  void ShowFrame(std::size_t frame);
  void AskReset();

  base::Version version_;
  std::string programFolder_;
  platform::FileSystem& files_;
  platform::Dialogs& dialogs_;
  SplashHooks& hooks_;
  std::size_t currentFrame_ = 0;
};

}  // namespace tarnwell::shell
