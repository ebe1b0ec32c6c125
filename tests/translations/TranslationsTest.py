"""scripts/translations: what is exported comes back as it was, and what is wrong is refused whole."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).parents[2]


class Translations(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name)
        (self.tree / "common").mkdir()
        for name in ("English", "German"):
            shutil.copy(ROOT / "common" / f"StringTable{name}.cpp", self.tree / "common")
        self.german = self.tree / "common" / "StringTableGerman.cpp"
        self.before = self.german.read_bytes()
        self.run_script("export", self.tree / "po")
        self.catalogue = self.tree / "po" / "de.po"

    def run_script(self, *arguments):
        """What the script says where it fails; empty otherwise."""
        done = subprocess.run([sys.executable, ROOT / "scripts" / "translations", *arguments, "--root", self.tree],
                              capture_output=True, text=True, encoding="utf-8")
        return done.stderr if done.returncode else ""

    def change(self, old, new):
        text = self.catalogue.read_text(encoding="utf-8")
        self.assertIn(old, text)
        self.catalogue.write_text(text.replace(old, new, 1), encoding="utf-8")

    def test_round_trip_is_the_identity(self):
        self.assertEqual(self.run_script("import", self.catalogue), "")
        self.assertEqual(self.german.read_bytes(), self.before)

    def test_a_language_made_anew_has_the_same_texts(self):
        wanted = self.catalogue.read_bytes()
        self.german.unlink()
        self.assertEqual(self.run_script("import", self.catalogue), "")
        self.run_script("export", self.tree / "po")
        self.assertEqual(self.catalogue.read_bytes(), wanted)
        self.assertLess(max(map(len, self.german.read_text(encoding="utf-8").splitlines())), 111)

    def test_only_rows_that_changed_are_written(self):
        self.change('msgstr "Fortschritt"', 'msgstr ""\n"Fort\\"gang\\n"\n"auf \\\\ Zeilen"')
        os.link(self.german, self.tree / "old")
        self.assertEqual(self.run_script("import", self.catalogue), "")
        wanted = self.before.replace(b'u"Fortschritt"', b'u"Fort\\"gang\\nauf \\\\ Zeilen"', 1)
        self.assertEqual(self.german.read_bytes(), wanted)
        self.assertEqual((self.tree / "old").read_bytes(), self.before)  # the file was replaced, not written over
        self.assertEqual(len(list(self.german.parent.iterdir())), 2)

    def test_what_is_not_translated_falls_back_to_english(self):
        self.change('msgctxt "7219"', '#, fuzzy\nmsgctxt "7219"')
        self.change('msgstr "Fortschritt"', 'msgstr ""')
        self.assertEqual(self.run_script("import", self.catalogue), "")
        gone = [line for line in self.before.splitlines(True) if b"{7219, " in line or b'u"Fortschritt"' in line]
        self.assertEqual(len(gone), 2)
        self.assertEqual(self.german.read_bytes(), self.before.replace(gone[0], b"").replace(gone[1], b""))
        # Again, and with entries that are away: nothing more changes.
        before = self.german.read_bytes()
        self.assertEqual(self.run_script("import", self.catalogue), "")
        self.catalogue.write_text("".join(self.catalogue.read_text(encoding="utf-8").partition("\n\n")[0]) + "\n", "utf-8")
        self.assertEqual(self.run_script("import", self.catalogue), "")
        self.assertEqual(self.german.read_bytes(), before)

    def test_regions_have_tables_of_their_own(self):
        for tag, name in (("zh_TW", "TraditionalChinese"), ("zh-CN", "SimplifiedChinese"), ("fr_FR", "French")):
            text = self.catalogue.read_text(encoding="utf-8")
            other = self.tree / "po" / "other.po"
            other.write_text(text.replace("Language: de", f"Language: {tag}", 1).replace("Fortschritt", tag), "utf-8")
            self.assertEqual(self.run_script("import", other), "")
            made = (self.tree / "common" / f"StringTable{name}.cpp").read_text(encoding="utf-8")
            self.assertIn(f'u"{tag}"', made)
        self.assertEqual(self.german.read_bytes(), self.before)

    def test_what_is_wrong_is_refused(self):
        whole = self.catalogue.read_bytes()
        rows = [
            ('msgctxt "7204"', 'msgctxt "1"', "there is no text of the id 1"),
            ('msgctxt "7204"', 'msgctxt "Progress"', "has no id as its context"),
            ('msgctxt "7204"\n', "", "has no id as its context"),
            ("Language: de", "Language: de_AT", "names no language that is known"),
            ('msgstr "Fortschritt"', 'msgstr "\\ud800"', "\\ud800 is no character"),
            ("Language: de", "Language: tlh", "names no language that is known"),
            ('msgid "Progress"', "msgid Progress", "is nothing that a catalogue"),
            ('"Language: de\\n"', '"\\q"', "\\q is not known"),
            ('msgstr "Fortschritt"', 'msgstr "Fort\\', "is nothing that a catalogue"),
        ]
        for old, new, sentence in rows:
            with self.subTest(new):
                self.catalogue.write_bytes(whole)
                self.change(old, new)
                said = self.run_script("import", self.catalogue)
                self.assertIn(sentence, said)
                self.assertIn("de.po", said)
                self.assertEqual(self.german.read_bytes(), self.before)

    def test_directives_are_those_of_the_english_text(self):
        text = self.catalogue.read_text(encoding="utf-8")
        begin = text.index("#, c-format")
        first = text[begin:text.index("\n\n", begin)]
        at = first.rindex("%")
        whole = self.catalogue.read_bytes()
        wrong = {first: (first[:at] + first[at + 2:], first[:at] + "%q" + first[at + 2:], first[:-1] + ' 5 %"'),
                 'msgstr "Fortschritt"': ('msgstr "Fortschritt %d"',)}
        for old, news in wrong.items():
            for new in news:
                with self.subTest(new):
                    self.catalogue.write_bytes(whole)
                    self.change(old, new)
                    self.assertIn("has not the directives", self.run_script("import", self.catalogue))
                    self.assertEqual(self.german.read_bytes(), self.before)
        self.catalogue.write_bytes(whole)
        self.change(first, first[:-1] + ' %%"')
        self.assertEqual(self.run_script("import", self.catalogue), "")

    @unittest.skipUnless(shutil.which("msgfmt"), "there is no gettext")
    def test_tools_of_gettext_take_the_catalogues(self):
        for name in ("commonui.pot", "de.po"):
            subprocess.run(["msgfmt", "--check", "-o", self.tree / "out.mo", self.tree / "po" / name],
                           check=True, capture_output=True)
        # As a translator's tools write it, with lines of another width.
        subprocess.run(["msgcat", "--width=40", "-o", self.catalogue, self.catalogue], check=True)
        self.test_round_trip_is_the_identity()


unittest.main()
