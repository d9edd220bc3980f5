"""A compiler cache gives no precompiled header that was made before a comment changed.

Called with the compiler and, before it, the launcher of this build.
"""

import os
import subprocess
import sys
import tempfile
from pathlib import Path

from project import finish


def compiles(launcher, compiler, folder):
    """Whether a source that includes a precompiled header once more compiles, its bytes all new."""
    source = folder / "use.cpp"
    source.write_text(source.read_text() + "// new\n" if source.exists()
                      else '#include "part.h"\nint one() { return Part().one; }\n')
    pch, forced = folder / "all.hxx.gch", ["-include", str(folder / "all.hxx")]
    common = [*launcher, compiler, "-I", str(folder), *forced]
    pch.unlink(missing_ok=True)
    header = ["-x", "c++-header", "-MD", "-MF", str(folder / "all.d"), "-o", str(pch), "-c",
              str(folder / "all.hxx.cxx")]
    unit = ["-MD", "-MF", str(folder / "use.d"), "-o", str(folder / "use.o"), "-c", str(source)]
    return all(subprocess.run(common + rest, check=False, capture_output=True).returncode == 0
               for rest in (header, unit))


def main():
    """Changes a comment between two builds."""
    *launcher, compiler = sys.argv[1:]
    problems = []
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        os.environ["CCACHE_DIR"] = str(folder / "cache")
        (folder / "all.hxx").write_text('#include "part.h"\n')
        (folder / "all.hxx.cxx").write_text("\n")
        for comment in ("said", "said otherwise"):
            (folder / "part.h").write_text(f"#pragma once\nstruct Part {{ int one; }}; // {comment}\n")
            if not compiles(launcher, compiler, folder):
                problems.append(f"with the comment '{comment}' the build fails")
    finish(problems, "precompiled headers through the compiler cache")


main()
