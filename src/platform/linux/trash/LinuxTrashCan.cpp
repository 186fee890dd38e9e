#include "platform/linux/trash/LinuxTrashCan.h"

#include <utility>

#include "platform/linux/trash/TrashFollower.h"

namespace tarnwell::platform {
namespace {

struct TrashFollowerHandle : TrashView {
  explicit TrashFollowerHandle(std::shared_ptr<TrashFollower> follower)
      : Follower(std::move(follower)) {}
  TrashFollowerHandle(const TrashFollowerHandle&) = delete;
  TrashFollowerHandle& operator=(const TrashFollowerHandle&) = delete;
  ~TrashFollowerHandle() override { Follower->End(); }
  void Refresh() override { Follower->Refresh(); }

  const std::shared_ptr<TrashFollower> Follower;
};

}  // namespace

LinuxTrashCan::LinuxTrashCan(TrashPlaces places, FolderWatch& watches, const Drives& drives)
    : places_(std::move(places)),
      watches_(watches),
      drives_(drives),
      busy_(std::make_shared<std::map<std::string, int>>()) {}

std::unique_ptr<TrashView> LinuxTrashCan::Follow(TrashListener& listener, std::string drive) {
  auto follower = std::make_shared<TrashFollower>(places_, watches_, drives_, busy_, listener,
                                                  std::move(drive));
  follower->Start();
  return std::make_unique<TrashFollowerHandle>(std::move(follower));
}

}  // namespace tarnwell::platform
