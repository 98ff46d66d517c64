#!/usr/bin/python3
"""Starts the built program in a session, and works it as a person does who hears the screen.
usage: in-a-session test_program.py PROGRAM [UNITTEST ARGUMENT]..."""

import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

import person
from person import Lantern, announced, role, states, text, value, wait_for

PROGRAM = os.path.abspath(sys.argv.pop(1))
QUOTE = {"Source": "Poems", "Topic": "Hope", "Author": "Emily", "Date": "January 2, 2020",
         "Quote": "Hope is the thing"}


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.home)

    def start(self, *files, **environment):
        lantern = Lantern([PROGRAM, *files], self.home, **environment)
        self.addCleanup(lantern.kill)
        return lantern

    def started(self, **environment):
        lantern = self.start(**environment)
        lantern.find("Menu")
        return lantern

    @staticmethod
    def add(lantern, **changes):
        lantern.press("Menu", "Add New Quote")
        for field, words in {**QUOTE, **changes}.items():
            lantern.write(field, words)
        lantern.press("Save")
        lantern.find("Menu")

    def test_a_quote_is_added_found_changed_exported_and_still_there(self):
        lantern = self.started()
        lantern.press("Menu", "Add New Quote", "Save")
        lantern.find("Insert New Record Canceled", "alert")
        self.assertFalse(lantern.sees("Back"), "what is under an alert is out of reach")
        lantern.press("OK", "Back")
        self.add(lantern)
        self.add(lantern, Topic="Despair", Quote="Nevermore")

        lantern.press("Menu", "Quote List")
        lantern.find("# of Quotes = 2")
        lantern.write("Search quotes", "hop")
        wait_for("the number, spoken", lambda: "# of Quotes in your search = 1" in announced)
        lantern.press("Topic: Hope, Source: Poems  Author:  Emily")
        self.assertEqual(wait_for("the quote", lambda: lantern.read("Quote")), QUOTE["Quote"])
        lantern.write("Quote", "With feathers")
        lantern.press("Save")
        lantern.find("Search quotes")
        lantern.press("Back")
        lantern.find("Menu")

        lantern.press("Menu", "Export", "Create Export File", "OK")
        self.assertIn("^With feathers\n", lantern.read("Export text"))
        lantern.press("Save To Files", "Save to Files")
        file = os.path.join(self.home, "All.csv")
        lantern.write("File name:", file)
        lantern.press("Save")
        wait_for("the exported file", lambda: os.path.exists(file))
        with open(file, encoding="utf-8") as exported:
            self.assertEqual(exported.read(), lantern.read("Export text"))

        self.assertEqual(lantern.quit(), 0)
        self.assertEqual(lantern.stored("select category, quote from event order by 1"),
                         [("Despair", "Nevermore"), ("Hope", "With feathers")])
        lantern = self.started()
        lantern.press("Menu", "Quotes by Topic")
        wait_for("both quotes", lambda: lantern.rows() == ["Poems, Despair    Emily",
                                                           "Poems, Hope    Emily"])

    def test_every_scene_is_reached_and_its_controls_are_named(self):
        lantern = self.started()
        self.add(lantern)
        lantern.press("Menu", "Topics", "Add")
        lantern.write("Topic", "Hope")
        lantern.press("Save")
        lantern.find("Hope", "list item")
        lantern.go_home()
        button, field, tab = "button", "text", "page tab"
        names_bar = [("Sort", button), ("Names", button)]
        form = [("Source", field), ("Topic", field), ("Author", field), ("Date", field),
                ("Quote", field), ("Save", button), ("Source list", button),
                ("Topic list", button), ("Author list", button)]
        hope = "Topic: Hope, Source: Poems  Author:  Emily"
        roads = {
            ("Quote List",): [("Topic", tab), ("Quote", tab), ("Sort", button), ("Add", button),
                              ("Search quotes", field), (hope, "list item")],
            ("Quote List", hope): form + [
                ("Share", button), ("Print", button), ("Add", button), ("Font size", "spin button"),
                ("Decrease font size", button), ("Increase font size", button),
                ("Font size in points", field), ("Full Screen", button), ("Quote", "heading")],
            ("Quote List", hope, "Full Screen"): [("Full Screen", "heading"), ("Share", button)],
            ("Quote List", "Add"): form + [("Add Quote", "heading")],
            ("Quotes by Group",): names_bar + [("Authors", tab), ("Sources", tab), ("Topics", tab),
                                               ("Emily, 1", "list item")],
            ("Quotes by Group", "Sources", "Poems, 1"): [("Topic", tab), ("Author", tab),
                                                         ("Print", button)],
            ("Quotes by Topic",): [("Quotes by Topic", "heading")],
            ("Quotes by Group", ("Topics", tab), "Hope, 1"): [("Author", tab), ("Source", tab)],
            ("Topics",): [("Topics", "heading"), ("# Topics: = 1", "label"), ("Add", button)],
            ("Topics", "Hope"): [("Edit Topic", "heading"), ("Topic", field), ("Save", button)],
            ("Topics", "Add"): [("Add Topic", "heading"), ("Topic", field), ("Save", button)],
            ("Reference Lists", "Authors", "Emily, 1", "Print"): [
                ("Print Quotes", "heading"), ("Create File", button), ("File text", field)],
            ("Reference Lists", "Authors", "Names", "Emily"): [("Edit Author", "heading"),
                                                               ("Author", field)],
            ("Reference Lists", "Authors", "Names", "Add"): [("Add Author", "heading")],
            ("Reference Lists", "Sources", "Names", "Poems"): [("Edit Source", "heading")],
            ("Reference Lists", "Sources", "Names", "Add"): [("Add Source", "heading")],
            ("Import",): [("Import Quote Records", "heading"), ("Load File", button),
                          ("Import text", field), ("Help", field)],
            ("Rate/Share",): [("Rate/Share", "heading"), ("Rate Lantern", "list item"),
                              ("Send Feedback", "list item")],
            ("Settings",): [("Use default date", "check box"), ("Date", field),
                            ("Date picker style", "heading"), ("Wheel", "check box")],
        }
        for road, controls in roads.items():
            lantern.press("Menu", *road)
            for name, its_role in controls:
                lantern.find(name, its_role)
            lantern.go_home()

    def test_controls_do_through_the_bus_what_a_tap_does(self):
        lantern = self.started()
        self.add(lantern, Topic="B")
        self.add(lantern, Topic="A")

        lantern.press("Menu", "Quote List")
        a, b = (f"Topic: {topic}, Source: Poems  Author:  Emily" for topic in "AB")
        wait_for("both in order", lambda: lantern.rows() == [a, b])
        lantern.write("Search quotes", "b")
        wait_for("one", lambda: lantern.rows() == [b])
        lantern.press("Clear")
        wait_for("both in their places again", lambda: lantern.rows() == [a, b])
        lantern.press("Sort")
        wait_for("both turned round", lambda: lantern.rows() == [b, a])
        lantern.press("Author")
        wait_for("the author first", lambda: lantern.rows()[0].startswith("Author: Emily"))
        self.assertIn("selected", states(lantern.find("Author", "page tab")))
        self.assertNotIn("selected", states(lantern.find("Topic", "page tab")))

        lantern.press(lantern.rows()[0])
        size = lantern.find("Font size", "spin button")
        person.Atspi.Value.set_current_value(size, 16)
        wait_for("16 points", lambda: lantern.read("Font size in points") == "16.0")
        self.assertEqual(value(size), 16)
        lantern.act("SetFocus", "Author")
        lantern.find("Author picker", "list")
        lantern.go_home()

        lantern.press("Menu", "Import")
        self.assertNotIn("enabled", states(lantern.find("Import File")))
        self.assertIn("enabled", states(lantern.find("Load File")))
        lantern.go_home()

        lantern.press("Menu", "Settings")
        lantern.act("Toggle", "Inline")
        wait_for("Inline alone", lambda: lantern.set("UseDateInline") == "true" and
                 lantern.checked() == ["Inline"])
        lantern.press("Wheel")
        wait_for("Wheel alone", lambda: lantern.set("UseDateWheel") == "true" and
                 lantern.set("UseDateInline") == "false" and lantern.checked() == ["Wheel"])
        lantern.act("SetFocus", "Date")
        months = lantern.find("Month", "list")
        person.Atspi.Value.set_current_value(months, 4)
        wait_for("May", lambda: lantern.read("Date").startswith("May "))
        self.assertEqual(months.get_description(), "May")
        lantern.press("June")
        wait_for("June", lambda: (lantern.set("DefaultDate") or "").startswith('"Jun '))
        self.assertIn("selected", states(lantern.find("June", "list item")))

    def spoil_store(self):
        folder = os.path.join(self.home, ".local/share/Lantern")
        os.makedirs(folder, exist_ok=True)
        store = os.path.join(folder, "Lantern.sqlite")
        with open(store, "w", encoding="utf-8") as file:
            file.write("no store at all, but a text")
        return store

    def test_a_fatal_page_tells_why_and_is_left_at_once_whenever_it_shows(self):
        store = self.spoil_store()
        for by in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            lantern = self.start()  # for the first time, so that it opens the store at once
            lantern.find("Lantern has to stop", "heading")
            self.assertIn("Lantern.sqlite", lantern.read("Reason"))
            self.assertIn("focused", states(lantern.find("Start again")))
            self.assertEqual(lantern.quit(by), 1)
            os.remove(lantern.settings)

        homeless = self.start(HOME="")
        homeless.find("Lantern has to stop", "heading")
        self.assertIn("nor HOME names a folder", homeless.read("Reason"))
        homeless.press("Quit")
        self.assertEqual(homeless.ends(), 1)

        lantern = self.start()
        lantern.find("Start again")
        os.remove(store)
        lantern.press("Start again")
        lantern.find("Menu")
        self.assertIsNone(lantern.process.poll())

        self.add(lantern, Quote="An open ( bracket")
        lantern.press("Menu", "Quote List")
        back = lantern.find("Back")
        lantern.press(lantern.find("# of Quotes = 1") and lantern.rows()[0])
        lantern.find("Lantern has to stop", "heading")
        self.assertIn("An open ( bracket", lantern.read("Reason"))
        self.assertIsNone(lantern.sees("Back"))
        person.Atspi.Action.do_action(back, 0)  # as a reader does that remembers it
        lantern.press("Quit")
        self.assertEqual(lantern.ends(), 1)
        self.assertEqual(lantern.stored("select quote from event"), [("An open ( bracket",)])

    def damage(self, lantern):
        """Loses the first page of the store, as a failing disk does, and starts."""
        with open(lantern.store, "r+b") as file:
            file.write(bytes(16384))
        os.remove(lantern.settings)  # a first start opens the store at once
        lantern = self.start()
        lantern.find("Lantern has to stop", "heading")
        return lantern

    def test_a_damaged_store_is_rescued_or_a_backup_restored(self):
        lantern = self.started()
        self.add(lantern)
        self.assertEqual(lantern.quit(), 0)
        lantern = self.started()
        self.add(lantern, Quote="Nevermore")  # which makes the backup
        self.assertEqual(lantern.quit(), 0)

        lantern = self.damage(lantern)
        lantern.press("Rescue what can be read")
        wait_for("what was found", lambda: "Found: 2 quotes" in lantern.read("Reason"))
        self.assertIsNone(lantern.sees("Rescue what can be read"))
        lantern.press("Start again")
        lantern.find("Menu")
        self.assertEqual(lantern.quit(), 0)
        self.assertEqual(lantern.stored("select count(*) from event"), [(2,)])

        lantern = self.damage(lantern)
        lantern.press(lantern.wait_for("a backup", lambda: next(
            (node.get_name() for node in lantern.everything()
             if node.get_name().startswith("Restore the backup of ")), None)))
        wait_for("the backup", lambda: "is in place" in lantern.read("Reason"))
        lantern.press("Quit")
        self.assertEqual(lantern.ends(), 1)
        self.assertEqual(lantern.stored("select quote from event"), [(QUOTE["Quote"],)])
        aside = [name for name in os.listdir(os.path.dirname(lantern.store)) if "damaged" in name]
        self.assertEqual(len(aside), 2)

    def test_a_store_that_is_taken_away_is_told_of_at_a_save_and_at_the_end(self):
        for is_pending in (True, False):
            lantern = self.started()
            self.add(lantern)
            os.remove(lantern.store)
            if is_pending:
                lantern.press("Menu", "Add New Quote")
                for field, words in QUOTE.items():
                    lantern.write(field, words)
                lantern.press("Save")
                lantern.find("Lantern has to stop", "heading")
                self.assertIn("moved, replaced or deleted", lantern.read("Reason"))
                lantern.press("Quit")
            else:
                lantern.process.send_signal(signal.SIGTERM)
                told = next(line for line in lantern.process.stderr if "Fatal error" in line)
                self.assertIn("moved, replaced or deleted", told)
                time.sleep(1)
                self.assertTrue(lantern.has_window(), "the page stays until it is left")
                lantern.process.send_signal(signal.SIGTERM)
            self.assertEqual(lantern.ends(), 1)
        kept = [name for name in os.listdir(self.home) if name.startswith("Lantern, not saved")]
        self.assertEqual(len(kept), 1)

    def test_a_second_start_shows_the_first_window(self):
        first = self.started()
        self.assertEqual(self.start().ends(), 0)
        without_bus = self.start(DBUS_SESSION_BUS_ADDRESS="disabled:")
        self.assertTrue(any("another process has it open" in line
                            for line in without_bus.process.stderr))
        self.assertEqual(without_bus.quit(), 1)
        self.assertIsNone(first.process.poll())
        first.press("Menu")

    def test_a_file_is_opened_by_its_own_start_alone(self):
        file = os.path.join(self.home, "a name\u2009with % and #.csv")
        with open(file, "w", encoding="utf-8") as collection:
            collection.write("[QUOTECOLLECTION]\nEmily^Hope^Poems^^With feathers\n")
        first = self.start(file)
        first.press("OK")
        self.assertIn("With feathers", first.read("Import text"))
        first.press("Import File", "OK")
        first.find("Menu")
        self.assertEqual(self.start(file).ends(), 0)
        self.assertIsNone(first.sees("Import text"))
        self.assertEqual(first.quit(), 0)
        self.assertEqual(first.stored("select quote from event"), [("With feathers",)])
        folder = self.start(self.home)
        folder.press("OK")
        self.assertNotIn("enabled", states(folder.find("Import File")))

    def test_the_window_is_there_in_every_session(self):
        for environment in ({"XDG_CURRENT_DESKTOP": "GNOME"}, {"XDG_CURRENT_DESKTOP": "KDE"},
                            {"QT_SCALE_FACTOR": "2"}):
            with self.subTest(environment):
                lantern = self.started(**environment)
                lantern.press("Menu", "Settings")
                lantern.find("Settings", "heading")
                self.assertEqual(lantern.quit(), 0)
        without_bus = self.start(DBUS_SESSION_BUS_ADDRESS="disabled:")
        wait_for("the window", without_bus.has_window)
        self.assertEqual(without_bus.quit(), 0)

    def test_a_bus_that_says_nothing_holds_nobody_up(self):
        self.assertEqual(self.started().quit(), 0)
        quick = self.seconds_to_window(DBUS_SESSION_BUS_ADDRESS="disabled:")
        with socket.socket(socket.AF_UNIX) as silent:
            address = os.path.join(self.home, "bus")
            silent.bind(address)
            silent.listen()
            slow = self.seconds_to_window(DBUS_SESSION_BUS_ADDRESS=f"unix:path={address}")
        self.assertLess(slow, quick + 2)

    def seconds_to_window(self, **environment):
        start = time.monotonic()
        lantern = self.start(**environment)
        wait_for("the window", lantern.has_window)
        seconds = time.monotonic() - start
        lantern.quit()
        return seconds

    def test_a_portal_that_never_answers_leaves_the_program_its_own_file_chooser(self):
        portal = subprocess.Popen([sys.executable, "-c", SILENT_PORTAL], stdout=subprocess.PIPE)
        self.addCleanup(portal.stdout.close)
        self.addCleanup(portal.wait)
        self.addCleanup(portal.kill)
        self.assertTrue(portal.stdout.readline())
        lantern = self.started()
        lantern.press("Menu", "Import", "Load File")
        lantern.find("Up")


SILENT_PORTAL = """
from gi.repository import Gio, GLib
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
bus.add_filter(lambda bus, message, incoming: None if incoming and
               message.get_message_type() == Gio.DBusMessageType.METHOD_CALL else message)
Gio.bus_own_name_on_connection(bus, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE,
                               lambda *_: print("ready", flush=True), None)
GLib.MainLoop().run()
"""

if __name__ == "__main__":
    person.listen()
    unittest.main()
