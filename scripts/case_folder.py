"""Reads and writes expected/run of a case folder: the exit code, and the files there after the run."""

NO_RECORDS = b"K\x82"  # a record file's first byte and its last


def exit_code(case):
    """The expected exit code of a case; None where there is no such case."""
    path = case / "expected" / "run"
    return int(path.read_text().splitlines()[0].removeprefix("exit code ")) if path.is_file() else None


def files_after_run(case):
    """The names that the case expects in its directory, the deck among them."""
    return [line.split()[0] for line in (case / "expected" / "run").read_text().splitlines()[1:]]


def word_for(path):
    """What is said of a file that needs no expected file of its own."""
    if path.is_dir():
        return " directory"
    return {b"": " empty", NO_RECORDS: " no records"}.get(path.read_bytes(), "")


def described_run(code, directory):
    """The text of expected/run for a run that ended with a code and left a directory."""
    entries = sorted(directory.iterdir(), key=lambda path: path.name.encode())
    return "".join([f"exit code {code}\n", *(f"{path.name}{word_for(path)}\n" for path in entries)])
