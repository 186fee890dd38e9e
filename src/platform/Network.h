// Port: the platform's dialogs for network drives.
#pragma once

namespace tarnwell::platform {

class Network {
 public:
  virtual ~Network() = default;
  // Asks for a share and mounts it. Reports failures by itself.
  virtual void ConnectDialog() = 0;
  // Asks which mounted share to let go, and unmounts it. Reports failures by itself.
  virtual void DisconnectDialog() = 0;
};

}  // namespace tarnwell::platform
