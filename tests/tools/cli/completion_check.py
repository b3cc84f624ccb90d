#!/usr/bin/env python3
"""Loads the completion scripts into the real shells and completes with them: completion_check.py KORVAT-TOOLS"""
import os
import subprocess
import sys
import tempfile

TOOL = sys.argv[1]
FOLDER = os.path.dirname(os.path.abspath(TOOL))


def script(shell):
    return subprocess.run([TOOL, "completion", shell], capture_output=True, text=True, check=True).stdout


def told(command, **options):
    done = subprocess.run(command, capture_output=True, text=True, **options)
    if done.returncode != 0 or done.stderr:
        sys.exit(f"{command}: exit code {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


def bash(*words):
    listed = " ".join(f"'{word}'" for word in words)
    call = f'COMP_WORDS=(korvat-tools {listed}); COMP_CWORD={len(words)}; _korvat_tools; printf "%s\\n" "${{COMPREPLY[@]}}"'
    return told(["bash", "-c", script("bash") + call]).split()


def fish(line):
    with tempfile.TemporaryDirectory() as home:
        environment = {"HOME": home, "PATH": FOLDER + ":" + os.environ["PATH"]}
        lines = told(["fish", "-c", script("fish") + f"complete -C 'korvat-tools {line}'"], env=environment).splitlines()
    return [line.split("\t")[0] for line in lines]


def require(found, expected):
    if found != expected:
        sys.exit(f"completed {found}, not {expected}")


require(bash("hel"), ["help"])
require(bash("help", "--m"), ["--man"])
require(bash("help", "comp"), ["completion"])
require(bash("completion", "--h"), ["--help"])
require(bash("completion", "b"), ["bash"])
require(fish("hel"), ["help"])
require(fish("completion z"), ["zsh"])
require(fish("help --m"), ["--man"])
with tempfile.TemporaryDirectory() as folder:
    path = os.path.join(folder, "_korvat-tools")
    with open(path, "w") as file:
        file.write(script("zsh"))
    told(["zsh", "-n", path])
    # The functions that complete are zsh's own; what they are given is shown here.
    shown = told(["zsh", "-fc", "_describe() { print -l ${(P)2} }; _arguments() { print -l -- $@ }; "
                  "words=(korvat-tools ''); CURRENT=2; . $1; words=(korvat-tools help --m); CURRENT=3; _korvat_tools",
                  "zsh", path]).splitlines()
require([line for line in shown if line.startswith(("help:", "--man"))],
        ["help:Show the help of a command", "--man[as a manual page, in roff]"])
print("bash, fish and zsh complete")
