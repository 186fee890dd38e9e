#include "shellmenu/ColourCoding.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/CountedTexts.h"

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
  const auto limit = static_cast<std::uint64_t>(std::max(settings.FileCountMax, 0));
  messenger.Message(platform::Counted(list.Forms(), platform::CountedText::ColourLimit, limit),
                    forms::MessageKind::Ok);
  settings.IsFirstColorCodingOverMax = false;
}

}  // namespace tarnwell::shellmenu
