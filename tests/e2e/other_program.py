"""Another program for drags: a small window above all others, whose file can be dragged out of it
and which writes down what is dropped on it and what became of its own drag.

usage: other_program.py X Y FILE NOTES
"""

import pathlib
import sys

import gi

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

ACTIONS = Gdk.DragAction.COPY | Gdk.DragAction.MOVE
SIDE = 90  # pixels


def main():
    x, y, file, notes = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3], pathlib.Path(sys.argv[4])

    def note(text):
        with notes.open("a") as out:
            out.write(text + "\n")

    def received(_, context, _x, _y, data, _info, _time):
        note(f"dropped {' '.join(data.get_uris())} {context.get_selected_action().value_nicks}")

    window = Gtk.Window(title="Other program", type_hint=Gdk.WindowTypeHint.UTILITY)
    window.set_default_size(SIDE, SIDE)
    window.set_keep_above(True)
    window.move(x, y)
    area = Gtk.EventBox()
    area.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, None, ACTIONS)
    area.drag_source_add_uri_targets()
    area.connect("drag-data-get",
                 lambda _w, _c, data, _i, _t: data.set_uris([pathlib.Path(file).as_uri()]))
    area.connect("drag-begin", lambda _w, context: context.connect(
        "action-changed", lambda _c, action: note(f"may {' '.join(action.value_nicks)}")))
    area.connect("drag-data-delete", lambda *_: note("asked to delete"))
    area.connect("drag-end", lambda *_: note("drag ended"))
    area.drag_dest_set(Gtk.DestDefaults.ALL, None, ACTIONS)
    area.drag_dest_add_uri_targets()
    area.connect("drag-data-received", received)
    window.add(area)
    window.connect("map-event", lambda *_: note("shown"))
    window.connect("destroy", Gtk.main_quit)
    window.show_all()
    Gtk.main()


main()
