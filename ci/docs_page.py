#!/usr/bin/env python3
"""A document as Doxygen takes it: docs_page.py FILE prints it. Links to what is no page of the site,
such as a source, become the name of it; a first line of a document that is not a heading gets one."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
# What docs/Doxyfile takes in.
TOPS = ("README.md", "CONTRIBUTING.md", "CHANGELOG.md", "docs", "examples")


def is_page(target):
    if target.suffix != ".md" or not target.is_file():
        return False
    relative = target.relative_to(ROOT).parts
    return relative[0] in TOPS


def page_name(target):
    """The name under which Doxygen knows a page by `{#name}`."""
    stem = "_".join(target.relative_to(ROOT).with_suffix("").parts)
    return "page_" + re.sub(r"\W", "_", stem)


def literal(found):
    """Code between doubled marks, in entities: every sign of it stands for itself."""
    return "<code>" + "".join(f"&#{ord(sign)};" for sign in found.group(1)) + "</code>"


def main():
    path = Path(sys.argv[1]).resolve()
    text = path.read_text(encoding="utf-8")

    def link(found):
        label, target = found.groups()
        if "://" in target:
            return found.group(0)
        if target.startswith("#"):
            return label
        whole = (path.parent / target.split("#")[0]).resolve()
        if whole == ROOT / "README.md":
            return f"[{label}](@ref index)"
        if is_page(whole):
            return f"[{label}](@ref {page_name(whole)})"
        return label

    text = re.sub(r"``([^`\n].*?[^`\n])``(?!`)", literal, text)
    parts = re.split(r"(^```.*?^```|`[^`\n]+`)", text, flags=re.S | re.M)
    for index in range(0, len(parts), 2):  # code between stays as it is
        parts[index] = re.sub(r"(?<!!)\[([^\]\[]+)\]\(([^)\s]+)\)", link, parts[index])
        parts[index] = re.sub(r"!\[([^\]]*)\]\([^)]*?([^/)]+)\)", r"![\1](\2)", parts[index])
        parts[index] = re.sub(r"</?[A-Z]+>", lambda tag: "\\" + tag.group(0), parts[index])
    for index in range(1, len(parts), 2):  # signs that would hide the last mark
        if not parts[index].startswith("```") and re.search(r"['\\]", parts[index]):
            parts[index] = re.sub(r"`(.*)`", literal, parts[index])
    text = "".join(parts)
    # A label that is code keeps its link.
    text = re.sub(r"\[(`[^`\n]+`)\]\(([^)\s]+)\)", link, text)
    if path != ROOT / "README.md":
        text = re.sub(r"\A# (.+)", rf"# \1 {{#{page_name(path)}}}", text, count=1)
    sys.stdout.write(text)


main()
