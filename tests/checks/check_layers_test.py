#!/usr/bin/env python3
"""Tests of tools/check_layers.py on small temporary trees.

    check_layers_test.py TOOL
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOL = ""

README = """# Sample

## Layers

| Folder | May include |
|---|---|
| `platform/desktop` | nothing |
| `platform/window` | nothing |
| `src/foundation` | `platform/desktop` |
| `src/engine` | {engine_row} |
| `src/app` | everything |

## Other

| Folder | May include |
|---|---|
| `src/foundation` | `src/engine` |
"""

FILES = {
    "platform/desktop/desktop.h": "#pragma once\n",
    "platform/window/window_layer.h": '#pragma once\n#include "platform/window/headless.h"\n',
    "platform/window/headless.h": "#pragma once\n",
    "src/foundation/log.h": "#pragma once\n#include <string>\n",
    "src/foundation/log.cpp": '#include "foundation/log.h"\n\n#include <engine/not_checked.h>\n'
                              '#include "platform/desktop/desktop.h"\n#include "log.h"\n',
    "src/engine/step.h": "#pragma once\n",
    "src/engine/step.cpp": '#include "engine/step.h"\n\n#include <vector>\n\n#include "foundation/log.h"\n',
    "src/engine/deep/part.cpp": '#include "../step.h"\n#include "engine/step.h"\n',
    "src/app/main.cpp": '#include "engine/step.h"\n#include "platform/window/window_layer.h"\n',
    "src/app/README.md": '#include "nowhere/not_a_source.h"\n',
}


class CheckLayers(unittest.TestCase):
    def tree(self, engine_row="`src/foundation`", extra=None, drop=()):
        root = tempfile.mkdtemp(prefix="orv_layers_")
        self.addCleanup(shutil.rmtree, root, True)
        files = dict(FILES, **(extra or {}))
        files["README.md"] = README.format(engine_row=engine_row)
        for path, text in files.items():
            if path in drop:
                continue
            os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as f:
                f.write(text)
        return root

    def check(self, root):
        run = subprocess.run([sys.executable, TOOL, "--root", root], capture_output=True, text=True)
        return run.returncode, run.stdout, run.stderr

    def test_allowed_tree_passes(self):
        code, out, err = self.check(self.tree())
        self.assertEqual(code, 0, out + err)
        self.assertEqual(len(out.strip().splitlines()), 1, out)

    def test_forbidden_include_fails_with_file_and_line(self):
        bad = '#include "engine/step.h"\n\n#include <vector>\n#include "engine/step.h"\n'
        code, out, err = self.check(self.tree(extra={"src/foundation/bad.cpp": bad}))
        self.assertEqual(code, 1, out + err)
        self.assertEqual(out.splitlines(), ["src/foundation/bad.cpp:1: src/foundation may not include engine/step.h",
                                            "src/foundation/bad.cpp:4: src/foundation may not include engine/step.h"])

    def test_forbidden_platform_include_fails(self):
        bad = '#pragma once\n#include "platform/window/window_layer.h"\n'
        code, out, _ = self.check(self.tree(extra={"platform/desktop/desktop.h": bad}))
        self.assertEqual(code, 1)
        self.assertIn("platform/desktop/desktop.h:2: platform/desktop may not include platform/window/window_layer.h",
                      out.splitlines())

    def test_relative_include_into_another_folder_fails(self):
        code, out, _ = self.check(self.tree(extra={"src/engine/deep/part.cpp": '#include "../../app/run.h"\n'}))
        self.assertEqual(code, 1)
        self.assertIn("src/engine/deep/part.cpp:1: src/engine may not include ../../app/run.h", out.splitlines())

    def test_only_the_layers_table_decides(self):
        # Allowed by the Layers table the same include passes; the later table of the README is no rule.
        extra = {"src/engine/bad.cpp": '#include "platform/window/window_layer.h"\n'}
        code, out, _ = self.check(self.tree(extra=extra))
        self.assertEqual(code, 1)
        self.assertIn("src/engine/bad.cpp:1: src/engine may not include platform/window/window_layer.h", out)
        widened = "`src/foundation`, `platform/window`"
        code, out, err = self.check(self.tree(engine_row=widened, extra=extra))
        self.assertEqual(code, 0, out + err)
        code, out, _ = self.check(self.tree(extra={"src/foundation/up.cpp": '#include "engine/step.h"\n'}))
        self.assertEqual(code, 1, out)

    def test_folder_without_a_row_fails(self):
        code, out, _ = self.check(self.tree(extra={"src/feed/reader.cpp": '#include "foundation/log.h"\n'}))
        self.assertEqual(code, 1)
        self.assertIn("src/feed/reader.cpp:1:", out)

    def test_missing_table_fails(self):
        root = self.tree()
        with open(os.path.join(root, "README.md"), "w", encoding="utf-8") as f:
            f.write("# Sample\n")
        code, _, _ = self.check(root)
        self.assertNotEqual(code, 0)


if __name__ == "__main__":
    TOOL = sys.argv[1]
    unittest.main(argv=sys.argv[:1], verbosity=2)
