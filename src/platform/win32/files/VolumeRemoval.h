// Word that a volume is to be taken away, so that nothing here keeps it.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

enum class RemovalStage : std::uint8_t {
  Asked,    // what is open there is to be closed now, and nothing opened before the next word
  GivenUp,  // the volume stays
  Done,     // it has gone, whether anybody was asked or not
};

// Tells on the thread that it is made by, which has a loop of messages, while it lives. May be
// destroyed within its own call.
class VolumeRemoval {
 public:
  // Of the volume that the open folder is on. Tells nothing where the system refuses.
  VolumeRemoval(HANDLE folder, std::function<void(RemovalStage)> told);
  VolumeRemoval(const VolumeRemoval&) = delete;
  VolumeRemoval& operator=(const VolumeRemoval&) = delete;
  ~VolumeRemoval();

  // Names it in the messages of the system; null where it has none.
  void* Registration() const { return registration_; }

 private:
  const std::function<void(RemovalStage)> told_;
  void* registration_ = nullptr;
};

}  // namespace tarnwell::platform
