// Tells whether the user has done something: pressed a key, or a button of the mouse.
#pragma once

#include <QObject>
#include <cstdint>

#include "platform/Clock.h"

namespace tarnwell::ui {

class InputWatch : public QObject {
 public:
  explicit InputWatch(const platform::Clock& clock);

  // Goes up with everything that the user does in the program.
  std::uint64_t Count() const { return count_; }
  // Milliseconds since then.
  std::int64_t IdleFor() const { return clock_.Ticks() - lastAt_; }

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  const platform::Clock& clock_;
  std::uint64_t count_ = 0;
  std::int64_t lastAt_;
};

}  // namespace tarnwell::ui
