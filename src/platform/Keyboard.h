// Port: which keys are down at this moment, whoever has heard of it.
#pragma once

namespace tarnwell::platform {

struct HeldKeys {
  bool Space = false;
  bool Any = false;  // but Ctrl, Alt and the like, by which nothing is ever held up
};

class Keyboard {
 public:
  virtual ~Keyboard() = default;
  // Nothing where that is not known.
  virtual HeldKeys Held() const = 0;
};

}  // namespace tarnwell::platform
