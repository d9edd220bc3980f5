"""Public members of what hosts use, functions and fields: each says something about itself, alone or
in a group."""

import re

from project import LIBS, finish, public_headers, sources

# What is named by the pattern it follows: construction, copies, what a base class documents.
SELF_EVIDENT = re.compile(r"^((explicit|virtual)\s+)*~?\w+\(|\boverride\b|=\s*(default|delete)|\boperator\b"
                          r"|^(using|friend|enum|struct|class|typedef|static_assert|template)\b"
                          r"|^Q_|^QT_")
KITS = ("hostkit", "vectorkit", "jobkit", "codekit")
ACCESS = re.compile(r"^(public|protected|private|Q_SIGNALS|Q_SLOTS|signals)(\s+Q_SLOTS)?\s*:")


def statements(lines):
    """Yields (line number, statement, whether a comment stands with it) of a class body."""
    documented = False
    text = ""
    start = 0
    in_comment = False
    for number, line in lines:
        stripped = line.strip()
        if in_comment:
            in_comment = "*/" not in stripped
            continue
        if stripped.startswith("/**"):
            documented = True
            in_comment = "*/" not in stripped
            continue
        if stripped.startswith("///<"):
            continue  # goes on with what stands behind the member above
        if stripped.startswith("//"):
            documented = documented or stripped.startswith("///")
            continue
        if not stripped:
            documented = False  # a blank line ends the group that a comment stands over
            continue
        if stripped.startswith("#"):
            continue
        if not text:
            start = number
        trailing = "///<" in stripped
        text = f"{text} {stripped.split('//')[0].strip()}".strip()
        if trailing and text.endswith((";", "}")):
            yield start, text, True
            text = ""
        elif text.endswith((";", ":", "}")):
            yield start, text, documented
            text = ""


def undocumented(path):
    lines = path.read_text(encoding="utf-8").splitlines()
    depth_of_class = None
    depth = 0
    access = "private"
    body = []
    for number, line in enumerate(lines, 1):
        if depth_of_class is None and re.match(r"^(class|struct) \w+.*[^;]$|^(class|struct) \w+$", line):
            access = "public" if line.startswith("struct") else "private"
            depth_of_class = depth + 1
            body.append((number, ""))  # what was said of the class before ends with it
        opened, closed = line.count("{"), line.count("}")
        if depth_of_class is not None and depth >= depth_of_class:
            found = ACCESS.match(line.strip())
            if found:
                access = found.group(1)
                body.append((number, ""))
            elif depth == depth_of_class and access in ("public", "Q_SIGNALS"):
                if closed <= opened:
                    body.append((number, line))
        depth += opened - closed
        if depth_of_class is not None and depth < depth_of_class and closed:
            depth_of_class = None
    for number, text, documented in statements(body):
        if text and not documented and not SELF_EVIDENT.search(text):
            yield number, text


def hosts_headers():
    """The installed headers: those of the libraries, and those of the kits."""
    kits = [h for kit in KITS for h in sources(LIBS / kit, "*.h")]
    return [*public_headers(), *(h for h in kits if not h.name.endswith("_p.h"))]


def main():
    problems = []
    for header in hosts_headers():
        for number, text in undocumented(header):
            problems.append(f"libs/{header.relative_to(LIBS)}:{number}: says nothing: {text[:70]}")
    finish(problems, "documented")


main()
