// Port: letting the user's input and the window's paint requests through during long work.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace tarnwell::platform {

class WaitScope;

class MessagePump {
 public:
  virtual ~MessagePump() = default;
  // Handles what has come in since the last call and returns. Handlers may call back into the code
  // that pumps.
  virtual void DoEvents() = 0;
  // The same, but waits for something to come in where nothing has.
  virtual void WaitForEvents() = 0;

  // Lets messages through until `isDone`, which waits a little itself, for an answer of the place:
  // a server or the like, as people call it. False where it is not worth waiting any longer. By the
  // WaitScope that was made last, if there is one; else nothing but the way out takes input.
  bool Wait(const std::string& place, const std::function<bool()>& isDone);

 protected:
  // What is handled while this lives is no part of the work that pumps, and waits for itself.
  class Aside {
   public:
    explicit Aside(MessagePump& pump) : pump_(pump), scope_(std::exchange(pump.scope_, nullptr)) {}
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;
    ~Aside() { pump_.scope_ = scope_; }

   private:
    MessagePump& pump_;
    WaitScope* const scope_;
  };

  virtual bool WaitAlone(const std::string& /*place*/, const std::function<bool()>& isDone) {
    while (!isDone()) DoEvents();
    return true;
  }

 private:
  friend class WaitScope;
  WaitScope* scope_ = nullptr;
};

// Work that is fit for messages at any of its calls to the platform, while this lives.
class WaitScope {
 public:
  // Says what is waited for and lets messages through, over and over. False ends the waiting.
  using GoOn = std::function<bool(const std::string& place)>;

  WaitScope(MessagePump& pump, GoOn goOn)
      : pump_(pump), outer_(std::exchange(pump.scope_, this)), goOn_(std::move(goOn)) {}
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;
  ~WaitScope() { pump_.scope_ = outer_; }

 private:
  friend class MessagePump;
  MessagePump& pump_;
  WaitScope* const outer_;
  const GoOn goOn_;
};

inline bool MessagePump::Wait(const std::string& place, const std::function<bool()>& isDone) {
  WaitScope* const scope = scope_;
  const Aside aside(*this);
  if (scope == nullptr) return WaitAlone(place, isDone);
  bool goesOn = true;
  while (goesOn && !isDone()) goesOn = scope->goOn_(place);
  return goesOn;
}

}  // namespace tarnwell::platform
