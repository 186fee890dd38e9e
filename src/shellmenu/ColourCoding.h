// What a colour word of the context menu does, and the hints that come with it.
#pragma once

#include <string>

#include "forms/Messenger.h"
#include "lister/ListerControl.h"
#include "workspace/ProgramSettings.h"

namespace tarnwell::shellmenu {

// Gives what is selected in the list the colour. The first time of all, and the first time in a
// folder with more files than colours are shown for, the user is told about it; the settings keep
// that.
void ColourItems(lister::ListerControl& list, const std::string& word,
                 workspace::ProgramSettings& settings, forms::Messenger& messenger);

}  // namespace tarnwell::shellmenu
