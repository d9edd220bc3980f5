"""The Chinese catalogues hold every text of their sources, and no other.

translations.py LUPDATE
"""

import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from project import ENGINE, LIBRARIES, LIBS, ROOT, finish

# Each catalogue, and the folders whose texts it holds.
CATALOGUES = {
    ENGINE / "resources" / "ZTDrawEngineLib_zh.ts": [LIBS / library for library in LIBRARIES],
    LIBS / "hostkit" / "resources" / "hostkit_zh.ts": [LIBS / "hostkit"],
    LIBS / "vectorkit" / "resources" / "vectorkit_zh.ts": [LIBS / "vectorkit"],
    LIBS / "codekit" / "resources" / "codekit_zh.ts": [LIBS / "codekit"],
    LIBS / "jobkit" / "resources" / "jobkit_zh.ts": [LIBS / "jobkit"],
    LIBS / "studio" / "resources" / "studio_zh.ts": [LIBS / "studio", ROOT / "apps" / "studio"],
    ROOT / "apps" / "ztmark" / "resources" / "ztmark_zh.ts":
        [ROOT / "apps" / "ztmark"],
    ROOT / "apps" / "fontbuilder" / "resources" / "fontbuilder_zh.ts":
        [ROOT / "apps" / "fontbuilder"],
    ROOT / "apps" / "common" / "resources" / "console_zh.ts": [ROOT / "apps" / "common"],
}

# The studio's table of commands marks its texts with TEXT.
OPTIONS = ["-I", str(LIBS), "-tr-function-alias", "QT_TR_NOOP+=TEXT"]


def messages(path):
    """(context, source) -> translation element of each text in a catalogue."""
    found = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            found[context.findtext("name"), message.findtext("source")] = message.find("translation")
    return found


def texts_of_the_sources(lupdate, folders):
    """The texts that lupdate finds when it starts from nothing."""
    with tempfile.TemporaryDirectory() as scratch:
        fresh = Path(scratch) / "fresh.ts"
        subprocess.run([lupdate, "-silent", *OPTIONS, *map(str, folders), "-ts", str(fresh)],
                       check=True, capture_output=True)
        return set(messages(fresh))


def problems_of(catalogue, used):
    """What is wrong with a catalogue for sources that use these texts."""
    problems = []
    translated = messages(catalogue)
    name = catalogue.relative_to(ROOT)
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
        problems.append(f"{name}: no text found in the sources")
    return problems


def main():
    lupdate = shutil.which(sys.argv[1])
    if not lupdate:
        sys.exit(f"translations: {sys.argv[1]}: no such program")
    problems = []
    for catalogue, folders in CATALOGUES.items():
        problems += problems_of(catalogue, texts_of_the_sources(lupdate, folders))
    finish(problems, "translations")


main()
