"""What every package holds besides the program, and a run of the program from a package."""
import json
import pathlib
import re
import subprocess
import sys

SOURCE = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(SOURCE / "scripts"))
import case_folder

# Worked out by hand from the number of its nodes; see the README of the example.
JACKET_PILE_FILE_SIZE = 32026


def shared_documents():
    """Documents and examples, as paths in the source tree: without what only tests need."""
    found = set()
    for folder in ("docs", "examples", "editors"):
        for path in (SOURCE / folder).rglob("*"):
            relative = path.relative_to(SOURCE)
            if path.is_file() and path.suffix != ".1" and not {"expected", "tests"} & set(relative.parts):
                found.add(relative.as_posix())
    return found


def check_tools_on_case(test, command, case):
    """Looks with korvat-tools into a directory in which the jacket has run, of 4 piles of 38 elements each."""
    def called(*arguments):
        run = subprocess.run([*command, *arguments], cwd=case, stdin=subprocess.DEVNULL, capture_output=True, timeout=120)
        return run.returncode, run.stdout.decode(), run.stderr.decode()

    test.assertEqual(called("check", "."), (0, "4 piles, 152 elements, 5 sections: 0 errors, 0 warnings\n", ""))
    test.assertEqual(called("diff", "PILE.07", "."), (0, "", ""))
    test.assertEqual(called("export", "--to", "json", "-o", "made Ä", "."), (0, "made Ä/group.json\n", ""))
    group = json.loads((case / "made Ä/group.json").read_text())
    test.assertEqual(len(group["piles"]), 4)
    test.assertEqual(sum(len(pile["elements"]) for pile in group["piles"]), 152)


def check_links(test, folder):
    """Every link from one document or example to another leads to a file of the package."""
    links = 0
    for document in folder.rglob("*.md"):
        for target in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", document.read_text()):
            links += 1
            test.assertTrue((document.parent / target).is_file(), f"{document}: {target}")
    test.assertGreater(links, 10)


def check_run_of_example(test, command, example, run_directory):
    """Runs the program in a directory that holds the deck of an example; compares what it writes."""
    run = subprocess.run(command, cwd=run_directory, stdin=subprocess.DEVNULL,
                         capture_output=True, timeout=120)
    test.assertEqual(run.returncode, 0, run.stderr.decode(errors="replace"))
    case = SOURCE / "examples" / example
    expected = case / "expected"
    outputs = set(case_folder.files_after_run(case))
    test.assertLessEqual(outputs, {path.name for path in run_directory.iterdir()})
    log = (run_directory / "KORVAT.MLG").read_text()
    test.assertEqual(log.splitlines()[-1], " NORMAL EXIT FROM KORVAT".ljust(51))
    for name in ("PILEPLOT.TXT", "LOAD.09"):
        if (expected / name).exists():
            test.assertEqual((run_directory / name).read_bytes(), (expected / name).read_bytes(), name)
    if example == "jacket":
        test.assertEqual((run_directory / "PILE.07").stat().st_size, JACKET_PILE_FILE_SIZE)
    return log
