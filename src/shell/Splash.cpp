#include "shell/Splash.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/Text.h"
#include "shell/AboutTexts.h"

namespace tarnwell::shell {
namespace {

constexpr int EscapeKey = 27;
constexpr int ResetKey = 82;  // R
constexpr std::int32_t LoadingFrame = 12;
// In milliseconds; with a delay of 0 the timer would stand still.
constexpr int LeastInterval = 10;
// Of the animation in the form, in twips.
constexpr base::Twips ImagePlace = 360;

constexpr std::string_view AcknowledgementsText = "Acknowledgements and Disclaimer...";

}  // namespace

Splash::Splash(const base::Version& version, SplashFacts facts, const SplashTools& tools,
               SplashHooks& hooks)
    : Form("Splash"),
      Image1(1),
      version_(version),
      facts_(std::move(facts)),
      files_(tools.Files),
      dialogs_(tools.Dialogs),
      hooks_(hooks),
      animation_(tools.Files, tools.Dialogs, tools.Pump) {
  Image1[0].Left = Image1[0].Top = ImagePlace;
  txtCopyRight.Caption = CopyrightLine;
  txtCopyright2.Caption = "All rights reserved.";
  txtTrademark.Caption = TrademarkLine;
  lbweb.Caption = facts_.Site;
  Command1.Caption = "&Play Again";
  Command2.Caption = "&License...";
  Command3.Caption = "Li&braries...";
}

void Splash::Load() {
  ResetKeyPressed = false;
  BackColour = base::White;
  txtVersion.Caption = "Version " + version_.Text();
  lbweb.ForeColour = base::Rgb(50, 67, 149);
  Caption = SplashDone ? "About Tarnwell" : "Tarnwell";
  txtStatus.Caption = AcknowledgementsText;
  const std::array<forms::Control*, 5> ofAbout = {&cmdClosePane, &lbweb, &Command1, &Command2,
                                                  &Command3};
  for (forms::Control* const each : ofAbout) each->Visible = SplashDone;
  if (!SplashDone) {
    txtStatus.Caption = "initializing...";
    Refresh();
  }
  Text1.Text = facts_.AnimationPath;
  StartAnimation();
}

void Splash::Unload() {
  Timer1.Enabled = false;
  Image1.resize(1);
}

void Splash::StartAnimation() {
  Timer1.Enabled = false;
  if (animation_.LoadAniGif(Text1.Text, Image1)) {
    currentFrame_ = 0;
    ShowFrame(currentFrame_);
    Timer1.Enabled = true;
  } else {
    // There is nothing to wait for but the user's leave.
    cmdClosePane.Visible = true;
  }
  Touch();
}

void Splash::ShowFrame(std::int32_t frame) {
  GifImage& image = Image1[static_cast<std::size_t>(frame)];
  image.Visible = true;
  Timer1.Interval = std::max(image.Tag, LeastInterval);
}

void Splash::Tick() {
  if (currentFrame_ >= animation_.GifLastFrame) {
    SplashAnimating = false;
    currentFrame_ = 0;
    for (GifImage& each : Image1) each.Visible = false;
    ShowFrame(currentFrame_);
    Refresh();
    if (!SplashDone) hooks_.LoadMaster();
  } else {
    SplashAnimating = true;
    Image1[static_cast<std::size_t>(currentFrame_)].Visible = false;
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
  files_.RemoveFile(facts_.SettingsPath);
}

void Splash::KeyDown(int keyCode) {
  const bool isStarting = !SplashDone && Timer1.Enabled;
  if (keyCode == ResetKey && !SplashDone) ResetKeyPressed = true;
  if (keyCode != EscapeKey) return;
  // The lists are read for the first time while the splash is up, and a disk may be slow.
  if (isStarting) {
    hooks_.StopReading();
  } else {
    Close();
  }
}

void Splash::Close() {
  if (SplashDone) {
    hooks_.UnloadSplash();
  } else {
    hooks_.RequestQuit();
  }
}

void Splash::txtStatusClick() {
  if (base::AsciiUpper(txtStatus.Caption) == "ACKNOWLEDGEMENTS AND DISCLAIMER...") {
    hooks_.OpenAcknowledgements();
  }
}

void Splash::ShowStatus(const std::string& text) {
  txtStatus.Caption = text;
  Refresh();
}

}  // namespace tarnwell::shell
