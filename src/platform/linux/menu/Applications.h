// The applications that the desktop knows.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {

using ApplicationList = std::vector<GioObject<GAppInfo>>;

// The kinds of the first of the items, each once, in the order of their first appearance. Stops
// after some items, and when it has taken long: thousands may be selected, on a slow volume. Items
// that cannot be found are left out.
std::vector<std::string> TypesOf(const std::vector<std::string>& paths);

// Those registered for every one of the types, the default application of the first type in front.
ApplicationList ApplicationsFor(const std::vector<std::string>& types);

// Those given, then all others that are meant to be shown to people, by their names.
ApplicationList ApplicationsAfter(const ApplicationList& first);

// From now on the application opens files of the type.
base::Status UseAlways(GAppInfo* application, const std::string& type);

std::string TypeName(const std::string& type);  // for people
std::string IdOf(GAppInfo* application);        // empty if it has none
std::string NameOf(GAppInfo* application);      // for people
// The icon's name in the desktop's theme, or its full path; may be empty.
std::string PictureOf(GAppInfo* application);

}  // namespace tarnwell::platform
