// What opens a file, by its content and the desktop's registrations.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {

enum class OpenerKind {
  Document,  // nothing starts unless an application takes the file
  Entry,     // a desktop entry that may be started: the application that it tells of
  Program,   // starts by itself
};

struct Opener {
  OpenerKind Kind = OpenerKind::Document;
  GioObject<GAppInfo> Entry;        // of a desktop entry, else null
  GioObject<GAppInfo> Application;  // takes the file as a document; null where none is registered
  std::string Type;                 // of the content, as the desktop names it
};

// Links are followed. A file that may be executed is a program only where its content is one, and a
// desktop entry may be started where it may be executed or is registered with the desktop.
base::Status FindOpener(const std::string& path, Opener& opener);

// Nothing takes files of the type.
base::Status NoApplication(const std::string& type);

// Starts the application, with the files if there are any, and does not wait for it. `inTerminal`
// puts it into a terminal whatever it says itself.
base::Status Launch(GAppInfo* application, const std::vector<std::string>& paths,
                    bool inTerminal = false);

}  // namespace tarnwell::platform
