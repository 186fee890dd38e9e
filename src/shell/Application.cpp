#include "shell/Application.h"

#include <exception>
#include <vector>

namespace tarnwell::shell {

Application::Application(const Services& services, const base::Version& version)
    : services_(services),
      splash_(version, services_.System.ProgramFolder(), services_.Files, services_.Dialogs, *this),
      master_(services_, version, splash_) {}

void Application::Start() {
  services_.Host.Show(splash_, nullptr);
}

void Application::RequestQuit() {
  quitRequested_ = true;
  // A question that is open loses its window: it counts as not answered, and so do those to come.
  master_.Messages().FallSilent();
  if (loading_) {
    const std::vector<forms::Form*> open = services_.Host.OpenForms();
    for (forms::Form* form : open) {
      if (form != &splash_ && form != &master_.Form()) services_.Host.Unload(*form);
    }
    return;
  }
  if (splash_.LoadFinished) {
    services_.Host.Unload(master_.Form());
  } else {
    EndProcess();
  }
}

void Application::LoadMaster() {
  loading_ = true;
  try {
    services_.Host.Open(master_.Form());
    master_.Load();
  } catch (const std::exception&) {
    splash_.StartFailed = true;  // without a window there is nobody to tell
  }
  loading_ = false;
}

void Application::ShowMaster() {
  if (quitRequested_) {
    services_.Host.Unload(master_.Form());
    return;
  }
  services_.Host.Show(master_.Form(), nullptr);
}

void Application::EndProcess() {
  master_.UnloadAllForms();
  services_.Host.Unload(master_.Form());
  services_.Host.Unload(splash_);
}

void Application::StopReading() {
  master_.Space().ForEachList([](lister::ListerControl& list) { list.CancelRequested = true; });
}

void Application::ShowTip() {
  if (!quitRequested_) master_.ShowTipAtStart();
}

void Application::UnloadSplash() {
  services_.Host.Unload(splash_);
}

}  // namespace tarnwell::shell
