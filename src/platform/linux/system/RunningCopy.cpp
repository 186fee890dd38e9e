#include "platform/linux/system/RunningCopy.h"

#include <cstdlib>
#include <memory>

#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

constexpr char ApplicationInterface[] = "org.freedesktop.Application";
constexpr char CopyPath[] = "/org/tarnwell/Tarnwell";
constexpr char TokenKey[] = "activation-token";
constexpr int AnswerLimit = 5000;  // milliseconds

constexpr char Introspection[] =
    "<node><interface name='org.freedesktop.Application'>"
    "<method name='Activate'><arg type='a{sv}' direction='in'/></method>"
    "<method name='Open'><arg type='as' direction='in'/><arg type='a{sv}' direction='in'/></method>"
    "<method name='ActivateAction'><arg type='s' direction='in'/><arg type='av' direction='in'/>"
    "<arg type='a{sv}' direction='in'/></method>"
    "</interface></node>";

struct NodeUnref {
  void operator()(GDBusNodeInfo* node) const { g_dbus_node_info_unref(node); }
};
struct VariantUnref {
  void operator()(GVariant* value) const { g_variant_unref(value); }
};
using Variant = std::unique_ptr<GVariant, VariantUnref>;

// A bus serves the copies of one user; the folder tells them apart further.
std::string BusNameOf(const std::string& programFolder) {
  const GioText sum(g_compute_checksum_for_string(G_CHECKSUM_SHA256, programFolder.c_str(), -1));
  return "org.tarnwell.Tarnwell.at_" + std::string(sum.get()).substr(0, 16);
}

std::vector<std::string> PathsOf(GVariant* uris) {
  std::vector<std::string> paths;
  GVariantIter each;
  g_variant_iter_init(&each, uris);
  for (const gchar* uri = nullptr; g_variant_iter_next(&each, "&s", &uri) != FALSE;) {
    const GioText path(g_filename_from_uri(uri, nullptr, nullptr));
    if (path) paths.emplace_back(path.get());
  }
  return paths;
}

std::string TokenOf(GVariant* platformData) {
  const gchar* token = nullptr;
  g_variant_lookup(platformData, TokenKey, "&s", &token);
  return TextOf(token);
}

}  // namespace

bool AskRunningCopy(const std::string& programFolder, const std::vector<std::string>& folders) {
  const GioObject<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
  if (!bus) return false;
  GVariantBuilder uris;
  g_variant_builder_init(&uris, G_VARIANT_TYPE("as"));
  for (const std::string& folder : folders) {
    const GioText uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
    if (uri) g_variant_builder_add(&uris, "s", uri.get());
  }
  GVariantBuilder data;
  g_variant_builder_init(&data, G_VARIANT_TYPE_VARDICT);
  if (const char* const token = std::getenv("XDG_ACTIVATION_TOKEN"); token != nullptr) {
    g_variant_builder_add(&data, "{sv}", TokenKey, g_variant_new_string(token));
  }
  const Variant answer(g_dbus_connection_call_sync(
      bus.get(), BusNameOf(programFolder).c_str(), CopyPath, ApplicationInterface, "Open",
      g_variant_new("(asa{sv})", &uris, &data), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
      AnswerLimit, nullptr, nullptr));
  return answer != nullptr;
}

// The name on the bus, and the object behind it.
struct RunningCopy::Name {
  Name(const std::string& programFolder, Opens opens)
      : Call(std::move(opens)),
        Number(g_bus_own_name(G_BUS_TYPE_SESSION, BusNameOf(programFolder).c_str(),
                              G_BUS_NAME_OWNER_FLAGS_NONE, OnBus, nullptr, nullptr, this,
                              nullptr)) {}
  ~Name() {
    g_bus_unown_name(Number);
    if (Object != 0) g_dbus_connection_unregister_object(Bus, Object);
  }
  Name(const Name&) = delete;
  Name& operator=(const Name&) = delete;

  static void OnBus(GDBusConnection* bus, const gchar* name, gpointer self);
  static void OnCall(GDBusConnection* bus, const gchar* sender, const gchar* path,
                     const gchar* interface, const gchar* method, GVariant* parameters,
                     GDBusMethodInvocation* invocation, gpointer self);

  const Opens Call;
  const guint Number;
  guint Object = 0;
  GDBusConnection* Bus = nullptr;  // GLib's own, which stays
};

// The object is there before the name is, so that nobody who finds the one misses the other.
void RunningCopy::Name::OnBus(GDBusConnection* bus, const gchar*, gpointer self) {
  static constexpr GDBusInterfaceVTable calls{OnCall, nullptr, nullptr, {}};
  const std::unique_ptr<GDBusNodeInfo, NodeUnref> node(
      g_dbus_node_info_new_for_xml(Introspection, nullptr));
  auto& name = *static_cast<Name*>(self);
  name.Bus = bus;
  name.Object = g_dbus_connection_register_object(bus, CopyPath, node->interfaces[0], &calls, self,
                                                  nullptr, nullptr);
}

// Answered first: whoever asks is not to wait for what opens.
void RunningCopy::Name::OnCall(GDBusConnection*, const gchar*, const gchar*, const gchar*,
                               const gchar* method, GVariant* parameters,
                               GDBusMethodInvocation* invocation, gpointer self) {
  const std::string called(method);
  if (called == "ActivateAction") {
    g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR,
                                                  G_DBUS_ERROR_UNKNOWN_METHOD, "No actions");
    return;
  }
  const bool opens = called == "Open";
  std::vector<std::string> folders;
  if (opens) folders = PathsOf(Variant(g_variant_get_child_value(parameters, 0)).get());
  const Variant data(g_variant_get_child_value(parameters, opens ? 1 : 0));
  const std::string token = TokenOf(data.get());
  g_dbus_method_invocation_return_value(invocation, nullptr);
  static_cast<Name*>(self)->Call(folders, token);
}

RunningCopy::RunningCopy(const std::string& programFolder, Opens opens)
    : name_(std::make_unique<Name>(programFolder, std::move(opens))) {}

RunningCopy::~RunningCopy() = default;

}  // namespace tarnwell::platform
