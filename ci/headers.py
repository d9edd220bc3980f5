#!/usr/bin/env python3
"""Every installed header compiles alone without a warning: one after the other in turn with gcc as
C++17 where Qt's keywords are off and with clang as C++20 where they are on. All of them together, in
order and in reverse, compile with both compilers in both standards with and without the keywords.
What is deprecated warns, and can be silenced.

`ci/headers.py whole`, before a release, compiles each header alone in all eight of these ways."""

import itertools
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from os import cpu_count
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
LIBS = ROOT / "libs"
INSTALLED = ("QtPropertyBrowser", "ZTMarkDataManager", "ZTDrawEngineLib", "hostkit", "vectorkit",
             "jobkit", "codekit")
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Werror"]
COMPILERS = ("g++", "clang++")
STANDARDS = ("c++17", "c++20")
KEYWORDS = ([], ["-DQT_NO_KEYWORDS"])
ALL_WAYS = tuple(itertools.product(COMPILERS, STANDARDS, KEYWORDS))
# Between them every compiler, standard and manner of keywords.
IN_TURN = (("g++", "c++17", KEYWORDS[1]), ("clang++", "c++20", KEYWORDS[0]))


def headers():
    """As they are included, sorted."""
    found = [path for library in INSTALLED for path in (LIBS / library).rglob("*.h")
             if not path.name.endswith("_p.h")
             and not {"types", "editors", "hatch", "resources"} & set(path.parts)]
    return sorted(str(path.relative_to(LIBS)) for path in found)


def qt_flags():
    command = ["pkg-config", "--cflags", "Qt5Widgets"]
    flags = subprocess.run(command, check=True, capture_output=True, text=True).stdout.split()
    # Its headers are none of ours: no warnings from them.
    return [flag.replace("-I", "-isystem", 1) for flag in flags]


class Compiler:
    """Compiles texts and keeps what was wrong with them."""

    def __init__(self):
        self.flags = ["-fsyntax-only", "-fPIC", "-x", "c++", f"-I{LIBS}", *qt_flags()]

    def accepts(self, text, compiler, standard, more):
        """What the compiler says; empty when it takes the text."""
        with tempfile.NamedTemporaryFile("w", suffix=".cpp") as source:
            source.write(text)
            source.flush()
            run = subprocess.run(
                [compiler, f"-std={standard}", *WARNINGS, *more, *self.flags, source.name],
                capture_output=True, text=True, check=False)
        return "" if run.returncode == 0 else run.stderr


def deprecation_problems(compiler):
    use = ('ZT_DEPRECATED("0.3", "2027-05-01", "use g()") int f();\nint g();\n'
           "int h() { return f(); }\n")
    include = "#include <ZTDrawEngineLib/common/ZTDeprecatedGlobal.h>\n"
    problems = []
    for name in COMPILERS:
        said = compiler.accepts(include + use, name, "c++17", [])
        if "since 0.3 of 2027-05-01: use g()" not in said:
            problems.append(f"{name}: what is deprecated does not say so: {said}")
        said = compiler.accepts("#define ZT_NO_DEPRECATION_WARNINGS\n" + include + use, name,
                                "c++17", [])
        if said:
            problems.append(f"{name}: the warning cannot be silenced: {said}")
    return problems


def works_of(names, is_whole):
    """What is compiled: title, text, compiler, standard, more flags."""
    works = []
    for index, name in enumerate(names):
        ways = ALL_WAYS if is_whole else [IN_TURN[index % 2]]
        works += [(f"{name} alone", f"#include <{name}>\n", *way) for way in ways]
    for order, title in ((names, "all in order"), (names[::-1], "all in reverse")):
        text = "".join(f"#include <{name}>\n" for name in order)
        works += [(title, text, *way) for way in ALL_WAYS]
    return works


def main():
    names = headers()
    compiler = Compiler()
    works = works_of(names, sys.argv[1:] == ["whole"])
    with ThreadPoolExecutor(cpu_count()) as pool:
        said = list(pool.map(lambda work: compiler.accepts(*work[1:]), works))
    problems = [f"{title} ({name}, {standard} {' '.join(more)}):\n{text}"
                for (title, _, name, standard, more), text in zip(works, said) if text]
    problems += deprecation_problems(compiler)
    print("\n".join(problems))
    print(f"headers: {len(names)} headers, {len(works)} texts, {len(problems)} problem(s)")
    sys.exit(1 if problems or not names else 0)


main()
