#include "platform/linux/network/LinuxNetworkPlaces.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/network/ConnectPlace.h"
#include "platform/linux/network/DisconnectPlace.h"
#include "platform/linux/network/FindOffers.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

// What the desktop mounts beside places on the network: devices, and files that hold folders.
constexpr std::array<std::string_view, 8> localSchemes = {
    "mtp:", "gphoto2:", "afc:", "cdda:", "archive:", "burn:", "admin:", "localtest:"};

bool IsOnNetwork(const std::string& address) {
  return std::ranges::none_of(localSchemes,
                              [&](std::string_view scheme) { return address.starts_with(scheme); });
}

// The desktop's part serves files alone where it has no session to run in.
base::Status NoKinds() {
  GIOExtensionPoint* const point = g_io_extension_point_lookup(G_VFS_EXTENSION_POINT_NAME);
  const bool isInstalled =
      point != nullptr && g_io_extension_point_get_extension_by_name(point, "gvfs") != nullptr;
  const bool runs = g_vfs_get_default() != g_vfs_get_local();
  if (isInstalled && !runs) {
    return {ENOTSUP, "Network places need a session bus, and this session has none."};
  }
  return {ENOTSUP, "Network places need the package gvfs-backends, which is not installed."};
}

NetworkKinds ReadKinds() {
  NetworkKinds kinds;
  const char* const* schemes = g_vfs_get_supported_uri_schemes(g_vfs_get_default());
  for (; schemes != nullptr && *schemes != nullptr; ++schemes) kinds.Schemes.emplace_back(*schemes);
  if (std::ranges::count(kinds.Schemes, "sftp") == 0) kinds.Status = NoKinds();
  return kinds;
}

class KindsTask : public PlaceTask {
 public:
  using Told = std::function<void(const NetworkKinds&)>;

  KindsTask(DesktopMounts& desktop, Told told)
      : desktop_(desktop),
        told_(std::move(told)),
        listener_(desktop.Listen([this] { TellSoon(); })) {
    TellSoon();
  }
  KindsTask(const KindsTask&) = delete;
  KindsTask& operator=(const KindsTask&) = delete;
  ~KindsTask() override {
    if (idle_ != 0) g_source_remove(idle_);
  }

 private:
  void TellSoon() {
    if (desktop_.IsReady() && idle_ == 0 && told_) idle_ = g_idle_add(&KindsTask::Tell, this);
  }
  static gboolean Tell(gpointer data) {
    auto* const self = static_cast<KindsTask*>(data);
    self->idle_ = 0;
    const Told told = std::exchange(self->told_, nullptr);
    GuardedCall([&] { told(ReadKinds()); });
    return G_SOURCE_REMOVE;
  }

  DesktopMounts& desktop_;
  Told told_;
  guint idle_ = 0;
  std::shared_ptr<void> listener_;
};

// For a place that has gone meanwhile.
class NothingToDo : public AskingTask {
 public:
  explicit NothingToDo(PlaceUser& user) : user_(user) {
    idle_ = g_idle_add(&NothingToDo::Tell, this);
  }
  NothingToDo(const NothingToDo&) = delete;
  NothingToDo& operator=(const NothingToDo&) = delete;
  ~NothingToDo() override {
    if (idle_ != 0) g_source_remove(idle_);
  }
  void Answer(const PlaceAnswer&) override {}
  void TakeBack() override {}

 private:
  static gboolean Tell(gpointer data) {
    auto* const self = static_cast<NothingToDo*>(data);
    self->idle_ = 0;
    GuardedCall([self] { self->user_.OnDone({}); });
    return G_SOURCE_REMOVE;
  }

  PlaceUser& user_;
  guint idle_ = 0;
};

}  // namespace

std::unique_ptr<PlaceTask> LinuxNetworkPlaces::FindKinds(
    std::function<void(const NetworkKinds& kinds)> told) {
  return std::make_unique<KindsTask>(desktop_, std::move(told));
}

std::unique_ptr<PlaceTask> LinuxNetworkPlaces::FindOffers(
    std::function<void(const std::vector<OfferedPlace>& found)> told) {
  return platform::FindOffers(std::move(told));
}

std::unique_ptr<AskingTask> LinuxNetworkPlaces::Connect(const std::string& address,
                                                        const std::string& password,
                                                        PlaceUser& user) {
  return ConnectPlace(address, password, user);
}

std::unique_ptr<AskingTask> LinuxNetworkPlaces::Disconnect(const std::string& id, PlaceUser& user) {
  if (const std::shared_ptr<void> mount = desktop_.Find(id)) {
    return DisconnectMount(static_cast<GMount*>(mount.get()), user);
  }
  for (const Mount& mount : ReadSystemMounts()) {
    if (mount.Path == id && IsShareType(mount.Type)) return DisconnectMount(mount, user);
  }
  return std::make_unique<NothingToDo>(user);
}

std::vector<ConnectedPlace> LinuxNetworkPlaces::Connected() const {
  std::vector<ConnectedPlace> places;
  for (const DesktopMount& each : desktop_.List()) {
    if (!IsOnNetwork(each.Address)) continue;
    places.push_back({each.Address, each.Name, each.Address, each.Path});
  }
  for (const Mount& mount : ReadSystemMounts()) {
    if (!IsShareType(mount.Type)) continue;
    // Of several that are mounted one over another only the last can go.
    std::erase_if(places, [&](const ConnectedPlace& place) { return place.Id == mount.Path; });
    places.push_back({mount.Path, mount.Label, mount.Source, mount.Path});
  }
  return places;
}

void LinuxNetworkPlaces::OnChange(std::function<void()> changed) {
  ofDesktop_.reset();
  ofSystem_.reset();
  if (!changed) return;
  ofDesktop_ = desktop_.Listen(changed);
  ofSystem_ = std::make_unique<MountNotices>(std::move(changed));
}

}  // namespace tarnwell::platform
