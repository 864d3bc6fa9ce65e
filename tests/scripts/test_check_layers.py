"""Plants violations of the layers in a small tree and expects check-layers to find exactly those.

Usage: test_check_layers.py CHECK_LAYERS
"""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

CHECK_LAYERS = sys.argv.pop(1)

SOUND = {
    "host/root/text.h": "#include <string>\n",
    "host/db/line.cpp": '#include "host/db/line.h"\n#include "host/root/text.h"\n',
    "host/app/commands/move.cpp": '#include "host/app/editor.h"\n  #  include "host/dxf/reader.h"\n',
    "vorntest/bench.h": '#include <cppunit/Test.h>\n#include "host/ut/path.h"\n',
    "testapi/ta_host.h": '#include "host/app/ca_doc.h"\n',
    "testapi/ta_check.cpp": '#include "testapi/ta_host.h"\n#include "vorntest/bench.h"\n',
    "apps/vornbench/main.cpp": '#include "vorntest/bench.h"\n#include "host/app/ca_doc.h"\n',
}


class CheckLayers(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for name, text in SOUND.items():
            self.write(name, text)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_check(self):
        run = subprocess.run([CHECK_LAYERS, self.root], capture_output=True, text=True, check=False)
        self.assertEqual(run.stderr, "")
        return run.returncode, run.stdout.splitlines()

    def test_sound_tree(self):
        self.assertEqual(self.run_check(), (0, ["7 files, no violation of the layers"]))

    def test_planted_violations(self):
        planted = {
            "host/root/up.h": ('// text\n\n#include "host/ut/path.h"\n',
                               "3: host/root may not include host/ut/path.h: host/ut does not stand below it"),
            "host/geom/side.h": ('#include "host/ut/path.h"\n',
                                 "1: host/geom may not include host/ut/path.h: host/ut does not stand below it"),
            "host/dxf/side.cpp": ('#include "host/xml/values.h"\n',
                                  "1: host/dxf may not include host/xml/values.h: host/xml does not stand below it"),
            "host/app/test.cpp": ("#include <cppunit/Test.h>\n",
                                  "1: host/app may not use CppUnit: cppunit/Test.h"),
            "host/app/bench.cpp": ('#include "vorntest/bench.h"\n',
                                   "1: host/app may not include vorntest/bench.h: vorntest does not stand below it"),
            "host/app/frame.cpp": ("#include <wx/frame.h>\n",
                                   "1: host/app may not use windows: wx/frame.h"),
            "host/app/near.cpp": ('#include "ca_doc.h"\n',
                                  '1: "ca_doc.h" is not relative to the root of the sources'),
            "host/misc/any.h": ("", "1: host/misc is no component that check-layers knows"),
            "vorntest/drawing.cpp": ('#include "host/db/line.h"\n',
                                     "1: vorntest may not include host/db/line.h: host/db does not stand below it"),
            "testapi/ta_direct.h": ('#include "host/db/line.h"\n',
                                    "1: only testapi/ta_host.h may include host headers, not this file: "
                                    "host/db/line.h"),
            "testmodules/tool.cpp": ('#include "apps/vornbench/options.h"\n',
                                     "1: testmodules may not include apps/vornbench/options.h: "
                                     "apps does not stand below it"),
        }
        for name, (text, _) in planted.items():
            self.write(name, text)
        code, lines = self.run_check()
        self.assertEqual(code, 1)
        self.assertCountEqual(lines, [f"{name}:{fault}" for name, (_, fault) in planted.items()])

    def test_tree_without_sources(self):
        with tempfile.TemporaryDirectory() as empty:
            run = subprocess.run([CHECK_LAYERS, empty], capture_output=True, text=True, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("no sources", run.stderr)


if __name__ == "__main__":
    unittest.main()
