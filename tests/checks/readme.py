"""The README's host is the example host, word for word; its links and those of all documents lead
somewhere; a large folder tells where to begin, and the tests it names are there."""

import re
from fnmatch import fnmatch

from project import ROOT, finish, sources

MAX_FILES_WITHOUT_README = 12


def tests_by_name():
    """Names of the tests as ctest knows them, made from the files as the build makes them."""
    names = []
    for source in sources(ROOT / "tests", "tst_*.cpp"):
        parts = source.relative_to(ROOT / "tests").with_suffix("").parts
        names.append(".".join(parts).replace("tst_", ""))
    names += ["fuzz." + fuzz.stem[len("fuzz_"):] for fuzz in sources(ROOT / "fuzz", "fuzz_*.cpp")]
    return names


def check_snippet(problems):
    readme = (ROOT / "README.md").read_text(encoding="utf-8")
    snippets = re.findall(r"```cpp\n(.*?)```", readme, re.S)
    example = (ROOT / "examples/minimal-host/main.cpp").read_text(encoding="utf-8")
    if example not in snippets:
        problems.append("README.md: the C++ snippet differs from examples/minimal-host/main.cpp")


def check_tutorial(problems):
    """What the tutorial shows of a step stands in the step's program."""
    text = (ROOT / "docs/tutorial.md").read_text(encoding="utf-8")
    shown = re.findall(r"```cpp\n// (step\d\d\.cpp)\n(.*?)```", text, re.S)
    steps = {path.name for path in (ROOT / "examples/tutorial").glob("step*.cpp")}
    if {name for name, _ in shown} != steps:
        problems.append("docs/tutorial.md: does not show something of each step")
    for name, code in shown:
        if name in steps and code not in (ROOT / "examples/tutorial" / name).read_text(
                encoding="utf-8"):
            problems.append(f"docs/tutorial.md: examples/tutorial/{name} has no such lines: {code}")


def check_first_host(problems):
    """What the page of the first host shows stands in its example."""
    text = (ROOT / "docs/how-to/mark-a-code.md").read_text(encoding="utf-8")
    shown = [("main.cpp", code) for code in re.findall(r"```cpp\n// main\.cpp\n(.*?)```", text, re.S)]
    shown += [("CMakeLists.txt", code) for code in re.findall(r"```cmake\n(.*?)```", text, re.S)]
    if len(shown) != 3:
        problems.append("docs/how-to/mark-a-code.md: does not show its three pieces")
    for name, code in shown:
        if code not in (ROOT / "examples/qr-code" / name).read_text(encoding="utf-8"):
            problems.append(f"docs/how-to/mark-a-code.md: examples/qr-code/{name} has no: {code}")


def check_document(document, tests, problems):
    text = document.read_text(encoding="utf-8")
    name = document.relative_to(ROOT)
    for target in re.findall(r"\]\(([^)#]+)[^)]*\)", text):
        if "://" not in target and not (document.parent / target).exists():
            problems.append(f"{name}: dead link {target}")
    for named in re.findall(r"`((?:unit|gui|cli|fuzz)\.[\w.*]+)`", text):
        if not any(fnmatch(test, named) for test in tests):
            problems.append(f"{name}: no test is called {named}")


def check_folders(problems):
    for folder in sorted({source.parent for top in ("libs", "apps")
                          for source in sources(ROOT / top, "*.h", "*.cpp")}):
        files = [path for path in folder.iterdir() if path.suffix in (".h", ".cpp")]
        if len(files) > MAX_FILES_WITHOUT_README and not (folder / "README.md").exists():
            problems.append(f"{folder.relative_to(ROOT)}: {len(files)} files and no README.md "
                            "that says where to begin")


def main():
    problems = []
    check_snippet(problems)
    check_tutorial(problems)
    check_first_host(problems)
    tests = tests_by_name()
    documents = [ROOT / "README.md", ROOT / "CONTRIBUTING.md"]
    for top in ("docs", "libs", "apps", "tests", "fuzz", "bench", "examples"):
        documents += sources(ROOT / top, "*.md")
    for document in documents:
        check_document(document, tests, problems)
    check_folders(problems)
    finish(problems, "readme")


main()
