// One operation's side of the talk with its user, by the system's error numbers.
#pragma once

#include <string>

#include "platform/linux/posix/SystemError.h"
#include "platform/operation/OperationTalk.h"

namespace tarnwell::platform {

class OperationContext : public OperationTalk {
 public:
  using OperationTalk::NoteLeft;
  using OperationTalk::OperationTalk;
  using OperationTalk::Retries;

  bool Retries(OperationStep step, const std::string& path, ErrorNumber error) {
    return Retries(step, path, SystemError(error));
  }
  void NoteLeft(ErrorNumber error) { NoteLeft(error.Value()); }
};

}  // namespace tarnwell::platform
