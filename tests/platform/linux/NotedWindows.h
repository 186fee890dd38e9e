// Dialogs and windows that note what they are asked, and answer what a test says.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/ItemWindows.h"

namespace tarnwell::platform {

struct NotedDialogs : Dialogs {
  bool Yes = true;
  std::string Told;

  bool AskYesNo(const std::string&, const std::string& text, bool usual) override {
    Told += text + (usual ? " Yes|" : "|");
    return Yes;
  }
  void ShowCritical(const std::string&, const std::string& text) override { Told += text + "|"; }
  std::optional<std::string> AskText(const std::string&, const std::string&,
                                     const std::string&) override {
    return {};
  }
  std::optional<base::Colour> AskColour(base::Colour) override { return {}; }
  std::optional<std::string> AskOpenFile(const FileQuestion&) override { return {}; }
  std::optional<std::string> AskSaveFile(const FileQuestion&) override { return {}; }
};

struct NotedWindows : ItemWindows {
  std::string Noted;
  std::vector<ApplicationChoice> Offered;
  std::optional<ChosenApplication> Choice;
  RunChoice Run = RunChoice::Cancel;

  void ShowProperties(const std::vector<std::string>& paths) override {
    for (const std::string& path : paths) Noted += "properties " + path + "|";
  }
  std::optional<ChosenApplication> ChooseApplication(
      const std::string& path, const std::string& type,
      const std::vector<ApplicationChoice>& applications) override {
    Noted += "choose " + path + " " + type + "|";
    Offered = applications;
    return Choice;
  }
  RunChoice AskRun(const RunQuestion& question) override {
    Noted += "run";
    for (const std::string& path : question.Programs) {
      Noted += " " + std::filesystem::path(path).filename().string();
    }
    if (!question.Command.empty()) Noted += " (" + question.Command + ")";
    Noted += " of " + std::to_string(question.Files) + (question.CanOpen ? ", or open|" : "|");
    return Run;
  }
  void OpenFolder(const std::string& path) override { Noted += "open " + path + "|"; }
};

}  // namespace tarnwell::platform
