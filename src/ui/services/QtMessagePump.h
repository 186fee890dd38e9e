// Lets Qt's events through during long work.
#pragma once

#include <string>

#include "platform/MessagePump.h"

namespace tarnwell::ui {

class QtMessagePump : public platform::MessagePump {
 public:
  void DoEvents() override;
  void WaitForEvents() override;

  // Whether windows take no input, because something is waited for.
  bool IsWaiting() const { return waits_ > 0; }
  // From now on nothing is waited for: the program is to end.
  void Leave() { leaves_ = true; }

 private:
  // Windows go on being painted, but take no input. After a second a small one says what is waited
  // for, and has the button that ends it.
  bool WaitAlone(const std::string& place, const std::function<bool()>& isDone) override;

  bool leaves_ = false;
  int waits_ = 0;
};

}  // namespace tarnwell::ui
