#!/usr/bin/env python3
"""Fails when a page of the guide names a text that is not on the screen.

What a page sets in bold is read on the screen: in the forms and translated literals on the English
pages, in the German catalogue on the German ones. What it sets as code is a line of the message
log, or how one begins. Quotation marks would hide a text from this check and are not used.
Pictures are in the language of the page, and steps of the tour.
"""

import re
import sys

import screentexts

GUIDE = screentexts.PROJECT / "docs" / "guide"

# The least number of letters besides the placeholders by which a text can be recognised.
FEWEST_LETTERS = 6

# The buttons of message boxes come from Qt and its own translations.
BUTTONS = {"en": {"Yes", "No", "OK", "Cancel"}, "de": {"Ja", "Nein", "OK", "Abbrechen"}}


def with_lines(texts):
    """The texts and each of their lines: a page may quote one line of a box."""
    found = set()
    for text in texts:
        found.add(screentexts.shown(text))
        found.update(screentexts.shown(line) for line in text.split("\n"))
    return found


def screen_texts(language):
    if language == "en":
        texts = screentexts.form_texts()
        texts += [
            literal.text for _, literal in screentexts.module_literals() if literal.is_translated()
        ]
    else:
        texts = [text for found in screentexts.catalogue(language).values() for text in found]
    return with_lines(texts) | BUTTONS[language]


def untranslated_texts():
    """Words of a cell that are the same in every language."""
    return {
        screentexts.shown(literal.text)
        for path, literal in screentexts.module_literals()
        if path.suffix == ".cpp" and literal.calls[-1:] == ["QStringLiteral"]
        and not literal.is_log_line()
        and "%" not in literal.text
    }


def patterns(texts):
    """One expression for all texts, except those with few letters, which would match any text."""
    with_words = [
        text
        for text in texts
        if "%" not in text or len(re.findall(r"[^\W\d_]", re.sub(r"%\d+", "", text))) >= FEWEST_LETTERS
    ]
    return re.compile("|".join(f"(?:{screentexts.pattern(text)})" for text in sorted(with_words)))


def prose(page):
    text = page.read_text(encoding="utf-8")
    return re.sub(r"\]\([^)]*\)", "]", text)


def joined(text):
    return " ".join(text.split())


def problems_of(page, texts, log_lines):
    text = prose(page)
    for span in re.findall(r"\*\*(.+?)\*\*", text, re.S):
        if not texts.fullmatch(joined(span)):
            yield f"no text of the screen: {joined(span)}"
    for span in re.findall(r"`(.+?)`", text, re.S):
        line = joined(span)
        if not log_lines.fullmatch(line) and not is_beginning(line):
            yield f"no line of the message log: {line}"
    for mark in re.findall(r"[\"“”„‚‘]", text):
        yield f"quotation mark {mark}: set what is on the screen in bold"
    for picture in re.findall(r"!\[[^\]]*\]\(([^)]*)\)", page.read_text(encoding="utf-8")):
        if not (page.parent / picture).exists():
            yield f"no picture {picture}"
        if not picture.startswith(f"../pictures/{page.parent.name}-"):
            yield f"not in the language of the page: {picture}"


def problems_of_pictures():
    """The contradictions between the script that takes the pictures, the tour and the files."""
    script = (GUIDE / "make-pictures.sh").read_text(encoding="utf-8")
    tour = "".join(
        path.read_text(encoding="utf-8")
        for path in sorted((screentexts.PROJECT / "scenarios").glob("tour*.script"))
    )
    shown = set(re.findall(r"^ *screenshot (\S+)", tour, re.M))
    rows = re.findall(r"^(\w+) +(\S+) +(german-\S+)$", script, re.M)
    steps = [step for row in rows for step in row[1:]]
    steps += re.findall(r"^take (\w\S*) pictures/", script, re.M)
    if not rows:
        yield "make-pictures.sh: no pictures"
    for step in steps:
        if step not in shown:
            yield f"make-pictures.sh: the tour takes no picture {step}"
    taken = {f"{language}-{row[0]}.png" for row in rows for language in BUTTONS}
    for picture in taken ^ {path.name for path in (GUIDE / "pictures").glob("*.png")}:
        yield f"make-pictures.sh or pictures/: {picture} is missing in one of them"


def is_beginning(start):
    return len(start.split()) > 2 and any(
        line.startswith(start + " ") for line in screentexts.log_lines()
    )


def problems():
    names = {}
    log_lines = patterns(screentexts.log_lines())
    for language in BUTTONS:
        texts = patterns(screen_texts(language) | untranslated_texts())
        pages = sorted((GUIDE / language).glob("*.md"))
        names[language] = {page.name for page in pages}
        for page in pages:
            for problem in problems_of(page, texts, log_lines):
                yield f"docs/guide/{language}/{page.name}: {problem}"
    yield from problems_of_pictures()
    for name in names["en"] ^ names["de"]:
        yield f"docs/guide: {name} is missing in one language"
    for name in names["en"]:
        if f"en/{name}" not in (GUIDE / "README.md").read_text(encoding="utf-8"):
            yield f"docs/guide/README.md: no link to {name}"


def main():
    found = list(problems())
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
