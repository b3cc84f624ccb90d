"""Numbers as they stand in a deck."""

from __future__ import annotations

import math
from decimal import Decimal

from .errors import DeckError

# Beyond these KORVAT refuses the exponent, or comes near the end of its range on its way.
LARGEST = 1e300
SMALLEST = 1e-300


def checked_real(value: object, name: str) -> float:
    """The value as a float that KORVAT can read; DeckError, with the name, for anything else."""
    try:
        number = float(value)  # type: ignore[arg-type]
    except (TypeError, ValueError):
        raise DeckError(f"{name}: {value!r} is not a number") from None
    if not math.isfinite(number):
        raise DeckError(f"{name}: {number} cannot stand in a deck")
    if number != 0.0 and not SMALLEST <= abs(number) <= LARGEST:
        raise DeckError(f"{name}: {number} is beyond {SMALLEST} to {LARGEST}")
    return number


def checked_whole(value: object, name: str) -> int:
    """The value as an int; DeckError, with the name, for a text and for a number that is not whole."""
    number = checked_real(value, name)
    if isinstance(value, str) or not number.is_integer():
        raise DeckError(f"{name}: {value!r} is not a whole number")
    return int(number)


def _laid_out(negative: bool, digits: str, exponent: int) -> str:
    """The text of 0.d1d2d3... * 10**(exponent + 1), without zeros that say nothing."""
    digits = digits.rstrip("0") or "0"
    sign = "-" if negative else ""
    if -4 <= exponent < 0:
        return f"{sign}0.{'0' * (-exponent - 1)}{digits}"
    if 0 <= exponent < 7:
        padded = digits.ljust(exponent + 2, "0")
        return f"{sign}{padded[: exponent + 1]}.{padded[exponent + 1 :]}"
    return f"{sign}{digits[0]}.{digits[1:] or '0'}E{exponent}"


def real_text(value: float) -> str:
    """The shortest decimal that is nearer to the value than to any other double, always with a point.

    It has at most 24 characters; a number of a deck may have 50. KORVAT's own conversion is not correctly rounded: what it makes of a
    decimal may differ from the value in the last bits, whatever the decimal.

    >>> real_text(0.025), real_text(-12.0), real_text(2.1e8), real_text(1.2e-5), real_text(0.0)
    ('0.025', '-12.0', '2.1E8', '1.2E-5', '0.')
    """
    if value == 0.0:
        return "0."
    sign, digits, exponent = Decimal(repr(value)).as_tuple()
    assert isinstance(exponent, int)
    text = "".join(map(str, digits)).lstrip("0")
    return _laid_out(sign == 1, text, exponent + len(text) - 1)
