// Lets Qt's events through during long work.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>

#include "platform/MessagePump.h"

namespace tarnwell::ui {

class QtMessagePump : public platform::MessagePump {
 public:
  void DoEvents() override { QCoreApplication::processEvents(); }
  void WaitForEvents() override { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents); }
};

}  // namespace tarnwell::ui
