#!/usr/bin/env python3
"""Compares the korvat-tools of a Windows build, run under Wine, with that of this system: the same calls must end with
the same code and the same bytes on standard output and standard error, and leave the same files.

Usage: same_bytes_under_wine.py NATIVE_BUILD WINDOWS_BUILD SCRATCH
Wine's own settings (WINEPREFIX, DISPLAY, ...) are the caller's.
"""
import concurrent.futures
import dataclasses
import os
import pathlib
import re
import shutil
import subprocess
import sys

SOURCE = pathlib.Path(__file__).resolve().parents[2]
# Beside the examples: loads, dummy piles, composites, both revisions, runs that fail, and text that is none.
CASES = ("listing-dummy-and-pile", "loads-several-vectors", "rev5-composite", "rev5-points", "build-both-errors",
         "readpi-cross-section-error-4", "read-bad-number-comma", "linerd-end-of-file", "text-heading-as-comment",
         "text-crlf-error", "revision-date-no-break-space", "limits-label-100000")
# Western and Eastern letters and blanks, in no 8-bit code page together.
AWKWARD = "Pfähle der Südmole (Größe 2) Žatec 雪"
MOST_SECONDS = 120


@dataclasses.dataclass(frozen=True)
class Call:
    arguments: tuple
    standard_input: bytes = b""


def make_cases(directory, korvat):
    """Directories with decks and what korvat makes of them: the names of all, and of those that have results."""
    decks = {path.parent.name: path for path in sorted(SOURCE.glob("examples/*/KORVAT.INP"))}
    decks |= {name: SOURCE / "tests/cases" / name / "KORVAT.INP" for name in CASES}
    decks[AWKWARD] = decks["barge-impact"]
    sound = []
    for name, deck in decks.items():
        case = directory / name
        case.mkdir(parents=True)
        shutil.copy(deck, case)
        if subprocess.run([korvat], cwd=case, capture_output=True).returncode == 0:
            sound.append(name)
    (directory / "cut").write_bytes((directory / "dolphin/PILE.07").read_bytes()[:5000])
    (directory / "zeros").write_bytes(bytes(5000))
    jacket = decks["jacket"].read_text()
    (directory / "study.inp").write_text(jacket.replace("  1   1    1.524     0.050 ", "  1   1    {d}     {wall:.3f} "))
    (directory / "study.csv").write_text("wall,name\n0.050,dünn\n0.060,dick\n")
    rules = directory / "rules"
    rules.mkdir()
    shutil.copy(decks["jacket"], rules / "Revision Ä.txt")
    (rules / "korvat-check.toml").write_text('[off]\nelement-long = "Länge geprüft"\n')
    return list(decks), sound


def calls_for(directory, names, sound):
    calls = [Call(("check", name)) for name in names]
    calls += [Call(("check", "--format", form, *names)) for form in ("json", "sarif")]
    calls += [Call(("check", "--strict", "rules/Revision Ä.txt")), Call(("check", "nowhere/雪")), Call(("check", "rules")),
              Call(("check", "-"), (directory / AWKWARD / "KORVAT.INP").read_bytes()),
              Call(("check", "-"), b"\x1a\r\n\xff\xfe\x00"), Call(("check", "--rules")), Call(("check", "zeros"))]
    for name in names:
        files = [f"{name}/{file}" for file in ("PILE.07", "LOAD.09") if (directory / name / file).exists()]
        calls += [Call(("dump", *form, file)) for file in files for form in ((), ("--json",), ("--records",))]
        calls.append(Call(("report", "-o", "-", name)))
        calls.append(Call(("export", "--to", "vtp,vtu,csv,json", "-o", f"out/{name}", name)))
    calls += [Call(("dump", *form, file)) for file in ("cut", "zeros") for form in ((), ("--records",))]
    piles = (directory / AWKWARD / "PILE.07").read_bytes()
    calls += [Call(("dump", "-"), piles), Call(("dump", "--records", "-"), piles), Call(("dump", "absent")),
              Call(("diff", f"{AWKWARD}/PILE.07", "-"), piles), Call(("diff", "absent", AWKWARD)),
              Call(("diff", AWKWARD, "cut")), Call(("export", "--to", "csv", "-o", "out/cut", "cut"))]
    for a, b in zip(sound, sound[1:]):
        calls += [Call(("report", "-o", "-", "--no-3d", "--compare", a, b)),
                  Call(("diff", a, b)), Call(("diff", "--json", "--rel", "1e-3", a, b))]
    study = ("sweep", "study.inp", "study.csv", "--grid", "d=1.524:1.724:0.1")
    calls += [Call((*study, "-o", f"out/{AWKWARD}")), Call((*study, "--name", "name", "-o", "out/study")),
              Call(("sweep", "study.inp", "--grid", "wall=0.05,0.06", "--grid", "d=1.5", "-o", "out/grid"))]
    calls += [Call(("--version",)), Call(("--help",)), Call(("help", "check")), Call(("help", "diff", "--man")),
              Call(("completion", "bash")), Call(("check",)), Call(("chekc",)), Call(("dump", "--jsn", "/cut"))]
    return calls


def outcome(program, directory, call):
    run = subprocess.run([*program, *call.arguments], cwd=directory, input=call.standard_input, capture_output=True,
                         timeout=MOST_SECONDS)
    # The log in a report names the time and the machine.
    output = re.sub(rb'(<section id="log">).*?(</section>)', rb"\1\2", run.stdout, flags=re.DOTALL)
    return {"exit code": run.returncode, "standard output": output, "standard error": run.stderr}


def first_difference(here, there):
    for what, value in here.items():
        if value == there[what]:
            continue
        if isinstance(value, int):
            return f"{what} {value}, under Wine {there[what]}"
        lines = [text.splitlines(keepends=True) + [b""] for text in (value, there[what])]
        pairs = list(zip(*lines))
        a, b = next(((a, b) for a, b in pairs if a != b), pairs[-1])
        return f"{what}: {a[:200]!r}, under Wine {b[:200]!r}"
    return None


def files_below(directory):
    return {path.relative_to(directory).as_posix(): path.read_bytes() for path in directory.rglob("*") if path.is_file()}


def scratch_directories():
    """What runs have left in the directories of Wine for temporary files."""
    places = [path for path in pathlib.Path(os.environ["WINEPREFIX"]).glob("drive_c/users/*/AppData/Local/Temp")]
    places += [path for path in pathlib.Path(os.environ["WINEPREFIX"]).glob("drive_c/users/*/Temp")]
    if not places:
        sys.exit("no directory for temporary files below WINEPREFIX")
    return [path for place in places for path in place.glob("korvat-*") if not path.name.startswith("korvat-test-")]


def main():
    native, windows, scratch = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    shutil.rmtree(scratch, ignore_errors=True)
    here, there = scratch / "native", scratch / "windows"
    names, sound = make_cases(here, native / "korvat")
    shutil.copytree(here, there)
    calls = calls_for(here, names, sound)
    before = set(files_below(here))

    def compare(call):
        return first_difference(outcome([native / "korvat-tools"], here, call),
                                outcome(["wine", windows / "korvat-tools.exe"], there, call))

    faults = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for call, difference in zip(calls, pool.map(compare, calls)):
            if difference:
                faults.append(f"korvat-tools {' '.join(call.arguments)}: {difference}")
    files, other = files_below(here), files_below(there)
    faults += [f"{name}: not the same file under Wine" for name in sorted(files | other) if files.get(name) != other.get(name)]
    written = {name for name in set(files) - before if name.startswith("out/")}
    if set(files) - before - written:
        faults.append(f"written into the cases: {sorted(set(files) - before - written)}")
    faults += [f"left behind: {path}" for path in scratch_directories()]
    print("\n".join([*faults, f"{len(calls)} calls of korvat-tools, {len(written)} exported files: "
                     f"{len(faults)} differences between the systems"]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
