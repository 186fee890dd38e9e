// The one way of asking or telling the user.
#pragma once

#include <string>

namespace tarnwell::forms {

enum class MessageKind { Ok = 0, YesNo = 1, YesNoCancel = 2 };

class Messenger {
 public:
  virtual ~Messenger() = default;

  // Shows the text with the buttons of the kind and returns when the box is closed. The box is
  // centred on the open form named `parentName`, in any case of letters; on the main form if that
  // is empty or no form has the name.
  virtual void Message(const std::string& text, MessageKind kind,
                       const std::string& parentName = "") = 0;

  // The word of the button pressed in the last message, in capitals: "YES", "NO", "CANCEL" or "OK".
  // Empty when the box was closed by other means. The next message overwrites it.
  virtual const std::string& MessageResult() const = 0;
};

}  // namespace tarnwell::forms
