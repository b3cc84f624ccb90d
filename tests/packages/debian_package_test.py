#!/usr/bin/env python3
"""Makes the Debian package of a build, looks into it, unpacks it, installs it, and runs its programs.

Usage: debian_package_test.py BUILD_DIR VERSION
"""
import fcntl
import gzip
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

from package_contents import SOURCE, check_links, check_run_of_example, check_tools_on_case, shared_documents

BUILD = pathlib.Path(sys.argv[1])
VERSION = sys.argv[2]
SCRATCH = BUILD / "package-test"
PROGRAM = "usr/bin/korvat"
TOOLS = "usr/bin/korvat-tools"
MANUALS = "usr/share/man/man1"
MANUAL = f"{MANUALS}/korvat.1.gz"
COMMANDS = ("batch", "check", "completion", "diff", "dump", "export", "help", "merge", "report", "sweep")
TOOLS_MANUALS = [f"{MANUALS}/korvat-tools{command}.1.gz" for command in ("", *(f"-{name}" for name in COMMANDS))]
COMPLETIONS = {"bash": "usr/share/bash-completion/completions/korvat-tools",
               "zsh": "usr/share/zsh/vendor-completions/_korvat-tools",
               "fish": "usr/share/fish/vendor_completions.d/korvat-tools.fish"}
DOCUMENTS = "usr/share/doc/korvat"
LIBRARY = "usr/lib/libkorvat_group.a"
CMAKE_PACKAGE = "usr/lib/cmake/korvat"
HEADERS = "usr/include/korvat/group"


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def setUpModule():
    shutil.rmtree(SCRATCH, ignore_errors=True)
    SCRATCH.mkdir()
    before = os.umask(0o077)  # must not show in the package
    output_of("cpack", "-G", "DEB", "--config", BUILD / "CPackConfig.cmake", "-B", SCRATCH)
    os.umask(before)


def package_file():
    architecture = output_of("dpkg", "--print-architecture").strip()
    return SCRATCH / f"korvat_{VERSION}_{architecture}.deb"


def fresh_run_directory(name, deck):
    directory = SCRATCH / name
    shutil.rmtree(directory, ignore_errors=True)
    directory.mkdir()
    shutil.copy(deck, directory / "KORVAT.INP")
    return directory


class Package(unittest.TestCase):
    def test_holds_programs_library_manuals_documents_and_examples_and_nothing_else(self):
        expected = {PROGRAM, TOOLS, MANUAL, *TOOLS_MANUALS, *COMPLETIONS.values(), f"{DOCUMENTS}/copyright", f"{DOCUMENTS}/changelog.gz"}
        expected |= {f"{DOCUMENTS}/{name}" for name in shared_documents()}
        expected |= {LIBRARY} | {f"{HEADERS}/{path.name}" for path in (SOURCE / "tools/group").glob("*.hpp")}
        expected |= {f"{CMAKE_PACKAGE}/korvat-{name}.cmake"
                     for name in ("config", "config-version", "targets", "targets-release")}
        entries = [line.split(maxsplit=5) for line in
                   output_of("dpkg-deb", "--contents", package_file()).splitlines()]
        files = {entry[5].removeprefix("./"): entry[0] for entry in entries if entry[0][0] != "d"}
        self.assertEqual(set(files), expected)

        for mode, owner, *_ in entries:
            self.assertEqual(owner, "root/root")
            self.assertIn(mode, ("drwxr-xr-x", "-rw-r--r--", "-rwxr-xr-x"))
        self.assertEqual({name for name, mode in files.items() if "x" in mode}, {PROGRAM, TOOLS})

    def test_states_what_it_is_and_needs(self):
        def field(name):
            return output_of("dpkg-deb", "--field", package_file(), name).strip()

        self.assertEqual(field("Package"), "korvat")
        self.assertEqual(field("Version"), VERSION)
        self.assertEqual(field("Architecture"), output_of("dpkg", "--print-architecture").strip())
        self.assertEqual(field("Section"), "science")
        self.assertEqual(field("Priority"), "optional")
        self.assertEqual(field("Maintainer"), "KORVAT maintainers <maintainers@localhost>")
        self.assertEqual(field("Description").splitlines()[0], "pre-processor for pile groups")
        # The programs are linked with these and no others.
        needed = [re.sub(r" \(>= [0-9.]+\)$", "", item) for item in field("Depends").split(", ")]
        self.assertEqual(sorted(needed), ["libc6"])


class Unpacked(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = SCRATCH / "unpacked"
        output_of("dpkg-deb", "-x", package_file(), cls.root)

    def test_program_runs_each_kind_of_example(self):
        for example in ("jacket", "insert-piles", "barge-impact"):
            with self.subTest(example):
                deck = self.root / DOCUMENTS / "examples" / example / "KORVAT.INP"
                log = check_run_of_example(self, [self.root / PROGRAM], example,
                                           fresh_run_directory(f"run-{example}", deck))
                self.assertIn(f" +++++ START PROGRAM KORVAT   VERSION =  {VERSION} ", log)

    def test_tools_look_into_a_case(self):
        directory = fresh_run_directory("run-tools", self.root / DOCUMENTS / "examples/jacket/KORVAT.INP")
        check_run_of_example(self, [self.root / PROGRAM], "jacket", directory)
        check_tools_on_case(self, [self.root / TOOLS], directory)

    def test_programs_have_no_symbols_and_no_path_of_their_build(self):
        for program in (PROGRAM, TOOLS):
            names = subprocess.run(["nm", self.root / program], capture_output=True, text=True)
            self.assertIn("no symbols", names.stderr)
        for file in (PROGRAM, TOOLS, LIBRARY):
            self.assertFalse(f"{SOURCE}/".encode() in (self.root / file).read_bytes(), file)

    def test_copyright_holds_the_licences_of_what_is_compiled_in(self):
        text = (self.root / DOCUMENTS / "copyright").read_text()
        self.assertIn("\n Copyright (c) 2006-2018 The Regents of the University of California,\n", text)
        self.assertIn("\n 3. Neither the name of the University nor the names of its contributors\n", text)
        self.assertIn("\n Copyright (c) 2017-2021 University of Cincinnati, developed by Henry Schreiner\n", text)
        self.assertIn("\n Copyright (c) 2013-2022 Niels Lohmann\n", text)
        self.assertIn("\n Copyright (C) 2012-2020 Yann Collet\n", text)
        self.assertIn("\n           2010-2026 three.js authors\n", text)
        self.assertIn("\n           2020-2022 Mark Gillard <mark.gillard@outlook.com.au>\n", text)
        self.assertIn("\n Permission is hereby granted, free of charge, to any person obtaining a copy of\n", text)
        named = {name for line in re.findall(r"^License: (.*)$", text, re.MULTILINE) for name in line.split(" and ")}
        self.assertEqual(named, set(re.findall(r"^License: (.*)\n ", text, re.MULTILINE)))
        self.assertIn("\n GCC RUNTIME LIBRARY EXCEPTION\n .\n Version 3.1, 31 March 2009\n .\n", text)
        self.assertNotRegex(text, r"@\w+@")
        # In this form an empty line ends a paragraph, and every paragraph begins with a field.
        for paragraph in text.strip().split("\n\n"):
            self.assertRegex(paragraph, r"\A(Format|Files|License): ")

    def test_documents_and_examples_link_to_what_is_there(self):
        check_links(self, self.root / DOCUMENTS)

    def test_change_log_is_that_of_the_sources(self):
        with gzip.open(self.root / DOCUMENTS / "changelog.gz") as changes:
            self.assertEqual(changes.read(), (SOURCE / "CHANGELOG.md").read_bytes())

    def test_manual_has_its_sections_and_the_version(self):
        with gzip.open(self.root / MANUAL, "rt") as file:
            manual = file.read()
        self.assertEqual(
            re.findall(r'^\.SH "?([A-Z ]+)"?$', manual, re.MULTILINE),
            ["NAME", "SYNOPSIS", "DESCRIPTION", "FILES", "EXIT STATUS", "DIAGNOSTICS", "ENVIRONMENT", "EXAMPLES", "SEE ALSO"])
        self.assertIn(f'\n.TH KORVAT 1 "" "KORVAT {VERSION}" ', manual)
        self.assertIn("\nkorvat \\- pre-processor for pile groups\n", manual)
        named = {line for line in (SOURCE / "README.md").read_text().split("`")
                 if re.fullmatch(r"(KORVAT|PILEPLOT|PILE|LOAD)\.[A-Z0-9]+(\.bak)?", line)}
        self.assertGreaterEqual(len(named), 9)
        for file in named:
            self.assertIn(file, manual)

    def test_tools_have_a_manual_for_each_command_and_complete_in_each_shell(self):
        def said(*arguments):
            return output_of(self.root / TOOLS, *arguments)

        self.assertEqual(re.findall(r"^  ([a-z]+) ", said("--help").split("Subcommands:")[1], re.MULTILINE),
                         list(COMMANDS))
        for path, arguments in zip(TOOLS_MANUALS, ((), *((name,) for name in COMMANDS)), strict=True):
            with gzip.open(self.root / path, "rt") as file:
                self.assertEqual(file.read(), said("help", *arguments, "--man"))
        for shell, path in COMPLETIONS.items():
            self.assertEqual((self.root / path).read_text(), said("completion", shell))

    def test_manuals_are_rendered_without_a_warning(self):
        renderers = [command for command in (["groff", "-man", "-ww", "-b", "-z", "-Tutf8"],
                                             ["mandoc", "-Tlint", "-W", "warning"])
                     if shutil.which(command[0])]
        if not renderers:
            self.skipTest("neither groff nor mandoc is installed")
        for path in (MANUAL, *TOOLS_MANUALS):
            with gzip.open(self.root / path) as file:
                manual = file.read()
            for command in renderers:
                run = subprocess.run(command, input=manual, capture_output=True)
                self.assertEqual((run.returncode, run.stdout, run.stderr), (0, b"", b""), (path, command[0]))


class Installed(unittest.TestCase):
    def setUp(self):
        if os.geteuid() != 0:
            self.skipTest("only root can install a package")
        if self.is_known():
            self.skipTest("a package korvat is installed already")
        # dpkg does not wait for its lock, so it is taken here the way its front ends take it.
        self.lock = open("/var/lib/dpkg/lock-frontend", "w")
        self.addCleanup(self.lock.close)
        fcntl.lockf(self.lock, fcntl.LOCK_EX)

    @staticmethod
    def is_known():
        return subprocess.run(["dpkg-query", "--status", "korvat"], capture_output=True).returncode == 0

    def dpkg(self, *arguments):
        # Systems without manuals and documents, as in containers, still keep those of this package.
        run = subprocess.run(["dpkg", "--path-include=*korvat*", *arguments], capture_output=True, text=True,
                             stdin=subprocess.DEVNULL, env={**os.environ, "DPKG_FRONTEND_LOCKED": "1"})
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        return run.stdout

    def test_package_is_installed_runs_and_is_removed_without_a_trace(self):
        root = pathlib.Path("/")
        self.addCleanup(lambda: self.is_known() and self.dpkg("--remove", "korvat"))
        self.dpkg("--install", package_file())
        self.assertEqual(self.dpkg("--verify", "korvat"), "")
        check_run_of_example(self, ["/usr/bin/korvat"], "jacket", fresh_run_directory(
            "run-installed", root / DOCUMENTS / "examples/jacket/KORVAT.INP"))
        check_tools_on_case(self, ["/usr/bin/korvat-tools"], SCRATCH / "run-installed")

        self.dpkg("--remove", "korvat")
        self.assertFalse(self.is_known())
        for path in (PROGRAM, TOOLS, MANUAL, *TOOLS_MANUALS, *COMPLETIONS.values(), DOCUMENTS):
            self.assertFalse((root / path).exists(), path)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
