#!/usr/bin/env python3
"""Static analysis of libraries and programs: clang-tidy with the checks of .clang-tidy, then clazy.

Nearly all the time of both goes into the headers that every source includes. So sources that are
compiled with the same arguments are analysed together, as one translation unit that includes them
all: ten times quicker, with the same findings. Sources that cannot stand in one unit, because both
have a constant of the same name in an unnamed namespace, stand in different ones.

What passed is not analysed again as long as nothing that it compiles, no check and no tool has
changed; it is remembered in ZT_TIDY_CACHE (by default in ~/.cache/zt-tidy).

ci/tidy.py [FILE...]: these, or all sources of libs/ and apps/.
"""
import collections
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
BUILD = TOP / "build" / "tidy"
CACHE = pathlib.Path(os.environ.get("ZT_TIDY_CACHE")
                     or pathlib.Path(os.environ.get("XDG_CACHE_HOME")
                                     or pathlib.Path.home() / ".cache") / "zt-tidy")
MOST_SOURCES = 30  # in one unit: more would need too much memory side by side

# Not asked for: the unit includes sources by intent.
TIDY_CHECKS = "-bugprone-suspicious-include"
# Not asked for: the items' properties have the signals that they are meant to have; loops run over
# temporaries, which have nothing to detach from; tables of commands are static on purpose.
CLAZY_CHECKS = ("level1,no-qproperty-without-notify,no-range-loop-detach,"
                "no-non-pod-global-static")


def run(command):
    return subprocess.run(command, cwd=TOP, text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, check=False)


def configure():
    """Only the compile commands are needed, nothing is built."""
    done = run(["cmake", "--preset", "tidy", "-DCMAKE_CXX_CLANG_TIDY="])
    if done.returncode:
        sys.exit(done.stdout)


def compile_arguments():
    """Of each source: the arguments with which it is preprocessed."""
    arguments = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8")):
        words = shlex.split(entry["command"])
        while not os.path.basename(words[0]).startswith("clang++"):
            words.pop(0)
        kept, skips = [], False
        for word in words[1:]:
            if skips or word in ("-c", "-MD", entry["file"]):
                skips = False
            elif word in ("-o", "-MF", "-MT"):
                skips = True
            else:
                kept.append(word)
        arguments.setdefault(os.path.relpath(entry["file"], TOP), kept)
    return arguments


def tools():
    return "\n".join([(TOP / ".clang-tidy").read_text(encoding="utf-8"),
                      pathlib.Path(__file__).read_text(encoding="utf-8"),
                      run(["clang-tidy", "--version"]).stdout,
                      run(["dpkg-query", "-W", "clazy"]).stdout])


def cache_file(kind, source, arguments):
    """Where it is remembered that this text passed; None if it does not even preprocess."""
    text = run(["clang++", *arguments, "-E", "-C", "-P", str(source)])
    if text.returncode:
        return None
    key = hashlib.sha256((kind + TOOLS + text.stdout.replace(str(TOP), "")).encode()).hexdigest()
    return CACHE / key


def unit_of(sources, folder):
    handle, path = tempfile.mkstemp(suffix=".cpp", dir=folder)
    with os.fdopen(handle, "w", encoding="utf-8") as unit:
        unit.writelines(f'#include "{TOP / source}"\n' for source in sources)
    return path


def units(sources, arguments, folder):
    """Parts the sources of one folder, all with the same arguments, into units that compile."""
    waiting = list(sources)
    while waiting:
        together, waiting = waiting[:MOST_SOURCES], waiting[MOST_SOURCES:]
        while len(together) > 1:
            done = run(["clang++", *arguments, "-fsyntax-only", "-ferror-limit=0",
                        unit_of(together, folder)])
            if done.returncode == 0:
                break
            named = set(re.findall(r"^(\S+?):\d+:\d+: (?:fatal )?error:", done.stdout, re.M))
            apart = [source for source in together if str(TOP / source) in named]
            # What is named comes second; if that is all, halves are tried.
            apart = apart if 0 < len(apart) < len(together) else together[len(together) // 2:]
            together = [source for source in together if source not in apart]
            waiting = apart + waiting
        yield together


def analyse(tool, unit, arguments):
    """What a tool tells of one unit; empty if it passes."""
    passed = cache_file(tool, unit, arguments)
    if passed and passed.exists():
        return ""
    done = run({
        "tidy": ["clang-tidy", "--quiet", "--warnings-as-errors=*", "--checks=" + TIDY_CHECKS,
                 f"--config-file={TOP / '.clang-tidy'}"],
        "clazy": ["clazy-standalone", "-header-filter=(libs|apps)/.*", "-checks=" + CLAZY_CHECKS],
    }[tool] + [str(unit), "--", *arguments])
    if done.returncode or (tool == "clazy" and "warning:" in done.stdout):
        return done.stdout
    if passed:
        passed.touch()
    return ""


def unit_work(sources, arguments, folder):
    """Findings of both tools in one unit."""
    unit = TOP / sources[0] if len(sources) == 1 else unit_of(sources, folder)
    # What one source declares is no shadow over another's; the builds hold it of each alone.
    return [analyse(tool, unit, [*arguments, "-Wno-shadow"]) for tool in ("tidy", "clazy")]


def main():
    global TOOLS
    configure()
    CACHE.mkdir(parents=True, exist_ok=True)
    TOOLS = tools()
    arguments = compile_arguments()
    sources = [os.path.relpath(os.path.abspath(name), TOP) for name in sys.argv[1:]]
    if not sources:
        sources = run(["git", "ls-files", "libs/*.cpp", "apps/*.cpp"]).stdout.split()
    lost = [source for source in sources if source not in arguments]
    groups = collections.defaultdict(list)
    for source in sources:
        if source not in lost:
            groups[tuple(arguments[source])].append(source)

    findings = [f"{source}: belongs to no target\n" for source in lost]
    with tempfile.TemporaryDirectory(dir=BUILD) as folder, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        parted = [(pool.submit(lambda names, given: list(units(names, given, folder)),
                               names, list(given)), list(given))
                  for given, names in sorted(groups.items(), key=lambda group: -len(group[1]))]
        work = [pool.submit(unit_work, unit, given, folder)
                for job, given in parted for unit in job.result()]
        for job in work:
            findings += [found for found in job.result() if found]
    sys.stdout.write("".join(findings))
    print(f"{len(sources)} sources analysed, {len(findings)} with findings")
    return 1 if findings else 0


TOOLS = ""
if __name__ == "__main__":
    sys.exit(main())
