// Looks on the web for a newer version of the program, and offers its news.
#pragma once

#include <functional>
#include <string>

#include "base/Version.h"
#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Web.h"
#include "tools/frmUpdate.h"
#include "workspace/Workspace.h"

namespace tarnwell::tools {

struct UpdateServices {
  forms::FormHost& Host;
  platform::Web& Web;
  forms::Messenger& Messenger;
  std::function<void()> OpenWebSite;
};

class UpdateCheck {
 public:
  // `site` is the address of the program's site. One of a domain that is kept for examples (RFC
  // 2606) is none: a check that nobody has asked for does not look there.
  UpdateCheck(workspace::Workspace& space, const UpdateServices& services,
              const base::Version& version, std::string site);

  // `asked` where the user wants to know; else only a newer version that has not been told of yet
  // is told. Lets messages through while the site is read; called meanwhile, the check that runs is
  // made one that is asked for.
  void CheckForUpdate(bool asked);
  // Ends a check that runs. False where none does.
  bool GiveUp();

 private:
  void Look();
  void Tell(const std::string& text);

  workspace::Workspace& space_;
  UpdateServices services_;
  double version_;
  std::string site_;
  frmUpdate form_;
  bool isRunning_ = false;
  bool isAsked_ = false;
  bool isGivenUp_ = false;
};

}  // namespace tarnwell::tools
