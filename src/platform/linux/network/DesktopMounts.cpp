#include "platform/linux/network/DesktopMounts.h"

#include <gio/gio.h>

#include <array>
#include <thread>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

constexpr std::array<const char*, 3> mountSignals = {"mount-added", "mount-removed",
                                                     "mount-changed"};

// Those of the system are told of by its own table.
bool IsOfDesktop(GMount* mount) {
  const GioObject<GFile> root(g_mount_get_root(mount));
  return g_file_is_native(root.get()) == FALSE;
}

}  // namespace

struct DesktopMounts::State {
  std::vector<std::weak_ptr<Changed>> Listeners;
  GVolumeMonitor* Monitor = nullptr;  // null until the desktop has answered
  std::array<gulong, mountSignals.size()> Signals{};
  bool IsAsked = false;

  void Ask(const std::shared_ptr<State>& self);
  void Attach(GVolumeMonitor* monitor);
  void Report() const;
  // Calls `visit` with the mount and its top, for each mount of the desktop's.
  template <typename Visit>
  void ForEach(const Visit& visit) const;

  static gboolean TakeAnswer(gpointer data);
  static void MountChanged(GVolumeMonitor*, GMount* mount, gpointer data);
};

struct DesktopMounts::Answer {
  std::weak_ptr<State> For;
  GVolumeMonitor* Monitor = nullptr;
};

// The thread is left behind if the program ends before the services answer; it touches nothing but
// what it owns.
void DesktopMounts::State::Ask(const std::shared_ptr<State>& self) {
  if (std::exchange(IsAsked, true)) return;
  auto answer = std::make_unique<Answer>();
  answer->For = self;
  std::thread([answer = std::move(answer)]() mutable {
    g_vfs_get_default();  // its first use asks the desktop too
    answer->Monitor = g_volume_monitor_get();
    g_idle_add(&State::TakeAnswer, answer.release());
  }).detach();
}

gboolean DesktopMounts::State::TakeAnswer(gpointer data) {
  const std::unique_ptr<Answer> answer(static_cast<Answer*>(data));
  if (const auto state = answer->For.lock()) state->Attach(answer->Monitor);
  return G_SOURCE_REMOVE;
}

// The monitor is kept for good: to let go of it asks the services once more.
void DesktopMounts::State::Attach(GVolumeMonitor* monitor) {
  Monitor = monitor;
  for (std::size_t i = 0; i < Signals.size(); ++i) {
    Signals[i] = g_signal_connect(Monitor, mountSignals[i], G_CALLBACK(&State::MountChanged), this);
  }
  Report();
}

template <typename Visit>
void DesktopMounts::State::ForEach(const Visit& visit) const {
  if (Monitor == nullptr) return;
  GList* const mounts = g_volume_monitor_get_mounts(Monitor);
  for (GList* item = mounts; item != nullptr; item = item->next) {
    auto* const mount = static_cast<GMount*>(item->data);
    if (!IsOfDesktop(mount) || g_mount_is_shadowed(mount) != FALSE) continue;
    const GioObject<GFile> root(g_mount_get_root(mount));
    visit(mount, root.get());
  }
  g_list_free_full(mounts, &g_object_unref);
}

void DesktopMounts::State::MountChanged(GVolumeMonitor*, GMount* mount, gpointer data) {
  if (IsOfDesktop(mount)) static_cast<State*>(data)->Report();
}

// A listener may go, or end all of this, while it is told.
void DesktopMounts::State::Report() const {
  const auto due = Listeners;
  for (const auto& each : due) {
    if (const auto listener = each.lock()) GuardedCall(*listener);
  }
}

DesktopMounts::DesktopMounts() : state_(std::make_shared<State>()) {}

DesktopMounts::~DesktopMounts() {
  if (state_->Monitor == nullptr) return;
  for (const gulong signal : state_->Signals) g_signal_handler_disconnect(state_->Monitor, signal);
}

std::shared_ptr<void> DesktopMounts::Listen(Changed changed) {
  state_->Ask(state_);
  auto listener = std::make_shared<Changed>(std::move(changed));
  std::erase_if(state_->Listeners, [](const auto& each) { return each.expired(); });
  state_->Listeners.push_back(listener);
  return listener;
}

bool DesktopMounts::IsReady() const {
  return state_->Monitor != nullptr;
}

std::vector<DesktopMount> DesktopMounts::List() const {
  std::vector<DesktopMount> found;
  state_->ForEach([&](GMount* mount, GFile* root) {
    found.push_back({TextOf(GioText(g_mount_get_name(mount)).get()),
                     TextOf(GioText(g_file_get_uri(root)).get()),
                     TextOf(GioText(g_file_get_path(root)).get())});
  });
  return found;
}

std::shared_ptr<void> DesktopMounts::Find(const std::string& address) const {
  std::shared_ptr<void> found;
  state_->ForEach([&](GMount* mount, GFile* root) {
    if (TextOf(GioText(g_file_get_uri(root)).get()) != address) return;
    found = std::shared_ptr<void>(g_object_ref(mount), &g_object_unref);
  });
  return found;
}

}  // namespace tarnwell::platform
