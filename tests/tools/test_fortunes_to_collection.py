#!/usr/bin/env python3
"""Runs tools/fortunes-to-collection on small fortune files and reads what it writes."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

TOOL = Path(__file__).resolve().parents[2] / "tools" / "fortunes-to-collection"


class FortunesToCollection(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def run_tool(self, *arguments):
        return subprocess.run([sys.executable, "-B", TOOL, *arguments], capture_output=True)

    def convert(self, **files):
        """The quote lines, each as its five fields, and the topics made from these files."""
        for name, content in files.items():
            content = content if isinstance(content, bytes) else content.encode()
            (self.folder / name).write_bytes(content)
        run = self.run_tool(self.folder)
        self.assertEqual(run.returncode, 0, run.stderr)
        text = run.stdout.decode()
        self.assertTrue(text.endswith("\n"))
        lines = text.split("\n")[:-1]
        self.assertEqual(lines[0], "[QUOTECOLLECTION]")
        end = lines.index("[TOPICCOLLECTION]")
        quotes = [line.split("^") for line in lines[1:end]]
        for quote in quotes:
            self.assertEqual(len(quote), 5, quote)
        return quotes, lines[end + 1:]

    def names(self, attribution):
        """Author and source read from one attribution in a file named "topic"."""
        ((author, _, source, _, text),), _ = self.convert(topic=f"Said.\n\t\t-- {attribution}\n")
        self.assertEqual(text, "Said.", f"{attribution} should have left the text")
        return author, source

    def test_authors_and_works_are_told_apart(self):
        for attribution, names in {
            "Mark Twain, \"Pudd'nhead Wilson's Calendar\"":
                ("Mark Twain", "Pudd'nhead Wilson's Calendar"),
            "Douglas Adams, The Hitchhiker's Guide": ("Douglas Adams", "The Hitchhiker's Guide"),
            "Ayn Rand, _Atlas Shrugged_": ("Ayn Rand", "Atlas Shrugged"),
            "Bob Dylan, \"LA Times\", September 5, 1984": ("Bob Dylan", "LA Times"),
            "Lt. Carolyn Palamas, \"Who Mourns for Adonais?\",\n\t\t   stardate 3468.1.":
                ("Lt. Carolyn Palamas", "Who Mourns for Adonais?"),
            "Pierre Abélard (Logica ingredientibus)": ("Pierre Abélard", "Logica ingredientibus"),
            "Goethe, Maximen und Reflexionen, Nr. 1240":
                ("Goethe", "Maximen und Reflexionen, Nr. 1240"),
            "Martin Luther King, Jr., Strength to Love":
                ("Martin Luther King, Jr.", "Strength to Love"),
            "鲁迅《呐喊》": ("鲁迅", "呐喊"),
            "\"Casablanca\"": ("Anonymous (topic)", "Casablanca"),
            "Dal film \"Batman\"": ("Anonymous (topic)", "Batman"),
            "The Egyptian (1954)": ("Anonymous (topic)", "The Egyptian"),
            "John Mason Brown, drama critic": ("John Mason Brown", "topic"),
            "Frank Zappa, Feb 1, 1989": ("Frank Zappa", "topic"),
            "Cicerón. (106-43 A.C.) Escritor, orador y\n\t\tpolítico romano. ":
                ("Cicerón", "topic"),
            "Henrique de Moraes Holschuh (hmh)": ("Henrique de Moraes Holschuh", "topic"),
            "Matt Kimball <mkimball@xmission.com>": ("Matt Kimball", "topic"),
            "Marshall   McLuhan.": ("Marshall McLuhan", "topic"),
            "W. C. Fields": ("W. C. Fields", "topic"),
        }.items():
            with self.subTest(attribution):
                self.assertEqual(self.names(attribution), names)

    def test_chinese_poem_has_its_title_and_poet_above_it(self):
        (quote,), _ = self.convert(poems="题目:《塞上》\n作者:柳开（９４６－９９９）\n鸣骹直上一千尺。\n")
        self.assertEqual(quote[:3] + quote[4:], ["柳开", "poems", "塞上", "鸣骹直上一千尺。"])

    def test_dashes_that_name_nobody_stay_in_the_text(self):
        for entry in ("-- Who is there?\n-- It is me.", "Akvo kura -- akvo pura",
                      "He left\n\t-- he said so -\nand was gone", "Over\n-----\nand out",
                      "Look:\n    -- " + "a very long remark " * 6):
            with self.subTest(entry):
                ((author, topic, source, _, text),), _ = self.convert(topic=entry)
                self.assertEqual((author, topic, source),
                                 ("Anonymous (topic)", "topic", "topic"))
                self.assertEqual(text, entry.expandtabs().rstrip().replace("\n", "@#@"))

    def test_text_loses_what_terminals_printers_and_the_file_format_need(self):
        quotes, _ = self.convert(
            a="_\bunder b\bbo\bol\bld \x1b[32mgreen\x1b[m\x07\n%\n",
            b="x^2\tis\r\na square\u2028here\n%\n  %\nis text\n%\n\n%\n%%\n",
            c="Caf\xe9".encode("latin-1"))
        self.assertEqual([quote[4] for quote in quotes],
                         ["under bold green", "x\u02c62     is@#@a square@#@here",
                          "  %@#@is text", "%%", "Café"])

    def test_repeats_are_numbered_for_an_import_that_drops_apostrophes(self):
        quotes, _ = self.convert(
            a="".join(f"{n}\n\t\t-- {author}, \"Works{number}\"\n%\n" for n, (author, number) in
                      enumerate([("Shaw", ""), ("O'Brien", ""), ("OBrien", ""),
                                 ("O'Brien", " (2)"), ("O'Brien", "")])))
        keys = [tuple(name.replace("'", "") for name in quote[:3]) for quote in quotes]
        self.assertEqual(len(set(keys)), 5, keys)
        self.assertEqual(sorted(key[2] for key in keys if key[0] == "OBrien"),
                         ["Works", "Works (2)", "Works (2) (2)", "Works (3)"])
        self.assertEqual(keys[-1], ("Shaw", "a", "Works"))

    def test_folder_gives_topics_in_code_point_order_without_links_and_indexes(self):
        for name in ("de/zitate", "es/arte.fortunes", "off/rude", "zz.dat", "zz.u8"):
            (self.folder / name).parent.mkdir(exist_ok=True)
            (self.folder / name).write_text(name)
        (self.folder / "link").symlink_to("de/zitate")
        quotes, topics = self.convert(**{"Ärger": "Ä", "\U0001f600": "😀", "\uffe5": "￥", "zu": "Z"})
        self.assertEqual(topics, ["de/zitate", "es/arte", "zu", "Ärger", "\uffe5", "\U0001f600"])
        self.assertEqual([quote[0] for quote in quotes],
                         [f"Anonymous ({topic})" for topic in topics])

    def test_dates_are_the_writers_and_the_same_each_time(self):
        first, _ = self.convert(a="One\n%\nTwo\n")
        again, _ = self.convert(a="One\n%\nTwo\n")
        self.assertEqual(first, again)
        self.assertNotEqual(first[0][3], first[1][3])
        for quote in first:
            self.assertRegex(quote[3], r"^20[12]\d-[01]\d-[0-3]\d [0-2]\d:[0-5]\d:[0-5]\d \+0000$")

    def test_a_name_with_more_quotes_than_can_be_counted_is_refused(self):
        fortunes = self.folder / "many"
        output = self.folder / "collection"
        fortunes.write_text("".join(f"{n}\n%\n" for n in range(32767)))
        self.assertEqual(self.run_tool(fortunes, "-o", output).returncode, 0)
        output.unlink()
        fortunes.write_text("".join(f"{n}\n%\n" for n in range(32768)))
        run = self.run_tool(fortunes, "-o", output)
        self.assertNotEqual(run.returncode, 0)
        self.assertIn(b"32768", run.stderr)
        self.assertFalse(output.exists())

    def test_count_goes_to_standard_error_and_a_missing_file_is_told(self):
        (self.folder / "one").write_text("Text\n\t\t-- Me\n")
        run = self.run_tool(self.folder / "one")
        self.assertEqual(run.stderr, b"1 quotes, 1 authors, 1 sources, 1 topics\n")
        run = self.run_tool(self.folder / "none")
        self.assertNotEqual(run.returncode, 0)
        self.assertTrue(re.search(rb"none", run.stderr) and b"Traceback" not in run.stderr)


if __name__ == "__main__":
    unittest.main()
