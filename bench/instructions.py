"""Which work the instructions of a run do, counted by callgrind function by function."""
import re
import subprocess
from collections import defaultdict

KINDS = ("lines", "reading", "records", "computing", "start and end")

# A function does the work of the first pattern that it matches. One that matches none, of the runtime, the C library or
# a file of its own, does that of its callers, in proportion to what each of them spends in it.
PATTERNS = [
    (kind, re.compile(pattern))
    for kind, pattern in (
        ("reading", r"^korvat::fortran::(Runtime::(read_|skip_line|rewind)|UnitStream::(read_line|take_line|refill|skip)|LineReader::"
                    r"|ListDirected|convert_number|read_integers)"),
        ("reading", r"^korvat::(read\(|getnum|linerd|copy_without_comments|get_revision|loads\(|DeckReader::|Rev5Reader::|readpi|rev5inp)"),
        ("records", r"^(korvat::)?(RecordBuilder::|RecordFile::|save\()|::StreamWriter::"),
        ("lines", r"^(void )?korvat::fortran::(Runtime::|edit_|put_items|FormatProgram|EditDescriptors|internal_write|UnitStream::|TextSink)"),
        ("computing", r"^korvat::(build|discretise|section_propert|yldsrf|capacity|write_|printpil|sketch|echo)"),
    )
]  # fmt: skip
ROOT_KIND = "start and end"
PASSES = 60  # more than the longest chain of calls


def own_kind(name):
    return next((kind for kind, pattern in PATTERNS if pattern.search(name)), None)


def read_profile(text):
    """What each function spends itself, and what each caller spends in each function that it calls."""
    own, calls, names = defaultdict(int), defaultdict(int), {}
    function = called = None
    is_call = False

    def full_name(field):
        number, _, name = field.partition(" ")
        return names.setdefault(number, name)

    for line in text.splitlines():
        if line.startswith("fn="):
            function = full_name(line[3:])
        elif line.startswith("cfn="):
            called = full_name(line[4:])
        elif line.startswith("calls="):
            is_call = True
        elif function is not None and re.match(r"[+\-*\d]", line):
            cost = int(line.split()[1]) if len(line.split()) > 1 else 0
            if is_call:
                calls[function, called] += cost
                is_call = False
            else:
                own[function] += cost
    return own, calls


def kinds_of(functions, calls):
    """For each function the part of its work that is of each kind."""
    parts = {f: {own_kind(f) or ROOT_KIND: 1.0} for f in functions}
    callers = defaultdict(dict)
    for (caller, called), cost in calls.items():
        if cost > 0 and caller != called and own_kind(called) is None:
            callers[called][caller] = cost
    for _ in range(PASSES):
        for called, costs in callers.items():
            whole = sum(costs.values())
            mixed = defaultdict(float)
            for caller, cost in costs.items():
                for kind, part in parts[caller].items():
                    mixed[kind] += part * cost / whole
            parts[called] = mixed
    return parts


def count_by_kind(text):
    own, calls = read_profile(text)
    functions = set(own) | {name for pair in calls for name in pair}
    parts = kinds_of(functions, calls)
    counts = dict.fromkeys(KINDS, 0.0)
    for function, cost in own.items():
        for kind, part in parts[function].items():
            counts[kind] += cost * part
    return counts


def count(program, directory):
    """Runs the program under callgrind in a directory with a deck."""
    profile = directory / "callgrind.out"
    command = ["valgrind", "--tool=callgrind", f"--callgrind-out-file={profile}", str(program)]
    subprocess.run(command, cwd=directory, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return count_by_kind(profile.read_text())
