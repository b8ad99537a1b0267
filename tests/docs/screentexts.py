"""Reads from the sources the texts that the module shows and those that it writes into the log."""

import functools
import pathlib
import re
import xml.etree.ElementTree as ElementTree

PROJECT = pathlib.Path(__file__).resolve().parents[2]

# The functions that pass a literal to the translation.
TRANSLATING = {"tr", "translate", "translated", "QT_TR_NOOP", "QT_TRANSLATE_NOOP"}

TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<raw>\bR"(?P<mark>[^(\s]*)\((?P<rawtext>.*?)\)(?P=mark)")
      | (?P<string>"(?:[^"\\\n]|\\.)*")
      | (?P<char>'(?:[^'\\\n]|\\.)')
      | (?P<word>[A-Za-z_]\w*)
      | (?P<open>[(\[{])
      | (?P<close>[)\]}])
      | (?P<other>\S)""",
    re.VERBOSE | re.DOTALL,
)

ESCAPES = {"n": "\n", "t": "\t", "0": "\0", '"': '"', "\\": "\\", "'": "'"}

# The form of a failure that reaches the log through a table or a variable.
FAILURE = re.compile(r"^(Error: |Error during |Unable to |Could not |TrackingSettings: )\S")


class Literal:
    """A string literal (adjacent ones joined) and the calls that enclose it, the innermost last."""

    def __init__(self, text, calls):
        self.text = text
        self.calls = calls

    def is_translated(self):
        return any(call in TRANSLATING for call in self.calls)

    def is_log_line(self):
        if "log" in self.calls:
            return len(self.text.split()) > 1
        return bool(FAILURE.match(self.text)) and (
            not self.is_translated() or self.text.startswith("Error")
        )


def unescaped(literal):
    return re.sub(r"\\(.)", lambda match: ESCAPES.get(match[1], match[1]), literal[1:-1])


def literals(source):
    """All literals of a C++ source, in their order."""
    found = []
    calls = []
    word = ""
    joins = False
    for match in TOKEN.finditer(source):
        kind = match.lastgroup
        if kind == "comment":
            continue
        if kind in ("string", "raw", "rawtext", "mark"):
            text = match["rawtext"] if match["raw"] else unescaped(match["string"])
            if joins:
                found[-1].text += text
            else:
                found.append(Literal(text, [call for call in calls if call]))
            joins = True
            continue
        joins = False
        if kind == "open":
            calls.append(word)
            word = ""
        elif kind == "close":
            if calls:
                calls.pop()
            word = ""
        else:
            word = match["word"] if kind == "word" else ""
    return found


def module_sources():
    for folder in ("SourceFiles", "general"):
        for path in sorted((PROJECT / folder).rglob("*")):
            if path.suffix in (".cpp", ".h"):
                yield path


@functools.lru_cache(maxsize=None)
def module_literals():
    """The literals of the module, each with its file."""
    return [
        (path, literal)
        for path in module_sources()
        for literal in literals(path.read_text(encoding="utf-8"))
    ]


def form_texts():
    texts = []
    for path in sorted((PROJECT / "forms").glob("*.ui")):
        for string in ElementTree.parse(path).iter("string"):
            if string.get("notr") != "true" and string.text:
                texts.append(string.text)
    return texts


def catalogue(language):
    """The translations of a language's catalogue, by their source texts."""
    path = PROJECT / "translations" / f"trackingsettings_{language}.ts"
    pairs = {}
    for message in ElementTree.parse(path).iter("message"):
        translation = message.find("translation")
        forms = [form.text for form in translation.iter("numerusform")] or [translation.text]
        pairs.setdefault(message.findtext("source"), set()).update(filter(None, forms))
    return pairs


def shown(text):
    """A text as the screen shows it: on one line, without markup and without marks of access keys."""
    if "<" in text and ">" in text and re.search(r"</?[a-zA-Z][^<>]*>", text):
        text = re.sub(r"<[^<>]*>", " ", text)
        for entity, sign in (("&nbsp;", " "), ("&lt;", "<"), ("&gt;", ">"), ("&amp;", "&")):
            text = text.replace(entity, sign)
    else:
        text = re.sub(r"&(.)", r"\1", text)
    return " ".join(text.split())


def english_texts():
    texts = {shown(text) for text in form_texts()}
    texts.update(shown(literal.text) for _, literal in module_literals() if literal.is_translated())
    return texts


def german_texts():
    return {shown(text) for texts in catalogue("de").values() for text in texts}


@functools.lru_cache(maxsize=None)
def log_lines():
    return sorted({shown_line(literal) for _, literal in module_literals() if literal.is_log_line()})


def shown_line(literal):
    return " ".join(literal.text.split())


def pattern(text):
    """An expression for a text, in which any text fits the placeholders."""
    parts = re.split(r"%\d+|%n", text)
    return ".+".join(re.escape(part) for part in parts)
