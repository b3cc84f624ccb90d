"""The entries of docs/messages.md: their texts, and what they say about them."""
import re

import message_formats

DOCUMENT = message_formats.ROOT / "docs" / "messages.md"
BLOCK = re.compile(r"^```text\n(.*?)\n```$", re.M | re.S)
FIELDS = ("Meaning", "Usual cause", "What to do", "Exit code")


def entries(document):
    """Headings of level 3 with what stands below them."""
    parts = re.split(r"^(#{2,3} .*)$", document, flags=re.M)
    return [(head[4:], body) for head, body in zip(parts[1::2], parts[2::2]) if head.startswith("### ")]


def is_shown_by(message, text):
    """Whether the lines of a text of the document are those of a message."""
    if message.is_format:
        return message.lines() == text
    return any(line.strip().startswith(message.text.strip()) for line in text)


def blocks(body):
    """The texts of an entry, as lines."""
    return [block.split("\n") for block in BLOCK.findall(body)]


def field(body, name):
    """What an entry says, as plain text on one line."""
    found = re.search(rf"^- {name}: (.*?)(?=^- |^\||^#|^$)", body, re.M | re.S)
    return plain(found.group(1)) if found else ""


def numbers(body):
    """The error numbers that the table of an entry explains, with their texts."""
    found = []
    for table in re.findall(r"^\| IERR \|.*\n\|[-:| ]+\|\n((?:\|.*\n?)*)", body, re.M):
        for row in table.splitlines():
            cells = [cell.strip() for cell in row.strip("|").split("|")]
            found.append((int(cells[0]), plain(cells[-1])))
    return found


def plain(text):
    """Without the marks of Markdown, on one line."""
    text = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", text)
    text = text.replace("**", "").replace("`", "").replace("\\*", "*")
    text = re.sub(r"(?<!\S)\*(\S[^*]*\S|\S)\*", r"\1", text)
    return " ".join(text.split())
