#include "shellmenu/ColourCoding.h"

#include <cstdint>
#include <utility>

namespace tarnwell::shellmenu {

void ColourItems(lister::ListerControl& list, const std::string& word, const NoteColours& note,
                 workspace::ProgramSettings& settings, forms::Messenger& messenger) {
  std::int32_t count = 0;
  note(list.SetItemColor(word, count));
  if (std::exchange(settings.FirstColorEver, false)) {
    messenger.Message(
        "Note: This is the first time you are color coding a file.\r\n\r\n"
        "To see your files in color, make sure you 'turn on' color coding under the Layout menu. "
        "Tarnwell runs a little slower with this on, so turn it off whenever you have the need for "
        "speed.",
        forms::MessageKind::Ok);
  }
  if (count <= settings.FileCountMax || !settings.IsFirstColorCodingOverMax) return;
  messenger.Message("When there are over " + std::to_string(settings.FileCountMax) +
                        " files in a folder, Tarnwell doesn't show the color coding because it "
                        "takes too long to check each file.\r\n\r\n"
                        "Feel free to override this behaviour in the Options if you wish.",
                    forms::MessageKind::Ok);
  settings.IsFirstColorCodingOverMax = false;
}

}  // namespace tarnwell::shellmenu
