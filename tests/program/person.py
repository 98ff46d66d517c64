"""Works Lantern as a person does who hears the screen: by the names, roles and states that it has
on the accessibility bus. Nothing here knows the program but by those."""

import contextlib
import os
import signal
import sqlite3
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

PATIENCE = 20  # seconds; the sanitizers and other tests take their time


announced = []  # what was said without the focus, by all programs


def listen():
    """Tells the desktop that somebody listens, as a screen reader does, and does so."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    listening = ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))
    bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", listening), None, Gio.DBusCallFlags.NONE, -1, None)
    Atspi.init()
    listener = Atspi.EventListener.new(lambda event: announced.append(event.any_data))
    listener.register("object:announcement")


def wait_for(what, condition, patience=PATIENCE):
    """Returns what the condition gives as soon as that is true."""
    end = time.monotonic() + patience
    while True:
        while GLib.MainContext.default().iteration(may_block=False):
            pass
        try:
            found = condition()
        except GLib.Error:  # of something that went while it was asked
            found = None
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"not seen: {what}")
        time.sleep(0.05)


def states(node):
    node.clear_cache()
    return {state.value_nick for state in node.get_state_set().get_states()}


def role(node):
    """Its role; what older registries call a push button is a button to newer ones."""
    return node.get_role_name().removeprefix("push ")


def text(node):
    """What a field or a text holds."""
    return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))


def value(node):
    return Atspi.Value.get_current_value(node)


class Lantern:
    """A running Lantern, with its data in a home folder."""

    def __init__(self, command, home, **environment):
        os.makedirs(home, exist_ok=True)
        settings = {"HOME": home, "ASAN_OPTIONS": "detect_leaks=0", **environment}
        self.store = os.path.join(home, ".local/share/Lantern/Lantern.sqlite")
        self.settings = os.path.join(home, ".config/Lantern/Lantern.ini")
        self.process = subprocess.Popen(command, env={**os.environ, **settings},
                                        stderr=subprocess.PIPE, text=True)

    def _applications(self):
        """It is one, or two where a theme of another toolkit comes along."""
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        applications = map(desktop.get_child_at_index, range(desktop.get_child_count()))
        return [application for application in applications
                if application and application.get_process_id() == self.process.pid]

    def everything(self):
        """All that shows, in the order in which it is read."""
        def below(node):
            for index in range(node.get_child_count()):
                child = node.get_child_at_index(index)
                if child is None:
                    continue
                if "showing" in states(child):
                    yield child
                yield from below(child)

        return [node for application in self._applications() for node in below(application)]

    def sees(self, name, of_role=None):
        """What shows under this name, or None."""
        return next((node for node in self.everything()
                     if node.get_name() == name and of_role in (None, role(node))), None)

    def wait_for(self, what, condition):
        try:
            return wait_for(what, condition)
        except AssertionError as error:
            there = [(role(node), node.get_name()) for node in self.everything()]
            raise AssertionError(f"{error}, but {there}") from None

    def find(self, name, of_role=None):
        return self.wait_for(f"{of_role or 'something'} called \"{name}\"",
                             lambda: self.sees(name, of_role))

    def rows(self):
        return [node.get_name() for node in self.everything() if role(node) == "list item"]

    def checked(self):
        return [node.get_name() for node in self.everything() if "checked" in states(node)]

    def go_home(self):
        """Back to the first screen, from wherever."""
        while self.sees("Back") or not self.sees("Menu"):
            back = self._ready("Back")
            if back:
                Atspi.Action.do_action(back, 0)
            time.sleep(0.3)

    def act(self, action, name, of_role=None):
        node = self.wait_for(f"\"{name}\" to {action}", lambda: self._ready(name, of_role))
        names = [Atspi.Action.get_action_name(node, index)
                 for index in range(Atspi.Action.get_n_actions(node))]
        with contextlib.suppress(GLib.Error):  # by what ends the program before it has answered
            Atspi.Action.do_action(node, names.index(action))

    def press(self, *names):
        """Presses one after the other; a name that is there twice comes with its role."""
        for name in names:
            self.act("Press", *(name if isinstance(name, tuple) else (name,)))

    def _ready(self, name, of_role=None):
        node = self.sees(name, of_role)
        return node if node and "enabled" in states(node) else None

    def write(self, name, words):
        def written():
            node = self._ready(name, "text")
            if node and text(node) != words:
                Atspi.EditableText.set_text_contents(node, words)
            return node and text(node) == words
        self.wait_for(f"\"{words}\" in \"{name}\"", written)

    def read(self, name):
        return text(self.find(name, "text"))

    def stored(self, query):
        """The rows that the store's file answers with, once Lantern has ended."""
        with contextlib.closing(sqlite3.connect(self.store)) as store:
            return store.execute(query).fetchall()

    def set(self, key):
        """What the settings' file has under a key."""
        with open(self.settings, encoding="utf-8") as file:
            lines = dict(line.strip().split("=", 1) for line in file if "=" in line)
        return lines.get(key)

    def has_window(self):
        """Whether the display shows its window; for sessions without a bus."""
        window = subprocess.run(["xwininfo", "-name", "Lantern"], capture_output=True, text=True)
        return "IsViewable" in window.stdout

    def ends(self, patience=PATIENCE):
        """The status with which it ends."""
        return self.process.wait(patience)

    def quit(self, by=signal.SIGTERM):
        self.process.send_signal(by)
        return self.ends()

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.process.stderr.close()
