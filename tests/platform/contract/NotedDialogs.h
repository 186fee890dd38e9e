// What the system's dialogs were to show.
#pragma once

#include "fakes/FakeForms.h"

namespace tarnwell::platform {

struct NotedDialogs : fakes::FakeDialogs {
  bool Yes = true;
  std::string Told;

  bool AskYesNo(const std::string&, const std::string& text, bool usual) override {
    Told += text + (usual ? " Yes|" : "|");
    return Yes;
  }
  void ShowCritical(const std::string&, const std::string& text) override { Told += text + "|"; }
};

}  // namespace tarnwell::platform
