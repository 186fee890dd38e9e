// What a colour word of the context menu does, and the hints that come with it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Messenger.h"
#include "lister/ListerControl.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::shellmenu {

using NoteColours = std::function<void(std::vector<lister::ColouredItem> items)>;

// Gives what is selected in the list the colour; what has another one now goes to `note`. The first
// time of all, and the first time in a folder with more files than colours are shown for, the user
// is told about it; the settings keep that.
void ColourItems(lister::ListerControl& list, const std::string& word, const NoteColours& note,
                 workspace::ProgramSettings& settings, forms::Messenger& messenger);

}  // namespace tarnwell::shellmenu
