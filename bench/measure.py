"""Takes the figures: whole runs side by side, growth, lines and numbers through the door, shares of the instructions."""
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

import decks
import instructions

ROOT = pathlib.Path(__file__).resolve().parent.parent
OUTPUTS = ("KORVAT.LIS", "KORVAT.MLG", "PILEPLOT.TXT", "PILE.07", "LOAD.09")
GNU_TIME = "/usr/bin/time"
# A sample lasts at least this long, so that the clock and the start of the bench itself do not show.
SAMPLE_SECONDS = 0.03
MOST_REPEATS = 20


def example_decks(names=None):
    folders = sorted(path for path in (ROOT / "examples").iterdir() if (path / "KORVAT.INP").exists())
    return {path.name: (path / "KORVAT.INP").read_text() for path in folders if names is None or path.name in names}


def whole_decks(names=None):
    """Examples and generated groups, the text of each deck by its name."""
    made = {name: decks.deck(**group) for name, group in decks.GROUPS.items() if names is None or name in names}
    chosen = {**example_decks(names), **made}
    unknown = set(names or ()) - set(chosen)
    if unknown:
        raise SystemExit(f"bench: no deck {', '.join(sorted(unknown))}")
    return chosen


class Contender:
    """A command, and what stands in the fresh directory in which it runs."""

    def __init__(self, name, command, deck=None, exit_code=0):
        self.name, self.command, self.deck, self.exit_code = name, [str(c) for c in command], deck, exit_code

    def fresh(self, scratch):
        directory = pathlib.Path(tempfile.mkdtemp(dir=scratch))
        if self.deck is not None:
            (directory / "KORVAT.INP").write_text(self.deck)
        return directory

    def run(self, directory):
        """Starts the command and waits for it: seconds of the wall clock, of user and of system time."""
        silent = [(os.POSIX_SPAWN_OPEN, stream, os.devnull, os.O_WRONLY, 0) for stream in (1, 2)]
        os.chdir(directory)
        start = time.perf_counter()
        process = os.posix_spawn(self.command[0], self.command, os.environ, file_actions=silent)
        _, status, usage = os.wait4(process, 0)
        wall = time.perf_counter() - start
        os.chdir("/")
        code = os.waitstatus_to_exitcode(status)
        if code != self.exit_code:
            raise SystemExit(f"bench: {' '.join(self.command)} ends with {code}")
        return wall, usage.ru_utime, usage.ru_stime

    def sample(self, scratch, repeats):
        """Means of so many runs, one after the other, each in a directory of its own."""
        rooms = [self.fresh(scratch) for _ in range(repeats)]
        times = [self.run(room) for room in rooms]
        for room in rooms:
            shutil.rmtree(room)
        return [sum(column) / repeats for column in zip(*times)]


def side_by_side(figures, prefix, contenders, scratch, runs):
    """Takes a sample of each contender in every turn, in an order drawn anew, so that none always follows the same one."""
    order = random.Random(1)
    first = {c.name: c.sample(scratch, 1)[0] for c in contenders}  # warms up
    repeats = {name: max(1, min(MOST_REPEATS, round(SAMPLE_SECONDS / wall))) for name, wall in first.items()}
    for _ in range(runs):
        for contender in order.sample(contenders, len(contenders)):
            os.sync()  # what the one before has written is stored before the clock starts
            times = contender.sample(scratch, repeats[contender.name])
            for kind, seconds in zip(("wall", "user", "system"), times):
                figures.add(f"{prefix}/{contender.name}/{kind}", 1000.0 * seconds, "ms")


def peak_memory(contender, scratch):
    """MiB, of a process that GNU time starts: a child of this one would be charged with its pages."""
    room = contender.fresh(scratch)
    told = subprocess.run([GNU_TIME, "-f", "%M", *contender.command], cwd=room, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    shutil.rmtree(room)
    return int(told.stderr.split()[-1]) / 1024


def programs(program, before):
    return {"korvat": program, **({"before": before} if before else {})}


def whole(figures, options, scratch, group="whole"):
    """Each deck: the program against a copy of the files that it writes and against a process that does nothing."""
    for name, deck in whole_decks(options.decks).items():
        runs_of = [Contender(who, [path], deck) for who, path in programs(options.program, options.before).items()]
        room = runs_of[0].fresh(scratch)
        runs_of[0].run(room)
        written = [room / output for output in OUTPUTS if (room / output).exists()]
        figures.add(f"{group}/{name}/written", sum(path.stat().st_size for path in written), "bytes")
        copy = Contender("cp", ["/bin/cp", "--reflink=never", *written, "."])
        side_by_side(figures, f"{group}/{name}", [*runs_of, copy, Contender("true", ["/bin/true"])], scratch, options.runs)
        shutil.rmtree(room)
        for contender in runs_of if os.path.exists(GNU_TIME) else []:
            figures.add(f"{group}/{name}/{contender.name}/memory", peak_memory(contender, scratch), "MiB")
    if not os.path.exists(GNU_TIME):
        print(f"bench: {GNU_TIME} is missing, peak memory is not measured", file=sys.stderr)


def whole_in_memory(figures, options, scratch):
    whole(figures, options, scratch, "memory")


def empty(figures, options, scratch):
    """A run in an empty directory: start, a message, end."""
    runs_of = [Contender(who, [path], exit_code=1) for who, path in programs(options.program, options.before).items()]
    side_by_side(figures, "empty/directory", [*runs_of, Contender("true", ["/bin/true"])], scratch, options.runs)


def growth(figures, options, scratch):
    for series, (sizes, deck_of) in decks.SERIES.items():
        for size in sizes:
            deck = deck_of(size)
            contenders = [Contender(who, [path], deck) for who, path in programs(options.program, options.before).items()]
            side_by_side(figures, f"growth/{series}/{size}", contenders, scratch, options.runs)


def door(figures, options, scratch):
    build = ROOT / "build" / "release"
    subprocess.run(["cmake", "--build", build, "--target", "korvat_bench"], check=True, stdout=subprocess.DEVNULL)
    told = subprocess.run([build / "bench" / "korvat_bench", str(options.runs + 1), "50000"], cwd=scratch, check=True, stdout=subprocess.PIPE, text=True)
    lines = [line.split() for line in told.stdout.splitlines()]
    ways = {way for way, _, _ in lines}
    for way, count, seconds in lines[len(ways) :]:  # the first round warms up
        figures.add(f"door/{way}", int(count) / float(seconds) / 1e6, "million/s")


def shares(figures, options, scratch):
    """Of the instructions of a run of the largest group, those of each kind of work, in percent."""
    deck = decks.deck(**decks.GROUPS["largest"])
    for who, path in programs(options.program, options.before).items():
        room = Contender(who, [path], deck).fresh(scratch)
        counts = instructions.count(path, room)
        shutil.rmtree(room)
        for kind in instructions.KINDS:
            figures.add(f"shares/{who}/{kind}", 100.0 * counts[kind] / sum(counts.values()), "%")
        figures.add(f"shares/{who}/instructions", sum(counts.values()) / 1e6, "million")


GROUPS = {"whole": whole, "memory": whole_in_memory, "empty": empty, "door": door, "growth": growth, "shares": shares}
IN_MEMORY = ("memory", "growth")  # measured in the scratch that no disk disturbs
