#include "platform/linux/menu/OpenItems.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/OpenQuestion.h"
#include "platform/linux/menu/FarOpening.h"
#include "platform/linux/menu/ProgramFiles.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

struct Item {
  std::string Path;
  Opener By;
};

struct OpenedTogether {
  GAppInfo* Application;
  std::vector<std::string> Paths;
};

bool StartsUnasked(const Item& item, const FarCalls& calls) {
  const bool isEntry = item.By.Kind == OpenerKind::Entry;
  const auto look = [isEntry, path = item.Path] {
    return isEntry ? IsRegisteredEntry(path)
                   : IsSystemProgram(path) && ContentOf(path) == FileContent::Binary;
  };
  return calls.Get<bool>(item.Path, look, false);
}

RunQuestion QuestionAbout(const std::vector<Item>& items) {
  RunQuestion question{.Programs = {}, .Command = {}, .Files = items.size(), .CanOpen = true};
  for (const Item& item : items) {
    if (item.By.Kind == OpenerKind::Document) continue;
    question.Programs.push_back(item.Path);
    question.CanOpen = question.CanOpen && item.By.Application;
    const char* const command =
        item.By.Entry ? g_app_info_get_commandline(item.By.Entry.get()) : nullptr;
    question.Command = command != nullptr ? command : "";
  }
  if (question.Programs.size() > 1) question.Command.clear();
  return question;
}

base::Status Start(const Item& item, const std::string& folder, StartIn where,
                   const FarCalls& calls) {
  if (item.By.Entry) return Launch(item.By.Entry.get(), {}, where == StartIn::Terminal);
  return StartProgramAt(calls, {item.Path}, folder, where);
}

void OpenDocuments(const std::vector<const Item*>& documents,
                   std::vector<LaunchFailure>& failures) {
  std::vector<OpenedTogether> groups;
  for (const Item* const item : documents) {
    GAppInfo* const application = item->By.Application.get();
    if (application == nullptr) {
      failures.push_back({item->Path, NoApplication(item->By.Type)});
      continue;
    }
    const auto same = std::ranges::find_if(groups, [application](const OpenedTogether& group) {
      return g_app_info_equal(group.Application, application) != FALSE;
    });
    if (same == groups.end()) {
      groups.push_back({application, {item->Path}});
    } else {
      same->Paths.push_back(item->Path);
    }
  }
  for (const OpenedTogether& group : groups) {
    const base::Status status = Launch(group.Application, group.Paths);
    if (status) continue;
    for (const std::string& path : group.Paths) failures.push_back({path, status});
  }
}

}  // namespace

std::vector<LaunchFailure> OpenItems(const std::vector<std::string>& paths,
                                     const std::string& folder, const OpenTools& tools) {
  std::vector<LaunchFailure> failures;
  std::vector<Item> items;
  for (const std::string& path : paths) {
    Item item{.Path = path, .By = {}};
    if (const base::Status found = FindOpenerAt(tools.Calls, path, item.By); found) {
      items.push_back(std::move(item));
    } else {
      failures.push_back({path, found});
    }
  }
  const RunQuestion question = QuestionAbout(items);
  StartIn where = StartIn::Fitting;
  bool opensPrograms = false;
  if (question.Programs.empty()) {
    if (!AskAboutMany(items.size(), tools.Dialogs, tools.Forms)) return failures;
  } else if (paths.size() > 1 || !StartsUnasked(items.front(), tools.Calls)) {
    const RunChoice choice = tools.Windows.AskRun(question);
    if (choice == RunChoice::Cancel) return failures;
    opensPrograms = choice == RunChoice::Open;
    where = choice == RunChoice::Run ? StartIn::OwnWindows : StartIn::Terminal;
  }
  std::vector<const Item*> documents;
  for (const Item& item : items) {
    if (opensPrograms || item.By.Kind == OpenerKind::Document) {
      documents.push_back(&item);
    } else if (const base::Status status = Start(item, folder, where, tools.Calls); !status) {
      failures.push_back({item.Path, status});
    }
  }
  OpenDocuments(documents, failures);
  return failures;
}

base::Status OpenWithCommand(const std::string& command, const std::vector<std::string>& paths,
                             const std::string& folder, const FarCalls& calls) {
  std::vector<std::string> words;
  if (base::Status status = AddWords(command, words); !status) return status;
  if (words.empty()) return SystemError(EINVAL);
  std::string& program = words.front();
  if (program.find('/') == program.npos) {
    program = FindProgram(program);
  } else if (!program.starts_with('/')) {
    program = base::PathSyntax::Posix().Join(folder, program);
  }
  if (program.empty()) return SystemError(ENOENT);
  words.insert(words.end(), paths.begin(), paths.end());
  return StartProgramAt(calls, words, folder, StartIn::Fitting);
}

}  // namespace tarnwell::platform
