#!/usr/bin/env python3
"""Asks the compiler that no room sees the headers of its own floor or of a higher one.
usage: test_floors.py BUILD_FOLDER    whose compile_commands.json tells how each room is compiled"""

import json
import re
import shlex
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
COMMANDS = json.loads((Path(sys.argv.pop(1)) / "compile_commands.json").read_text())


def floors():
    """The rooms by floor, lowest first, as the page for newcomers tells them."""
    page = (ROOT / "docs" / "architecture.md").read_text()
    lines = sorted(re.findall(r"^\| (\d) \| (.*?) \|", page, re.MULTILINE))
    rooms = {}
    for floor, names in lines:
        rooms.setdefault(floor, []).extend(re.findall(r"`(\w+)/`", names))
    return list(rooms.values())


def headers(room):
    return sorted((ROOT / "src" / room).glob("*.h"))


def sees(room, header):
    """Whether a source of the room may include a header."""
    command = next(command for command in COMMANDS
                   if Path(command["file"]).parent == ROOT / "src" / room)
    options = [word for word in shlex.split(command["command"])
               if word.startswith(("-I", "-std", "-D"))]
    system = re.findall(r"-isystem (\S+)", command["command"])
    result = subprocess.run(
        ["c++", "-E", "-fPIC", "-x", "c++", "-o", "/dev/null", "-", *options,
         *(word for folder in system for word in ("-isystem", folder))],
        input=f'#include "{header.parent.name}/{header.name}"\n', text=True, capture_output=True,
        cwd=command["directory"])
    return result.returncode == 0


class FloorsTest(unittest.TestCase):
    def test_every_room_stands_on_a_floor(self):
        self.assertEqual(sorted(room for floor in floors() for room in floor),
                         sorted(path.parent.name for path in ROOT.glob("src/*/CMakeLists.txt")))

    def test_no_room_sees_its_own_floor_or_a_higher_one(self):
        for number, floor in enumerate(floors()):
            hidden = [room for other in floors()[number:] for room in other]
            for room in floor:
                self.assertTrue(sees(room, headers(room)[0]), f"{room} does not see itself")
                for other in set(hidden) - {room}:
                    self.assertFalse(sees(room, headers(other)[0]), f"{room} sees {other}")


if __name__ == "__main__":
    unittest.main()
