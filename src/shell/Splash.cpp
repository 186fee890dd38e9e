#include "shell/Splash.h"

#include <cstddef>
#include <utility>

#include "shell/ProgramFiles.h"

namespace tarnwell::shell {
namespace {

constexpr int EscapeKey = 27;
constexpr int ResetKey = 82;  // R
constexpr std::size_t LoadingFrame = 12;

// The cycle that plays as long as the program has no picture to show.
constexpr std::size_t PlainFrameCount = 16;
constexpr int PlainFrameDelay = 20;  // milliseconds

}  // namespace

Splash::Splash(const base::Version& version, std::string programFolder, platform::FileSystem& files,
               platform::Dialogs& dialogs, SplashHooks& hooks)
    : Form("Splash"),
      version_(version),
      programFolder_(std::move(programFolder)),
      files_(files),
      dialogs_(dialogs),
      hooks_(hooks) {
  Caption = "Tarnwell";
}

void Splash::Load() {
  ResetKeyPressed = false;
  BackColour = base::White;
  txtVersion.Caption = "Version " + version_.Text();
  lbweb.ForeColour = base::Rgb(50, 67, 149);
  cmdClosePane.Visible = SplashDone;
  if (!SplashDone) {
    txtStatus.Caption = "initializing...";
    Refresh();
  }
  Text1.Text = files_.Syntax().Join(programFolder_, AnimationName);
  StartAnimation();
}

void Splash::StartAnimation() {
  Timer1.Enabled = false;
  Image1.assign(PlainFrameCount, Frame{.Delay = PlainFrameDelay});
  currentFrame_ = 0;
  Image1[0].Visible = true;
  Timer1.Interval = Image1[0].Delay;
  Timer1.Enabled = true;
  Touch();
}

void Splash::ShowFrame(std::size_t frame) {
  for (Frame& each : Image1) each.Visible = false;
  Image1[frame].Visible = true;
  Timer1.Interval = Image1[frame].Delay;
}

void Splash::Tick() {
  if (currentFrame_ + 1 >= Image1.size()) {
    SplashAnimating = false;
    currentFrame_ = 0;
    ShowFrame(currentFrame_);
    Refresh();
    if (!SplashDone) hooks_.LoadMaster();
  } else {
    SplashAnimating = true;
    ++currentFrame_;
    ShowFrame(currentFrame_);
    Touch();
    if (!SplashDone) {
      if (currentFrame_ == LoadingFrame) ShowStatus("loading main window...");
      if (ResetKeyPressed) AskReset();
    }
  }
  if (!SplashDone && LoadFinished) {
    hooks_.ShowMaster();
    hooks_.UnloadSplash();
    SplashDone = true;
    hooks_.ShowTip();
    hooks_.CheckForUpdate();  // last, since it lets messages through
  }
  if (StartFailed) hooks_.EndProcess();
}

void Splash::AskReset() {
  ResetKeyPressed = false;
  if (!dialogs_.AskYesNo("Tarnwell", "Do you want to reset Tarnwell?")) return;
  // A file that is not there, or will not go, is no reason to stop.
  files_.RemoveFile(files_.Syntax().Join(programFolder_, SettingsName));
}

void Splash::KeyDown(int keyCode) {
  if (SplashDone) return;
  if (keyCode == ResetKey) ResetKeyPressed = true;
  // The lists are read for the first time while the splash is up, and a disk may be slow.
  if (keyCode == EscapeKey) hooks_.StopReading();
}

void Splash::ShowStatus(const std::string& text) {
  txtStatus.Caption = text;
  Refresh();
}

}  // namespace tarnwell::shell
