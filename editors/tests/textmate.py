"""Reads a TextMate grammar as editors do: line by line, with Oniguruma, the library of regular expressions for which the form was made."""

from __future__ import annotations

import ctypes
import ctypes.util
import json
import pathlib
from typing import Any


class _Region(ctypes.Structure):
    _fields_ = [
        ("allocated", ctypes.c_int),
        ("num_regs", ctypes.c_int),
        ("beg", ctypes.POINTER(ctypes.c_int)),
        ("end", ctypes.POINTER(ctypes.c_int)),
        ("history_root", ctypes.c_void_p),
    ]


_onig = ctypes.CDLL(ctypes.util.find_library("onig") or "libonig.so.5")
_onig.onig_region_new.restype = ctypes.POINTER(_Region)
_onig.onig_search.restype = ctypes.c_int
_onig.onig_search.argtypes = [ctypes.c_void_p] * 5 + [ctypes.POINTER(_Region), ctypes.c_uint]
_onig.onig_new.argtypes = [ctypes.POINTER(ctypes.c_void_p), ctypes.c_void_p, ctypes.c_void_p, ctypes.c_uint] + [ctypes.c_void_p] * 3
_encoding = ctypes.addressof(ctypes.c_char.in_dll(_onig, "OnigEncodingASCII"))
_syntax = ctypes.c_void_p.in_dll(_onig, "OnigDefaultSyntax").value


class Expression:
    """A compiled expression; texts are of one byte for each character."""

    def __init__(self, pattern: str) -> None:
        data = ctypes.create_string_buffer(pattern.encode("ascii"))
        self._expression = ctypes.c_void_p()
        start = ctypes.addressof(data)
        information = ctypes.create_string_buffer(64)
        code = _onig.onig_new(
            ctypes.byref(self._expression), start, start + len(pattern), 0, _encoding, _syntax, ctypes.addressof(information)
        )
        if code != 0:
            raise ValueError(f"{pattern}: error {code} of Oniguruma")
        self._region = _onig.onig_region_new()

    def search(self, text: bytes, at: int) -> list[tuple[int, int]] | None:
        """The places of the first match from there on, of the whole and of each group; None where there is none."""
        data = ctypes.create_string_buffer(text)
        start = ctypes.addressof(data)
        end = start + len(text)
        if _onig.onig_search(self._expression, start, end, start + at, end, self._region, 0) < 0:
            return None
        region = self._region.contents
        return [(region.beg[i], region.end[i]) for i in range(region.num_regs)]


class Grammar:
    """A grammar of match, begin/end, captures with patterns, include of the repository, name and contentName."""

    def __init__(self, path: pathlib.Path) -> None:
        self._grammar = json.loads(path.read_text(encoding="utf-8"))
        self._compiled: dict[str, Expression] = {}

    def _search(self, pattern: str, text: bytes, at: int, is_first: bool) -> list[tuple[int, int]] | None:
        # \A is the start of the file, not of the line that is handed in.
        if not is_first:
            pattern = pattern.replace("\\A", "(?!)")
        if pattern not in self._compiled:
            self._compiled[pattern] = Expression(pattern)
        return self._compiled[pattern].search(text, at)

    def _rules(self, patterns: list[dict[str, Any]]) -> list[dict[str, Any]]:
        rules = []
        for rule in patterns:
            if "include" in rule:
                rule = self._grammar["repository"][rule["include"].removeprefix("#")]
            if "match" in rule or "begin" in rule:
                rules.append(rule)
            else:
                rules += self._rules(rule["patterns"])
        return rules

    def _paint(self, scopes: list[str], place: tuple[int, int], name: str) -> None:
        for i in range(*place):
            scopes[i] = name

    def _paint_captures(
        self, captures: dict[str, Any], places: list[tuple[int, int]], text: bytes, scopes: list[str], is_first: bool
    ) -> None:
        for number, capture in captures.items():
            place = places[int(number)]
            if place[0] < 0:
                continue
            if "name" in capture:
                self._paint(scopes, place, capture["name"])
            if "patterns" in capture:
                # A text that is cut behind the group, so that its end is an end of line.
                self._tokenize([{"patterns": capture["patterns"]}], text[: place[1]], place[0], scopes, is_first and place[0] == 0)

    def _tokenize(self, stack: list[dict[str, Any]], text: bytes, at: int, scopes: list[str], is_first: bool) -> None:
        while at < len(text):
            rule = stack[-1]
            candidates = []
            if "end" in rule and (found := self._search(rule["end"], text, at, is_first)):
                candidates.append((found[0][0], found, None))
            for inner in self._rules(rule.get("patterns", [])):
                found = self._search(inner.get("match") or inner["begin"], text, at, is_first)
                if found:
                    candidates.append((found[0][0], found, inner))
            # Of several at the same place the first one counts; min keeps it.
            start, places, chosen = min(candidates, key=lambda candidate: candidate[0], default=(len(text), None, None))
            if "contentName" in rule:
                self._paint(scopes, (at, start), rule["contentName"])
            if places is None:
                return
            if chosen is None:
                stack.pop()
            elif "match" in chosen:
                if "name" in chosen:
                    self._paint(scopes, places[0], chosen["name"])
                self._paint_captures(chosen.get("captures", {}), places, text, scopes, is_first)
            else:
                self._paint_captures(chosen.get("beginCaptures", {}), places, text, scopes, is_first)
                stack.append(chosen)
            if places[0][1] == at and chosen is not None and "match" in chosen:
                return  # nothing was taken: an editor stops here too
            at = places[0][1]

    def scopes(self, lines: list[str]) -> list[list[str]]:
        """The innermost scope of each character of each line; "" where there is none."""
        stack: list[dict[str, Any]] = [{"patterns": self._grammar["patterns"]}]
        found = []
        for number, line in enumerate(lines):
            text = line.encode("latin-1") + b"\n"
            scopes = [""] * len(text)
            self._tokenize(stack, text, 0, scopes, number == 0)
            found.append(scopes[: len(line)])
        return found
