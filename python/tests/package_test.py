"""The package as others get it: doctests, types, the wheel, the example of the page and the page itself."""

import doctest
import importlib
import os
import pathlib
import pkgutil
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

import korvat

SOURCE = pathlib.Path(__file__).resolve().parent.parent
PAGE = SOURCE.parent / "docs/python.md"


class Package(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.directory = pathlib.Path(holder.name)

    def run_python(self, *arguments, **options):
        done = subprocess.run([sys.executable, *arguments], text=True, capture_output=True, check=False, **options)
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        return done.stdout

    def test_doctests(self):
        tried = 0
        for module in pkgutil.iter_modules(korvat.__path__, "korvat."):
            results = doctest.testmod(importlib.import_module(module.name))
            self.assertEqual(results.failed, 0, module.name)
            tried += results.attempted
        self.assertGreater(tried, 10)

    def test_types(self):
        done = subprocess.run(
            [sys.executable, "-m", "mypy", "--cache-dir", self.directory], cwd=SOURCE, text=True, capture_output=True, check=False
        )
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_wheel(self):
        # Built from a copy: the build leaves directories beside the sources.
        copy = self.directory / "python"
        shutil.copytree(SOURCE, copy, ignore=shutil.ignore_patterns("__pycache__", "tests", "examples"))
        self.run_python("-m", "build", "--no-isolation", "--wheel", "--outdir", self.directory, copy)
        [wheel] = self.directory.glob("*.whl")
        version = re.search(r'^version = "(.*)"', (SOURCE / "pyproject.toml").read_text(), re.M)[1]
        self.assertEqual(wheel.name, f"korvat-{version}-py3-none-any.whl")
        with zipfile.ZipFile(wheel) as content:
            packed = sorted(name for name in content.namelist() if name.startswith("korvat/"))
        sources = sorted(f"korvat/{path.name}" for path in (SOURCE / "src/korvat").iterdir() if path.is_file())
        self.assertEqual(packed, sources)
        self.assertIn("korvat/py.typed", packed)
        target = self.directory / "target"
        self.run_python("-m", "pip", "install", "--quiet", "--no-deps", "--no-index", "--target", target, wheel)
        environment = {**os.environ, "PYTHONPATH": str(target)}
        code = "import korvat, importlib.metadata; print(korvat.__file__, importlib.metadata.version('korvat'))"
        told = self.run_python("-c", code, env=environment, cwd=self.directory)
        self.assertEqual(told, f"{target / 'korvat/__init__.py'} {version}\n")

    def test_examples_of_the_page(self):
        """The blocks of docs/python.md run one after the other, and print what stands below them."""
        page = PAGE.read_text(encoding="utf-8")
        blocks = re.findall(r"^```python\n(.*?)^```\n(?:\n```text\n(.*?)^```\n)?", page, re.M | re.S)
        self.assertGreater(len(blocks), 3)
        shutil.copytree(SOURCE.parent / "examples/insert-piles", self.directory / "insert-piles")
        program = "".join(f"{code}print('-- {i}')\n" for i, (code, _) in enumerate(blocks))
        told = self.run_python("-", input=program, cwd=self.directory)
        expected = "".join(f"{output}-- {i}\n" for i, (_, output) in enumerate(blocks))
        self.assertEqual(told, expected)

    def test_study(self):
        """The figures of the study, without the picture, against the formulas."""
        told = self.run_python(SOURCE / "examples/wall_thickness.py", "--table", cwd=self.directory)
        rows = [line.split() for line in told.splitlines()[1:]]
        self.assertEqual([row[0] for row in rows[:2]], ["15.0", "20.0"])
        diameter, stress = 1.2, 3.55e5
        for wall, axial, *_ in ([float(value) for value in row] for row in rows):
            t = wall / 1000
            # Area of the wall times the yield stress, in MN.
            self.assertAlmostEqual(axial, 3.141592653589793 * (diameter - t) * t * stress / 1000, delta=0.05)

    def test_study_draws_its_picture(self):
        self.run_python(SOURCE / "examples/wall_thickness.py", "study.png", cwd=self.directory, env={**os.environ, "MPLCONFIGDIR": str(self.directory)})
        data = (self.directory / "study.png").read_bytes()
        self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
        # Width and height of its header: 13 by 4.2 inches at 100 dots.
        self.assertEqual((int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")), (1300, 420))


if __name__ == "__main__":
    unittest.main()
