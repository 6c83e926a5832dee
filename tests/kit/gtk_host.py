"""A host that is a GTK program with a main loop of its own: gtk_host.py FOLDER DATABASE

Prints a line at each beat of its timer, and each result.
"""

import sys

import gi
from rules_host import Kit

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk  # noqa: E402  pylint: disable=wrong-import-position

kit = Kit(*sys.argv[1:3])


def edit(button):
    button.set_sensitive(False)  # nothing else keeps the user from pressing it again
    print("result", kit.show_rules("1", ""), flush=True)
    button.set_sensitive(True)
    button.grab_focus()


def beat():
    print("beat", flush=True)
    return True


window = Gtk.Window(title="Host")
edit_button = Gtk.Button(label="Edit")
edit_button.connect("clicked", edit)
window.add(edit_button)
window.connect("destroy", Gtk.main_quit)
GLib.timeout_add(100, beat)
window.show_all()
Gtk.main()
