// What opens a file, by its content and the desktop's registrations.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/linux/GioObject.h"

namespace tarnwell::platform {

enum class OpenerKind {
  Application,  // takes the file
  Entry,        // the file is a desktop entry that may be started: the application that it tells of
  Program,      // the file starts by itself
};

struct Opener {
  OpenerKind Kind = OpenerKind::Application;
  GioObject<GAppInfo> Application;  // null for a program
};

// Links are followed. An error that tells the kind where nothing opens the file.
base::Status FindOpener(const std::string& path, Opener& opener);

// Starts the application, with the files if there are any, and does not wait for it.
base::Status Launch(GAppInfo* application, const std::vector<std::string>& paths);

}  // namespace tarnwell::platform
