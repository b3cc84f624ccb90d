#!/usr/bin/env python3
"""Makes the zip of a Windows build, looks into it, unpacks it into a folder with an awkward name, and runs its
program there under Wine.

Usage: windows_package_test.py BUILD_DIR VERSION
"""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest
import zipfile

from package_contents import SOURCE, check_links, check_run_of_example, check_tools_on_case, shared_documents

BUILD = pathlib.Path(sys.argv[1])
VERSION = sys.argv[2]
SCRATCH = BUILD / "package-test"
PACKAGE = SCRATCH / f"korvat-{VERSION}-windows-x86_64.zip"
# Blanks, letters of Western and of Eastern Europe, and letters that are in no 8-bit code page with these.
FOLDER = SCRATCH / "Pfähle der Südmole (Größe 2) Žatec 桩"
LICENCES = ("README.txt", "GPL-3.txt", "cli11.txt", "fem-runtime.txt", "gcc-runtime-library-exception.txt",
            "mingw-w64.txt", "nlohmann-json.txt", "three.txt", "tomlplusplus.txt", "xxhash.txt")
PROGRAMS = ("korvat.exe", "korvat-tools.exe")
SYSTEM_LIBRARIES = {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "netapi32.dll", "shell32.dll",
                    "user32.dll"}


def setUpModule():
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir()
    subprocess.run(["cpack", "-G", "ZIP", "--config", BUILD / "CPackConfig.cmake", "-B", SCRATCH],
                   check=True, stdout=subprocess.DEVNULL)
    with zipfile.ZipFile(PACKAGE) as package:
        package.extractall(FOLDER)


class Package(unittest.TestCase):
    def test_holds_programs_licences_documents_and_examples_and_nothing_else(self):
        expected = {*PROGRAMS, "docs/CHANGELOG.md"} | {f"licences/{name}" for name in LICENCES}
        expected |= shared_documents()
        with zipfile.ZipFile(PACKAGE) as package:
            self.assertEqual({name for name in package.namelist() if not name.endswith("/")}, expected)

    def test_licences_are_those_of_what_is_linked(self):
        texts = {name: (FOLDER / "licences" / name).read_text() for name in LICENCES}
        for name in LICENCES[1:]:
            self.assertIn(name, texts["README.txt"])
        self.assertIn("The Regents of the University of California", texts["fem-runtime.txt"])
        self.assertIn("Version 3.1, 31 March 2009", texts["gcc-runtime-library-exception.txt"])
        self.assertRegex(texts["GPL-3.txt"], r"\A\s+GNU GENERAL PUBLIC LICENSE\n\s+Version 3, 29 June 2007\n")
        self.assertIn("\nUpstream-Name: mingw-w64\n", texts["mingw-w64.txt"])
        self.assertIn("University of Cincinnati", texts["cli11.txt"])
        self.assertIn("Redistributions in binary form must reproduce", texts["cli11.txt"])
        self.assertIn("Yann Collet", texts["xxhash.txt"])
        self.assertIn("Redistributions in binary form must reproduce", texts["xxhash.txt"])
        for name, holder in (("nlohmann-json.txt", "Niels Lohmann"), ("tomlplusplus.txt", "Mark Gillard"),
                             ("three.txt", "three.js authors")):
            self.assertIn(holder, texts[name])
            self.assertIn("Permission is hereby granted, free of charge", texts[name])

    def test_documents_and_examples_link_to_what_is_there(self):
        check_links(self, FOLDER)

    def test_programs_need_only_libraries_of_the_system(self):
        for program in PROGRAMS:
            headers = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", FOLDER / program], check=True,
                                     capture_output=True, text=True).stdout
            self.assertIn("file format pei-x86-64", headers)
            needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", headers)}
            self.assertLessEqual({"kernel32.dll", "msvcrt.dll"}, needed)
            self.assertLessEqual(needed, SYSTEM_LIBRARIES, program)

    def test_programs_are_of_the_desktop_and_of_the_console(self):
        kinds = []
        for program in PROGRAMS:
            headers = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", FOLDER / program], check=True,
                                     capture_output=True, text=True).stdout
            kinds += re.findall(r"^Subsystem\s+\d+\s+\((.*)\)$", headers, re.MULTILINE)
        self.assertEqual(kinds, ["Windows GUI", "Windows CUI"])

    def test_programs_hold_no_path_of_their_build(self):
        for program in PROGRAMS:
            self.assertFalse(f"{SOURCE}/".encode() in (FOLDER / program).read_bytes(), program)


class Run(unittest.TestCase):
    def test_program_runs_each_kind_of_example(self):
        for example in ("jacket", "insert-piles", "barge-impact"):
            with self.subTest(example):
                log = check_run_of_example(self, ["wine", FOLDER / "korvat.exe"], example,
                                           FOLDER / "examples" / example)
                self.assertIn(f" +++++ START PROGRAM KORVAT   VERSION =  {VERSION} ", log)
        check_tools_on_case(self, ["wine", FOLDER / "korvat-tools.exe"], FOLDER / "examples/jacket")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
