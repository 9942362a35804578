#!/usr/bin/env python3
"""The source checks of tools/ pass a tree that keeps the rules and name the file that breaks one."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent.parent / "tools"


def run_check(name, files):
    """Runs a check over a tree of {path: text}; gives its exit code and what it printed."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in files.items():
            target = pathlib.Path(folder) / path
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(text)
        done = subprocess.run([sys.executable, TOOLS / f"check_{name}", folder],
                              capture_output=True, text=True, check=False)
        return done.returncode, done.stdout


class Checks(unittest.TestCase):
    def expect_good(self, name, files):
        code, text = run_check(name, files)
        self.assertEqual(code, 0, text)

    def expect_fault(self, name, files, words):
        code, text = run_check(name, files)
        self.assertEqual(code, 1, text)
        self.assertIn(words, text)

    def test_layers(self):
        rows = [
            ("filter/host/a.h", '#include "model/elements.h"\n'),
            ("filter/model/a.cpp", '#include "reader/svg_handlerreader.h"\n'),
            ("filter/model/a.h", '#include "frame/entry_records.h"\n'),
            ("filter/reader/a.cpp", '#include "frame/guard.h"\n'),
            ("filter/reader/a.cpp", '#include "adapter_reader/svg_adapterreader.h"\n'),
            ("filter/reader/a.cpp", "#  include <unistd.h>\n"),
            ("filter/frame/a.h", '#include "reader/svg_handlerreader.h"\n'),
            ("filter/frame/a.cpp", '#include "reader/scanner.h"\n'),
            ("embedded_host/a.cpp", '#include "model/elements.h"\n'),
            ("render/a.cpp", '#include "cli/options.h"\n'),
            ("filter/unknown/a.cpp", ""),
        ]
        for path, text in rows:
            self.expect_fault("layers", {path: text}, path)
        self.expect_good("layers", {
            "filter/reader/a.cpp": '#include <vector>\n#include "frame/entry_records.h"\n'
                                   '#include "host/memory.h"\n',
            "filter/frame/a.cpp": '#include "reader/svg_handlerreader.h"\n',
            "embedded_host/a.cpp": '#include <png.h>\n#include "embedded_host/host.h"\n',
        })

    def test_sizes(self):
        many = {f"filter/model/f{i}.cpp": "\n" * 10 for i in range(19)}
        self.expect_good("sizes", many | {"filter/model/long.cpp": "\n" * 600})
        self.expect_fault("sizes", many | {"filter/model/long.cpp": "\n" * 601}, "long.cpp: 601")
        self.expect_fault("sizes", {"filter/model/a.h": "\n", "render/b.cpp": "\n" * 450},
                          "1 of 2 files")

    def test_words(self):
        self.expect_fault("words", {"filter/model/a.h": "int f() {\n  return atoi(s);\n}\n"},
                          "a.h:2: atoi")
        self.expect_fault("words", {"filter/model/a.h": "std::strcpy (a, b);\n"}, "strcpy")
        self.expect_good("words", {"filter/model/a.h": "// atoi( is slow\n", "cli/a.h": "atoi(s)"})
        self.expect_good("words", {"filter/model/a.h": 'const char* k = "atoi(1)"; my_atoi(s);\n'})


if __name__ == "__main__":
    unittest.main()
