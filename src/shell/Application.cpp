#include "shell/Application.h"

#include <exception>
#include <vector>

#include "shell/AboutTexts.h"
#include "shell/ProgramFiles.h"

namespace tarnwell::shell {
namespace {

SplashFacts FactsOf(const Services& services) {
  const base::PathSyntax& syntax = services.Files.Syntax();
  return {.SettingsPath = syntax.Join(services.System.ProgramFolder(), SettingsName),
          .AnimationPath = syntax.Join(services.System.FolderOf(AnimationName), AnimationName),
          .Site = services.Site};
}

}  // namespace

Application::Application(const Services& services, const base::Version& version)
    : services_(services),
      splash_(version, FactsOf(services_), {services_.Files, services_.Dialogs, services_.Pump},
              *this),
      acknowledgements_(services_.Host, services_.Libraries),
      master_(services_, version, splash_) {}

void Application::Start() {
  if (!quitRequested_) services_.Host.Show(splash_, nullptr);
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

void Application::CheckForUpdate() {
  if (!quitRequested_) master_.CheckForUpdate(false);
}

void Application::UnloadSplash() {
  services_.Host.Unload(splash_);
}

void Application::ShowLicense() {
  master_.Messages().Message(std::string(License) + "\r\n\r\n" + std::string(Disclaimer),
                             forms::MessageKind::Ok);
}

void Application::ShowLibraries() {
  master_.Messages().Message(
      "Tarnwell is built on these libraries:\r\n\r\n" + ListLibraries(services_.Libraries),
      forms::MessageKind::Ok);
}

void Application::OpenAcknowledgements() {
  services_.Host.Open(acknowledgements_);
  acknowledgements_.CentreOn(splash_);
  services_.Host.ShowModal(acknowledgements_, &splash_);
}

}  // namespace tarnwell::shell
