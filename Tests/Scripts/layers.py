"""Shows that the check of the layers finds each kind of wrong include in a small tree, and leaves a
sound one alone.

Usage: layers.py CHECK, with the script"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK = sys.argv.pop(1)

SOUND = {
    "OakfenCore/Support/Text/Text.cpp": ['"OakfenCore/Support/Text/Text.h"', "<unicode/uchar.h>", "<string>"],
    "OakfenCore/Models/Library.h": ['"OakfenCore/Support/Date.h"'],
    "OakfenCore/LibraryIndex/LibraryIndex.h": ['"OakfenCore/Models/Library.h"'],
    "Oakfen/AppState.h": ['"OakfenCore/Models/Library.h"'],
    "Oakfen/Views/Screen.h": ['"Oakfen/AppState.h"'],
    "Oakfen/Views/Register/RegisterView.h": ['"Oakfen/Views/Screen.h"',
                                             '"Oakfen/Views/Register/RegisterSort.h"'],
    "Oakfen/Views/Shell/DetailView.h": ['"Oakfen/Views/Register/RegisterView.h"'],
    "Oakfen/Widgets/Theme/Theme.h": ["<QColor>"],
    "Oakfen/Widgets/Components/Card.h": ["<QFrame>", '"Oakfen/Widgets/Theme/Theme.h"'],
    "Oakfen/Widgets/Register/RegisterWidget.h": ['"Oakfen/Views/Register/RegisterView.h"',
                                                 '"Oakfen/Widgets/Components/Card.h"'],
    "Oakfen/Widgets/Shell/MainWindow.h": ['"Oakfen/Widgets/Register/RegisterWidget.h"'],
    "Oakfen/Tour/Tour.h": ['"OakfenCore/Testing/ManualScheduler.h"',
                           '"Oakfen/Widgets/Shell/MainWindow.h"'],
    "Oakfen/main.cpp": ['"Oakfen/Widgets/Shell/MainWindow.h"'],
}


def run(files):
    """What the check says of a tree with these includes, and whether it passes."""
    with tempfile.TemporaryDirectory() as root:
        for path, includes in files.items():
            file = Path(root, path)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text("".join(f"#include {include}\n" for include in includes))
        result = subprocess.run([sys.executable, "-B", CHECK, root], capture_output=True, text=True,
                                check=False)
        return result.stdout, result.returncode == 0


class Layers(unittest.TestCase):
    def finds(self, path, include, *words):
        """One include more than in the sound tree, and what is said of it."""
        files = dict(SOUND)
        files[path] = [*files.get(path, []), include]
        said, passes = run(files)
        self.assertFalse(passes, f"{path} {include}")
        lines = [line for line in said.splitlines() if line.startswith(path + ":")]
        self.assertEqual(len(lines), 1, said)
        for word in words:
            self.assertIn(word, lines[0])
        return said

    def test_leave_a_sound_tree_alone(self):
        said, passes = run(SOUND)
        self.assertTrue(passes, said)

    def test_keep_the_core_below_the_application(self):
        self.finds("OakfenCore/Support/Date.h", '"Oakfen/AppState.h"', "above the core")

    def test_keep_the_subsystems_of_the_core_in_their_order(self):
        self.finds("OakfenCore/Models/Money.h", '"OakfenCore/LibraryIndex/LibraryIndex.h"',
                   "above or beside")
        self.finds("OakfenCore/Anew/New.h", '"OakfenCore/Support/Date.h"', "without a place")

    def test_find_a_circle_between_subsystems(self):
        said = self.finds("OakfenCore/Support/Date.h", '"OakfenCore/Models/Library.h"')
        self.assertIn("OakfenCore/Models → OakfenCore/Support → OakfenCore/Models", said)

    def test_find_a_circle_between_the_folders_of_two_screens(self):
        files = SOUND | {
            "Oakfen/Views/Goals/GoalsView.h": ['"Oakfen/Views/Bills/BillsView.h"'],
            "Oakfen/Views/Bills/BillsView.h": ['"Oakfen/Views/Goals/GoalsView.h"'],
        }
        said, _ = run(files)
        self.assertIn("a screen's view (Bills) → a screen's view (Goals) → a screen's view (Bills)",
                      said)

    def test_keep_the_toolkit_above_the_views(self):
        for path in ("OakfenCore/Support/Date.h", "Oakfen/AppState.h", "Oakfen/Views/Screen.h",
                     "Oakfen/Views/Register/RegisterView.h"):
            for header in ("<QString>", "<QtGlobal>", "<QtCore/QString>"):
                self.finds(path, header, "toolkit below the widgets")

    def test_keep_views_below_the_widgets(self):
        self.finds("Oakfen/Views/Screen.h", '"Oakfen/Widgets/Theme/Theme.h"', "the theme")
        self.finds("Oakfen/Session.h", '"Oakfen/Platform/QtPanels.h"', "the platform")

    def test_keep_foreign_libraries_in_their_places(self):
        for path, header in (("Oakfen/Views/Screen.h", "<unicode/uchar.h>"),
                             ("OakfenCore/Importers/CSVReader.cpp", "<unicode/utf8.h>"),
                             ("OakfenCore/Models/Money.h", "<date/tz.h>"),
                             ("OakfenCore/Models/Money.h", "<boost/multiprecision/cpp_int.hpp>"),
                             ("OakfenCore/LibraryIndex/Holdings.cpp", "<rapidjson/reader.h>"),
                             ("OakfenCore/LibraryIndex/Holdings.cpp", "<xxhash.h>"),
                             ("Oakfen/Session.cpp", "<openssl/evp.h>"),
                             ("Oakfen/Session.cpp", "<sqlite3.h>")):
            self.finds(path, header, "outside the places")

    def test_keep_screens_apart(self):
        for layer in ("Views", "Widgets"):
            self.finds(f"Oakfen/{layer}/Bills/Bills.h", f'"Oakfen/{layer}/Register/Register.h"',
                       "another room")

    def test_keep_what_screens_share_below_them(self):
        self.finds("Oakfen/Widgets/Components/Card.h", '"Oakfen/Widgets/Bills/BillsWidget.h"',
                   "components", "a screen's widgets")
        self.finds("Oakfen/Views/Screen.h", '"Oakfen/Views/Bills/BillsView.h"', "have in common")
        self.finds("Oakfen/Widgets/Bills/BillsWidget.h", '"Oakfen/Widgets/Shell/MainWindow.h"',
                   "the window")

    def test_keep_what_is_played_for_tests_out_of_the_program(self):
        for path in ("OakfenCore/LibraryStore/LibraryStore.h", "Oakfen/Session.h",
                     "Oakfen/Widgets/Shell/MainWindow.h"):
            self.finds(path, '"OakfenCore/Testing/ManualScheduler.h"', "played for tests")

    def test_find_a_file_that_stands_nowhere(self):
        self.finds("Oakfen/Widgets/Bills/Rows/Row.h", '"Oakfen/Widgets/Theme/Theme.h"', "no floor")


if __name__ == "__main__":
    unittest.main()
