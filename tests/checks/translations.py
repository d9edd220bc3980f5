"""The Chinese catalogue holds every text of the libraries' sources, and no other.

translations.py LUPDATE
"""

import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from project import ENGINE, LIBRARIES, LIBS, ROOT, finish

CATALOGUE = ENGINE / "resources" / "ZTDrawEngineLib_zh.ts"


def messages(path):
    """(context, source) -> translation element of each text in a catalogue."""
    found = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            found[context.findtext("name"), message.findtext("source")] = message.find("translation")
    return found


def texts_of_the_sources(lupdate):
    """The texts that lupdate finds when it starts from nothing."""
    with tempfile.TemporaryDirectory() as folder:
        fresh = Path(folder) / "fresh.ts"
        folders = [str(LIBS / library) for library in LIBRARIES]
        subprocess.run([lupdate, "-silent", *folders, "-ts", str(fresh)], check=True,
                       capture_output=True)
        return set(messages(fresh))


def main():
    lupdate = shutil.which(sys.argv[1])
    if not lupdate:
        sys.exit(f"translations: {sys.argv[1]}: no such program")
    problems = []
    translated = messages(CATALOGUE)
    used = texts_of_the_sources(lupdate)
    name = CATALOGUE.relative_to(ROOT)
    for context, source in sorted(used - set(translated)):
        problems.append(f"{name}: missing: {context}: {source}")
    for context, source in sorted(set(translated) - used):
        problems.append(f"{name}: unused: {context}: {source}")
    for (context, source), translation in sorted(translated.items()):
        if translation is None or not translation.text or translation.get("type"):
            problems.append(f"{name}: not translated: {context}: {source}")
        elif set(filter(str.isdigit, source)) - set(filter(str.isdigit, translation.text)):
            problems.append(f"{name}: loses an argument: {context}: {source}")
    if not used:
        problems.append("no text found in the sources")
    finish(problems, "translations")


main()
