// The colour dialog, with the colours that the user puts aside in it.
#pragma once

#include <functional>
#include <utility>

#include "platform/Dialogs.h"

namespace tarnwell::settings {

class clsCommonDia {
 public:
  explicit clsCommonDia(platform::Dialogs& dialogs) : dialogs_(dialogs) { Clear(); }

  // The colour that was chosen, or -1 on cancel. `shown` hears of each one that the dialog shows.
  base::Colour ShowColor(base::Colour start, std::function<void(base::Colour)> shown) {
    return dialogs_.AskColour({start, custom_, std::move(shown)}).value_or(-1);
  }
  // Forgets the colours put aside: all are white again.
  void Clear() { custom_.fill(base::White); }

 private:
  platform::Dialogs& dialogs_;
  platform::CustomColours custom_{};
};

}  // namespace tarnwell::settings
