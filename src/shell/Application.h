// The whole program behind the platform: the splash, the main form, and the hand-over between them.
#pragma once

#include "shell/Master.h"
#include "shell/Services.h"
#include "shell/Splash.h"
#include "shell/frmAcknow.h"

namespace tarnwell::shell {

class Application : private SplashHooks {
 public:
  Application(const Services& services, const base::Version& version);

  Splash& StartForm() { return splash_; }
  Master& MainObject() { return master_; }

  // Shows the splash; everything else follows from its timer.
  void Start();
  // Ends the program from wherever it is, as cleanly as if the user had closed the window: a loaded
  // program saves its settings and takes the run marker away. During the load it ends right after.
  void RequestQuit() override;

 private:
  void LoadMaster() override;
  void ShowMaster() override;
  void EndProcess() override;
  void UnloadSplash() override;
  void CheckForUpdate() override;
  void StopReading() override;
  void ShowTip() override;
  void OpenWebSite() override { master_.MenuClick("mnuWebsite"); }
  void ShowLicense() override;
  void ShowLibraries() override;
  void OpenAcknowledgements() override;

  Services services_;
  Splash splash_;
  frmAcknow acknowledgements_;
  Master master_;
  bool loading_ = false;
  bool quitRequested_ = false;
};

}  // namespace tarnwell::shell
