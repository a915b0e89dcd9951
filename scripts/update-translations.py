#!/usr/bin/env python3
"""Brings the source texts of the catalogues translations/lumacfg_<language>.ts up to date.

    scripts/update-translations.py           updates the catalogues
    scripts/update-translations.py --check   changes nothing; fails when a catalogue lacks a
                                             source text, holds one no longer used, or has an
                                             unfinished translation (a test runs this)

The windows show English texts from four places, and every one of them is a source text:
  - the views' own texts, QCoreApplication::translate("lumacfg", ...) and the message templates
    of src/ui/dialog/qt/translation.cpp, which Qt's lupdate extracts;
  - the string table and the caption blocks (src/resources/*.txt), except the font's name and
    size, the language tag and texts without a letter;
  - the models' own captions (MODEL_TEXTS below: keep it in step with src/ui/*/*.cpp);
  - the captions as the views mark their mnemonics ("&Save"): kept from the catalogue as they
    stand (a caption without its marked form is shown through the caption alone).
An existing translation is kept; a new source text is added unfinished, for a translator to
write (Qt Linguist, or by hand); a source text that no longer comes from anywhere is dropped.
Python's standard library and Qt's lupdate only.
"""

import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CONTEXT = "lumacfg"
LANGUAGES = {"de": "de_DE", "ja": "ja_JP"}
LUPDATE = os.environ.get("LUPDATE", "/usr/lib/qt6/bin/lupdate")
VIEW_FOLDERS = ["src/ui", "src/app/gui"]
RESOURCE_FILES = ["src/resources/strings.txt", "src/resources/captions_asx500.txt"]
# String table numbers that are no caption: the font's name and size, the language tag.
NOT_SHOWN = {("strings.txt", 1), ("strings.txt", 2), ("strings.txt", 173)}

# The captions and messages that the models write themselves (outside the string table).
MODEL_TEXTS = [
    "User name:",
    "Password:",
    "Checking the user name and password...",
    "Custom Trays",
    "Custom Racks",
    "COM port for V-AS:",
    "sec",
    "&Trays:",
    "&Racks:",
    "&New",
    "Co&py",
    "&Delete",
    "(none)",
    "(missing)",
    "The loader accepts this entry.",
    "No custom tray is defined.",
    "Open File",
    "Save File",
]


def unescape(text):
    """A resource text as the program reads it (escapes of resource_text.cpp, Windows-1252)."""
    raw = bytearray()
    i = 0
    while i < len(text):
        if text[i] == "\\" and i + 1 < len(text):
            code = text[i + 1]
            if code == "x":
                raw.append(int(text[i + 2:i + 4], 16))
                i += 4
                continue
            raw.extend({"n": b"\n", "r": b"\r", "t": b"\t", "\\": b"\\"}.get(code, code.encode()))
            i += 2
            continue
        raw.extend(text[i].encode("cp1252"))
        i += 1
    return raw.decode("cp1252")


def resource_texts():
    texts = []
    for name in RESOURCE_FILES:
        path = ROOT / name
        for line in path.read_bytes().decode("cp1252").splitlines():
            if not line or line.startswith("#") or "\t" not in line:
                continue
            number, text = line.split("\t", 1)
            text = unescape(text)
            if (path.name, int(number)) in NOT_SHOWN or not re.search(r"[A-Za-z]", text):
                continue
            texts.append(text)
    return texts


def view_texts():
    """The source texts lupdate finds in the views, context "lumacfg" only."""
    with tempfile.TemporaryDirectory() as folder:
        ts = Path(folder) / "views.ts"
        subprocess.run([LUPDATE, "-silent", "-no-obsolete", "-locations", "none",
                        *[str(ROOT / f) for f in VIEW_FOLDERS], "-ts", str(ts)], check=True)
        tree = ET.parse(ts)
    return [message.findtext("source") for context in tree.getroot().iter("context")
            if context.findtext("name") == CONTEXT for message in context.iter("message")]


def existing_translations(path):
    """source -> (translation, finished) of a catalogue, empty when there is none yet."""
    if not path.exists():
        return {}
    entries = {}
    for message in ET.parse(path).getroot().iter("message"):
        translation = message.find("translation")
        entries[message.findtext("source")] = (translation.text or "",
                                               translation.get("type") is None)
    return entries


def write_catalogue(path, language, sources, translations):
    root = ET.Element("TS", version="2.1", language=language, sourcelanguage="en")
    context = ET.SubElement(root, "context")
    ET.SubElement(context, "name").text = CONTEXT
    for source in sources:
        message = ET.SubElement(context, "message")
        ET.SubElement(message, "source").text = source
        text, finished = translations.get(source, ("", False))
        translation = ET.SubElement(message, "translation")
        translation.text = text
        if not finished:
            translation.set("type", "unfinished")
    ET.indent(root)
    with open(path, "w", encoding="utf-8") as out:
        out.write('<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n')
        out.write(ET.tostring(root, encoding="unicode"))
        out.write("\n")


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        print(__doc__, file=sys.stderr)
        return 2
    generated = view_texts() + resource_texts() + MODEL_TEXTS
    stale = False
    for short, language in LANGUAGES.items():
        path = ROOT / "translations" / f"lumacfg_{short}.ts"
        translations = existing_translations(path)
        marked = [s for s in translations if "&" in s and s not in generated]
        sources = list(dict.fromkeys(generated + marked))
        dropped = sorted(set(translations) - set(sources))
        unfinished = [s for s in sources if not translations.get(s, ("", False))[1]]
        print(f"{path.relative_to(ROOT)}: {len(sources)} texts, {len(unfinished)} unfinished, "
              f"{len(dropped)} dropped")
        for source in dropped:
            print(f"  dropped: {source!r}")
        for source in unfinished:
            print(f"  unfinished: {source!r}")
        stale = stale or bool(dropped or unfinished)
        if not check:
            write_catalogue(path, language, sources, translations)
    return 1 if check and stale else 0


if __name__ == "__main__":
    sys.exit(main())
