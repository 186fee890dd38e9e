// The window that finds files below a folder, by name, content, size, date and kind.
//
// Judges what is typed, runs one search at a time and tells how it stands; FoundLists has the
// items. Looks at no disk itself.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Dialogs.h"
#include "platform/FileSearch.h"
#include "platform/UserSettings.h"
#include "tools/FindRequest.h"
#include "tools/FindTexts.h"
#include "tools/FoundLists.h"
#include "tools/RecentSearches.h"
#include "tools/popNotRead.h"

namespace tarnwell::tools {

struct FindServices {
  forms::FormHost& Host;
  platform::FileSearch& Search;
  platform::UserSettings& User;
  platform::Dialogs& Dialogs;
  forms::Messenger& Messages;
  FindTools Tools;
};

class frmFind : public forms::Form {
 public:
  frmFind(const FindServices& services, FoundLists& lists);

  // What the fields show. The user sets it, field by field, and each time calls Typed.
  FindSettings Settings;
  FindFaults Faults;  // what is wrong with it
  bool TakesRegex() const { return services_.Tools.Regex != nullptr; }

  forms::ListBox lstRecent;  // a line for each search that was begun before
  forms::Button cmdChoose;
  forms::Button cmdFind;
  forms::Button cmdStop;
  forms::Button cmdShowInPane;
  forms::Button cmdListInPane;
  forms::Button cmdNotRead;
  forms::Button cmdClose;
  forms::Label lblStatus;
  forms::Label lblNote;  // the folder at hand, or what is the matter

  // Opens the form over the middle of the owner, not modally, for the open folder of the active
  // pane. One that is open already comes to the front, with that folder. Later on it stands where
  // it stood when it was closed.
  void ShowOver(forms::Form& owner);

  void Load() override;
  void Unload() override;

  bool IsRunning() const { return search_ != nullptr; }
  // Whether something was found that is not in the lists yet.
  bool HasNews() const { return lists_.HasMore(); }
  void ShowNews();

  // --- What the user does.

  void Typed();
  void cmdChooseClick();
  // Lets go of the search that runs, and begins another one.
  void cmdFindClick();
  void cmdStopClick();
  // Each gives whether the pane shows it.
  bool cmdShowInPaneClick();
  bool cmdListInPaneClick();
  void cmdNotReadClick();
  // By the button or the window's frame.
  void cmdCloseClick() { services_.Host.Unload(*this); }
  // Stops the search that runs; closes the form where none does.
  void EscapeKey();
  // Takes over all settings of an earlier search.
  void lstRecentClick(std::size_t index);
  void ForgetRecent();

 private:
  void TakeUpdate(platform::SearchUpdate update);
  bool IsDone(const std::string& trouble);
  void ReadRecent();
  void ShowState();

  FindServices services_;
  FoundLists& lists_;
  RecentSearches recent_;
  std::vector<FindSettings> searches_;  // by the rows of lstRecent
  popNotRead notRead_;
  std::string note_;
  FindProgress progress_;
  std::string searched_;  // with all below
  std::string folder_;    // at hand
  std::vector<platform::SearchTrouble> troubles_;
  std::shared_ptr<std::atomic<std::uint64_t>> namesGivenUp_;
  std::unique_ptr<platform::RunningSearch> search_;  // null while none runs
};

}  // namespace tarnwell::tools
