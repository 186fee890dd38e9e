// Port: letting the user's input and the window's paint requests through during long work.
#pragma once

namespace tarnwell::platform {

class MessagePump {
 public:
  virtual ~MessagePump() = default;
  // Handles what has come in since the last call and returns. Handlers may call back into the code
  // that pumps.
  virtual void DoEvents() = 0;
  // The same, but waits for something to come in where nothing has.
  virtual void WaitForEvents() = 0;
};

}  // namespace tarnwell::platform
