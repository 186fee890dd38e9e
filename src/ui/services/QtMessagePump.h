// Lets Qt's events through during long work.
#pragma once

#include <QCoreApplication>

#include "platform/MessagePump.h"

namespace tarnwell::ui {

class QtMessagePump : public platform::MessagePump {
 public:
  void DoEvents() override { QCoreApplication::processEvents(); }
};

}  // namespace tarnwell::ui
