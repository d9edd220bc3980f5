"""The README's host is the example host, word for word, and its links lead somewhere."""

import re

from project import ROOT, finish


def main():
    problems = []
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    snippets = re.findall(r"```cpp\n(.*?)```", readme, re.S)
    example = (ROOT / "examples/minimal-host/main.cpp").read_text(encoding="utf-8")
    if example not in snippets:
        problems.append("README.md: the C++ snippet differs from examples/minimal-host/main.cpp")
    documents = [ROOT / "README.md", *sorted((ROOT / "docs").rglob("*.md"))]
    for document in documents:
        for target in re.findall(r"\]\(([^)#]+)[^)]*\)", document.read_text(encoding="utf-8")):
            if "://" not in target and not (document.parent / target).exists():
                problems.append(f"{document.relative_to(ROOT)}: dead link {target}")
    finish(problems, "readme")


main()
