"""What every package holds besides the program, and a run of the program from a package."""
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
    for folder in ("docs", "examples"):
        for path in (SOURCE / folder).rglob("*"):
            relative = path.relative_to(SOURCE)
            if path.is_file() and path.suffix != ".1" and "expected" not in relative.parts:
                found.add(relative.as_posix())
    return found


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
