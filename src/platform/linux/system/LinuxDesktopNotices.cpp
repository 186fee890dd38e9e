#include "platform/linux/system/LinuxDesktopNotices.h"

#include <gio/gio.h>

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "platform/linux/network/AsyncCall.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

// Names of the Desktop Notifications Specification 1.2 of freedesktop.org.
constexpr const char* NotificationService = "org.freedesktop.Notifications";
constexpr const char* NotificationPath = "/org/freedesktop/Notifications";
constexpr const char* DefaultAction = "default";  // a click on the notification itself

constexpr unsigned char NormalUrgency = 1;

// Names of the Launcher API, which docks and task bars of several desktops listen to.
constexpr const char* EntryInterface = "com.canonical.Unity.LauncherEntry";
constexpr const char* EntryPath = "/tarnwell/entry";

}  // namespace

class LinuxDesktopNotices::Sender : public std::enable_shared_from_this<Sender> {
 public:
  explicit Sender(std::string program) : program_(std::move(program)) {}
  Sender(const Sender&) = delete;
  Sender& operator=(const Sender&) = delete;
  ~Sender() {
    if (!bus_) return;
    for (const unsigned each : subscriptions_)
      g_dbus_connection_signal_unsubscribe(bus_.get(), each);
    g_dbus_connection_flush_sync(bus_.get(), nullptr, nullptr);
  }

  void Start() {
    g_bus_get(G_BUS_TYPE_SESSION, nullptr, &AsyncCall<Sender>::Done,
              AsyncCall<Sender>::For(shared_from_this(), &Sender::TakeBus));
  }

  void Show(const TaskEntry& entry) {
    GVariantBuilder facts;
    g_variant_builder_init(&facts, G_VARIANT_TYPE_VARDICT);
    const auto add = [&facts](const char* key, GVariant* value) {
      g_variant_builder_add(&facts, "{sv}", key, value);
    };
    add("progress", g_variant_new_double(entry.Percent.value_or(0) / 100.0));
    add("progress-visible", g_variant_new_boolean(entry.Percent.has_value()));
    add("urgent", g_variant_new_boolean(entry.IsUrgent));
    const std::string address = "application://" + program_ + ".desktop";
    g_dbus_connection_emit_signal(bus_.get(), nullptr, EntryPath, EntryInterface, "Update",
                                  g_variant_new("(sa{sv})", address.c_str(), &facts), nullptr);
  }

  void Notify(const Notification& notification) {
    if (subscriptions_.empty()) Listen();
    GVariantBuilder actions;
    g_variant_builder_init(&actions, G_VARIANT_TYPE("as"));
    for (const char* const word : {DefaultAction, "Show"})
      g_variant_builder_add(&actions, "s", word);
    GVariantBuilder hints;
    g_variant_builder_init(&hints, G_VARIANT_TYPE_VARDICT);
    const auto add = [&hints](const char* key, GVariant* value) {
      g_variant_builder_add(&hints, "{sv}", key, value);
    };
    add("desktop-entry", g_variant_new_string(program_.c_str()));
    add("category",
        g_variant_new_string(notification.IsTrouble ? "transfer.error" : "transfer.complete"));
    add("urgency", g_variant_new_byte(NormalUrgency));
    const std::string title = base::ForDisplay(notification.Title);
    asked_.push_back(notification.Clicked);
    g_dbus_connection_call(
        bus_.get(), NotificationService, NotificationPath, NotificationService, "Notify",
        g_variant_new("(susssasa{sv}i)", "Tarnwell", 0U, program_.c_str(), title.c_str(),
                      notification.Text.c_str(), &actions, &hints, -1),
        G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &AsyncCall<Sender>::Done,
        AsyncCall<Sender>::For(shared_from_this(), &Sender::TakeNumber));
  }

  // Now, or when the bus is there; not at all where there is none.
  void WhenThere(std::function<void()> work) {
    if (bus_) {
      work();
    } else if (isLooking_) {
      waiting_.push_back(std::move(work));
    }
  }

 private:
  void TakeBus(GObject*, GAsyncResult* result) {
    isLooking_ = false;
    bus_.reset(g_bus_get_finish(result, nullptr));
    const auto waiting = std::exchange(waiting_, {});
    if (!bus_) return;
    // The program outlives its session bus.
    g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
    for (const auto& work : waiting) work();
  }

  void Listen() {
    const auto subscribe = [this](const char* signal, GDBusSignalCallback callback) {
      subscriptions_.push_back(g_dbus_connection_signal_subscribe(
          bus_.get(), NotificationService, NotificationService, signal, NotificationPath, nullptr,
          G_DBUS_SIGNAL_FLAGS_NONE, callback, this, nullptr));
    };
    subscribe("ActionInvoked", [](auto*, auto*, auto*, auto*, auto*, GVariant* words,
                                  gpointer self) { static_cast<Sender*>(self)->TakeClick(words); });
    subscribe("NotificationClosed",
              [](auto*, auto*, auto*, auto*, auto*, GVariant* words, gpointer self) {
                static_cast<Sender*>(self)->TakeEnd(words);
              });
  }

  // Answers come in the order of the questions, since one service gives them.
  void TakeNumber(GObject* bus, GAsyncResult* result) {
    const std::function<void()> clicked = asked_.front();
    asked_.erase(asked_.begin());
    GVariant* const answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, nullptr);
    if (answer == nullptr) return;
    unsigned number = 0;
    g_variant_get(answer, "(u)", &number);
    g_variant_unref(answer);
    shown_[number] = clicked;
  }

  void TakeClick(GVariant* words) {
    if (!g_variant_is_of_type(words, G_VARIANT_TYPE("(us)"))) return;
    unsigned number = 0;
    g_variant_get(words, "(u&s)", &number, nullptr);
    const auto found = shown_.find(number);
    if (found != shown_.end() && found->second) GuardedCall(found->second);
  }

  void TakeEnd(GVariant* words) {
    if (!g_variant_is_of_type(words, G_VARIANT_TYPE("(uu)"))) return;
    unsigned number = 0;
    g_variant_get(words, "(uu)", &number, nullptr);
    shown_.erase(number);
  }

  const std::string program_;
  GioObject<GDBusConnection> bus_;
  bool isLooking_ = true;  // for the bus
  std::vector<std::function<void()>> waiting_;
  std::vector<unsigned> subscriptions_;
  std::vector<std::function<void()>> asked_;         // what the desktop has not answered yet
  std::map<unsigned, std::function<void()>> shown_;  // by the desktop's numbers
};

LinuxDesktopNotices::LinuxDesktopNotices(std::string program)
    : sender_(std::make_shared<Sender>(std::move(program))) {
  sender_->Start();
}

LinuxDesktopNotices::~LinuxDesktopNotices() = default;

void LinuxDesktopNotices::ShowTaskEntry(const TaskEntry& entry) {
  sender_->WhenThere([sender = sender_.get(), entry] { sender->Show(entry); });
}

void LinuxDesktopNotices::Notify(const Notification& notification) {
  sender_->WhenThere([sender = sender_.get(), notification] { sender->Notify(notification); });
}

}  // namespace tarnwell::platform
