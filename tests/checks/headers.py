"""Public headers: guarded, pulled in by the umbrella, and each class with a test of its name."""

import re

from project import ENGINE, LIBS, ROOT, finish, public_headers, sources

TESTS = ROOT / "tests"
# Headers that hold macros or records that another test exercises.
TESTED_ELSEWHERE = {"ZTDrawEngineGlobal", "ZTDrawEngineLib"}
# Installed beside their families, yet not exported: hosts have no use for them.
INTERNAL = {"ZTAbstractAxis", "ZTHorizontalAxis", "ZTVerticalAxis"}


def main():
    problems = []
    umbrella = (ENGINE / "ZTDrawEngineLib.h").read_text(encoding="utf-8")
    tests = {path.stem for path in sources(TESTS, "tst_*.cpp")}
    for header in public_headers():
        name = header.relative_to(LIBS)
        text = header.read_text(encoding="utf-8")
        if not text.startswith("#pragma once\n"):
            problems.append(f"libs/{name}: does not start with #pragma once")
        if re.search(r"^\s*(slots|signals)\s*:|\b(emit|foreach)\b\s*[a-zA-Z(]+\(", text, re.M):
            problems.append(f"libs/{name}: Qt keyword; use Q_SLOTS, Q_SIGNALS, Q_EMIT")
        is_umbrella = header == ENGINE / "ZTDrawEngineLib.h"
        is_macros = header.stem.endswith("Global")
        is_for_hosts = not is_umbrella and not is_macros and header.stem not in INTERNAL
        if is_for_hosts and f"<{name}>" not in umbrella:
            problems.append(f"libs/{name}: missing in the umbrella header")
        if header.stem not in TESTED_ELSEWHERE and not is_macros and f"tst_{header.stem}" not in tests:
            problems.append(f"libs/{name}: no test tst_{header.stem}.cpp")
    finish(problems, "headers")


main()
