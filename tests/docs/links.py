#!/usr/bin/env python3
"""Fails when a page links to a file or heading that does not exist."""

import re
import sys

import screentexts

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")


def pages():
    yield from sorted(screentexts.PROJECT.glob("*.md"))
    yield from sorted((screentexts.PROJECT / "docs").rglob("*.md"))


def without_code(text):
    text = re.sub(r"^```.*?^```", "", text, flags=re.M | re.S)
    return re.sub(r"`[^`\n]*`", "", text)


def anchors(page):
    """The anchors of a page's headings, as code hosts make them."""
    found = set()
    for heading in re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.M):
        words = re.sub(r"[^\w\- ]", "", heading.lower())
        found.add(words.strip().replace(" ", "-"))
    return found


def problems():
    for page in pages():
        for target in LINK.findall(without_code(page.read_text(encoding="utf-8"))):
            if re.match(r"[a-z]+:", target):
                continue
            path, _, anchor = target.partition("#")
            linked = (page.parent / path).resolve() if path else page
            place = page.relative_to(screentexts.PROJECT)
            if not linked.exists():
                yield f"{place}: there is no {target}"
            elif anchor and linked.suffix == ".md" and anchor not in anchors(linked):
                yield f"{place}: no heading {target}"


def main():
    found = list(problems())
    for problem in found:
        print(problem)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
