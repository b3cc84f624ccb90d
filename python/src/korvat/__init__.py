"""Reads the files of KORVAT into numpy arrays, runs it, and builds its decks.

read_pile, read_load, read_plot: PILE.07, LOAD.09 and PILEPLOT.TXT; run: a run in a directory; Deck: a deck of either revision.
"""

from .deck import Deck, Tube
from .errors import DamagedFile, DeckError, KorvatError, ProgramNotFound, RunFailed
from .load_file import LOAD_DTYPE, LoadFile, LoadVector, read_load
from .pile_file import CURVE_DTYPE, ELEMENT_DTYPE, NODE_DTYPE, SECTION_DTYPE, Pile, PileFile, read_pile
from .plot_file import PlotFile, PlotPile, read_plot
from .program import Message, Run, find_program, run

__all__ = [
    "CURVE_DTYPE",
    "DamagedFile",
    "Deck",
    "DeckError",
    "ELEMENT_DTYPE",
    "KorvatError",
    "LOAD_DTYPE",
    "LoadFile",
    "LoadVector",
    "Message",
    "NODE_DTYPE",
    "Pile",
    "PileFile",
    "PlotFile",
    "PlotPile",
    "ProgramNotFound",
    "Run",
    "RunFailed",
    "SECTION_DTYPE",
    "Tube",
    "find_program",
    "read_load",
    "read_pile",
    "read_plot",
    "run",
]
