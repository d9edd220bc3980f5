"""Public headers: guarded, pulled in by the umbrella, and each class with a test of its name."""

import re

from project import ENGINE, LIBS, ROOT, finish, public_headers, sources

TESTS = ROOT / "tests"
# Headers that hold macros or records that another test exercises.
TESTED_ELSEWHERE = {"ZTDrawEngineGlobal", "ZTDrawEngineLib"}
# Classes of one behaviour, which share a test with a row for each.
TESTED_TOGETHER = {
    "tst_PlainItems": {"ZTGraphicsRectItem", "ZTGraphicsEllipseItem", "ZTGraphicsTdotItem"},
    "tst_ZTAxes": {"ZTHorizontalAxis", "ZTVerticalAxis"},
}


def main():
    problems = []
    umbrella = (ENGINE / "ZTDrawEngineLib.h").read_text(encoding="utf-8")
    tests = {path.stem for path in sources(TESTS, "tst_*.cpp")}
    tested = {test[len("tst_"):] for test in tests} | TESTED_ELSEWHERE
    for test in tests & TESTED_TOGETHER.keys():
        text = sources(TESTS, f"{test}.cpp")[0].read_text(encoding="utf-8")
        tested |= {name for name in TESTED_TOGETHER[test] if re.search(rf"\b{name}\b", text)}
    for header in public_headers():
        name = header.relative_to(LIBS)
        text = header.read_text(encoding="utf-8")
        if not text.startswith("#pragma once\n"):
            problems.append(f"libs/{name}: does not start with #pragma once")
        if re.search(r"^\s*(slots|signals)\s*:|\b(emit|foreach)\b\s*[a-zA-Z(]+\(", text, re.M):
            problems.append(f"libs/{name}: Qt keyword; use Q_SLOTS, Q_SIGNALS, Q_EMIT")
        is_umbrella = header == ENGINE / "ZTDrawEngineLib.h"
        is_macros = header.stem.endswith("Global")
        is_for_hosts = not is_umbrella and not is_macros
        if is_for_hosts and f"<{name}>" not in umbrella:
            problems.append(f"libs/{name}: missing in the umbrella header")
        if header.stem not in tested and not is_macros:
            problems.append(f"libs/{name}: no test tst_{header.stem}.cpp")
    finish(problems, "headers")


main()
