#include <gio/gio.h>

#include "RunUntil.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/system/LinuxDesktopNotices.h"

namespace tarnwell::platform {
namespace {

const char* const Interface =
    "<node><interface name='org.freedesktop.Notifications'><method name='Notify'>"
    "<arg type='s' direction='in'/><arg type='u' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='as' direction='in'/>"
    "<arg type='a{sv}' direction='in'/><arg type='i' direction='in'/>"
    "<arg type='u' direction='out'/></method></interface></node>";

// A desktop on a bus of its own, which notes what it is told.
class Desktop {
 public:
  Desktop() {
    g_test_dbus_up(bus_.get());
    const char* const address = g_test_dbus_get_bus_address(bus_.get());
    connection_.reset(g_dbus_connection_new_for_address_sync(
        address,
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    g_dbus_connection_signal_subscribe(
        connection_.get(), nullptr, "com.canonical.Unity.LauncherEntry", "Update", nullptr, nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE,
        [](auto*, auto*, auto*, auto*, auto*, GVariant* words, gpointer self) {
          static_cast<Desktop*>(self)->Note(words);
        },
        this, nullptr);
    static const GDBusInterfaceVTable methods = {
        [](auto*, auto*, auto*, auto*, auto*, GVariant* words, GDBusMethodInvocation* call,
           gpointer self) {
          static_cast<Desktop*>(self)->Note(words);
          g_dbus_method_invocation_return_value(call, g_variant_new("(u)", 7U));
        },
        nullptr,
        nullptr,
        {}};
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(Interface, nullptr);
    g_dbus_connection_register_object(connection_.get(), Path, node->interfaces[0], &methods, this,
                                      nullptr, nullptr);
    g_dbus_node_info_unref(node);
    g_bus_own_name_on_connection(connection_.get(), Name, G_BUS_NAME_OWNER_FLAGS_NONE, nullptr,
                                 nullptr, nullptr, nullptr);
  }
  ~Desktop() {
    g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
    connection_.reset();
    g_test_dbus_down(bus_.get());
  }
  void Tell(const char* signal, GVariant* words) const {
    g_dbus_connection_emit_signal(connection_.get(), nullptr, Path, Name, signal, words, nullptr);
  }

  std::vector<std::string> Told;

 private:
  static constexpr const char* Name = "org.freedesktop.Notifications";
  static constexpr const char* Path = "/org/freedesktop/Notifications";
  void Note(GVariant* words) { Told.emplace_back(GioText(g_variant_print(words, FALSE)).get()); }

  GioObject<GTestDBus> bus_{g_test_dbus_new(G_TEST_DBUS_NONE)};
  GioObject<GDBusConnection> connection_;
};

TEST(LinuxDesktopNotices, TellsTheDesktopAndHearsOfClicks) {
  Desktop desktop;
  int clicks = 0;
  {
    LinuxDesktopNotices notices("tarnwell");
    notices.ShowTaskEntry({.Percent = 50});  // before the bus is there
    notices.Notify({.Title = "A\nb", .Text = "Done.", .Clicked = [&clicks] { ++clicks; }});
    ASSERT_TRUE(RunUntil([&] { return desktop.Told.size() == 2; }));
    EXPECT_EQ(desktop.Told[0],
              "('application://tarnwell.desktop', {'progress': <0.5>, 'progress-visible': <true>, "
              "'urgent': <false>})");
    EXPECT_TRUE(desktop.Told[1].starts_with("('Tarnwell', 0, 'tarnwell', 'A␊b', 'Done.', "))
        << desktop.Told[1];
    desktop.Tell("ActionInvoked", g_variant_new("(us)", 6U, "default"));
    desktop.Tell("ActionInvoked", g_variant_new("(us)", 7U, "default"));
    desktop.Tell("NotificationClosed", g_variant_new("(uu)", 7U, 2U));
    desktop.Tell("ActionInvoked", g_variant_new("(us)", 7U, "default"));
    notices.ShowTaskEntry({});
    ASSERT_TRUE(RunUntil([&] { return desktop.Told.size() == 3 && clicks > 0; }));
    EXPECT_EQ(clicks, 1);
    notices.ShowTaskEntry({.Percent = {}, .IsUrgent = true});  // the program ends
  }
  ASSERT_TRUE(RunUntil([&] { return desktop.Told.size() == 4; }));
}

}  // namespace
}  // namespace tarnwell::platform
