"""What the precompiled headers bring is included by those who use it: a build without them compiles.

Looked at are the libraries' and programs' sources and the classes and functions of the precompiled
headers that no other header brings by the way.
"""

import re

from project import ROOT, finish, sources

# Name that is used -> headers of which one brings it; a name that ends with / is a whole module.
BROUGHT_BY = {
    r"QFile\s*[({]|\bQFile\s+\w|\bQFile::": ("QtCore/QFile", "QtCore/QTemporaryFile"),
    r"QDir\s*[({]|\bQDir\s+\w|\bQDir::": ("QtCore/QDir", "QtCore/QFileInfo"),
    r"QDataStream\s+\w+[({;]": ("QtCore/QDataStream",),
    r"QPainter\s+\w+[({;]|\bQPainter::": ("QtGui/QPainter", "QtWidgets/QStylePainter"),
    r"QPainterPath\s+\w+[({;=]": ("QtGui/QPainterPath", "QtGui/QPainter", "QtWidgets/"),
    r"QUndoStack::|\bQUndoCommand::": ("QtWidgets/QUndoStack", "QtWidgets/QUndoCommand",
                                       "QtWidgets/QUndoView"),
    r"std::(?:sort|stable_sort|find_if|any_of|all_of|none_of|count_if|transform|accumulate_n"
    r"|max_element|min_element|lower_bound|upper_bound|rotate|reverse|unique|copy_if"
    r"|remove_if|partition|stable_partition|nth_element|minmax)\b": ("algorithm",),
    r"std::function\s*<": ("functional",),
    r"std::(?:unique_ptr|make_unique|shared_ptr|make_shared)\b": ("memory",),
    r"std::vector\s*<": ("vector",),
}
INCLUDE = re.compile(r'^#include [<"]([^>"]+)[>"]', re.M)
FOLDERS = (ROOT / "libs", ROOT / "apps")


def includes_of(text):
    return INCLUDE.findall(text)


def file_of(name, source):
    for folder in (*FOLDERS, source.parent):
        if (folder / name).is_file():
            return folder / name
    return None


def brought(source, seen):
    """All that a file includes, through headers of the project too."""
    if source in seen:
        return set()
    seen.add(source)
    names = set()
    for name in includes_of(source.read_text(encoding="utf-8")):
        names.add(name)
        header = file_of(name, source)
        if header:
            names |= brought(header, seen)
    return names


def code_of(text):
    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|^#include[^\n]*', " ", text,
                  flags=re.S | re.M)


def main():
    problems = []
    for folder in FOLDERS:
        for source in sources(folder, "*.cpp") + sources(folder, "*.h"):
            code = code_of(source.read_text(encoding="utf-8"))
            used = [(use, headers) for use, headers in BROUGHT_BY.items()
                    if re.search(rf"\b(?:{use})", code)]
            if not used:
                continue
            names = brought(source, set())
            for use, headers in used:
                if not any(name == header or (header.endswith("/") and name.startswith(header))
                           for header in headers for name in names):
                    problems.append(f"{source.relative_to(ROOT)}: <{headers[0]}> is not included")
    finish(problems, "includes")


main()
