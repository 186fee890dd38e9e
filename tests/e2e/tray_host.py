"""A notification area: the watcher that icons look for on the session bus. An icon is in it until
its connection goes."""

from gi.repository import Gio, GLib

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = f"""<node><interface name="{NAME}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
</interface></node>"""

bus = Gio.bus_get_sync(Gio.BusType.SESSION)
items = []


def register(_bus, sender, _path, _interface, _method, _words, answer):
    items.append(sender)
    Gio.bus_watch_name_on_connection(bus, sender, Gio.BusNameWatcherFlags.NONE, None,
                                     lambda _bus, name: items.remove(name))
    answer.return_value(None)


def read(_bus, _sender, _path, _interface, name):
    return GLib.Variant("b", True) if name.startswith("Is") else GLib.Variant("as", items)


bus.register_object("/StatusNotifierWatcher",
                    Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0], register, read)
Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE)
GLib.MainLoop().run()
