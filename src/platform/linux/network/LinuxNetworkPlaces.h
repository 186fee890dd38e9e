// Network places by GIO: those of the desktop, and the shares of the system's own table.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/NetworkPlaces.h"
#include "platform/linux/network/DesktopMounts.h"
#include "platform/linux/posix/MountNotices.h"

namespace tarnwell::platform {

class LinuxNetworkPlaces : public NetworkPlaces {
 public:
  // The mounts must outlive this.
  explicit LinuxNetworkPlaces(DesktopMounts& desktop) : desktop_(desktop) {}

  std::unique_ptr<PlaceTask> FindKinds(
      std::function<void(const NetworkKinds& kinds)> told) override;
  std::unique_ptr<PlaceTask> FindOffers(
      std::function<void(const std::vector<OfferedPlace>& found)> told) override;
  std::unique_ptr<AskingTask> Connect(const std::string& address, const std::string& password,
                                      PlaceUser& user) override;
  std::unique_ptr<AskingTask> Disconnect(const std::string& id, PlaceUser& user) override;
  std::vector<ConnectedPlace> Connected() const override;
  void OnChange(std::function<void()> changed) override;

 private:
  DesktopMounts& desktop_;
  std::shared_ptr<void> ofDesktop_;
  std::unique_ptr<MountNotices> ofSystem_;
};

}  // namespace tarnwell::platform
