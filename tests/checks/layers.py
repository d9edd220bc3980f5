"""Dependencies run in one direction: every include is held against the drawing of the layers in
docs/architecture.md."""

import re

from project import ENGINE, LIBS, ROOT, finish, includes, sources

DRAWING = ROOT / "docs" / "architecture.md"


def drawn_layers():
    """Layer of each name in the drawing: folders and files of the engine, libraries, `apps`."""
    block = DRAWING.read_text(encoding="utf-8").split("```")[1]
    layers = {}
    layer = None
    for line in block.splitlines():
        found = re.match(r"^ (?P<layer>[ \d]\d|  )  (?P<names>[\w/]+( [\w/]+)*)(  |$)", line)
        if not found:
            continue
        layer = int(found["layer"]) if found["layer"].strip() else layer
        for name in found["names"].split():
            layers[name] = layer
    return layers


LAYERS = drawn_layers()
# Layer of each folder of the engine or, where a file serves folders below its own, of the file.
ENGINE_LAYERS = {name.removesuffix("/"): layer for name, layer in LAYERS.items() if "/" in name}
# Exported macros: plain text without a dependency, for every layer.
FREE_FOR_ALL = {"ZTDrawEngineLib/common/ZTDrawEngineGlobal.h"}
UMBRELLA = "ZTDrawEngineLib/ZTDrawEngineLib.h"
WIDGETS = ("QtWidgets/",)


def engine_key(path):
    """The table's key for a path below the engine: its file if named there, else its folder."""
    stem = str(path.with_suffix("")).removesuffix("_p")
    return stem if stem in ENGINE_LAYERS else path.parts[0]


def check_engine(problems):
    for source in sources(ENGINE, "*.h", "*.cpp"):
        relative = source.relative_to(ENGINE)
        if len(relative.parts) == 1:
            continue
        key = engine_key(relative)
        if key not in ENGINE_LAYERS:
            problems.append(f"{source.relative_to(ROOT)}: its folder has no layer")
            continue
        layer = ENGINE_LAYERS[key]
        for line, name in includes(source):
            where = f"{source.relative_to(ROOT)}:{line}: {name}"
            if name == UMBRELLA:
                problems.append(f"{where}: the umbrella header is for hosts")
            if layer <= 5 and name.startswith(WIDGETS):
                problems.append(f"{where}: no widgets below items/")
            if not name.startswith("ZTDrawEngineLib/") or name in FREE_FOR_ALL:
                continue
            target = engine_key(type(relative)(name.removeprefix("ZTDrawEngineLib/")))
            target_layer = ENGINE_LAYERS.get(target, 0)
            same_side = target == key or target_layer < layer
            if not same_side and layer != 3:
                problems.append(f"{where}: layer {layer} may not include layer {target_layer}")
            if layer == 3 and target_layer > 3:
                problems.append(f"{where}: layer 3 may not include layer {target_layer}")
            if key == "properties" and target in ("shapes", "text") or (
                key == "properties" and name.startswith("ZTDrawEngineLib/items/")
                and not name.startswith("ZTDrawEngineLib/items/commands/")
            ):
                problems.append(f"{where}: properties/ knows no shape and no item")


# What each library may include beside itself, Qt and the standard library.
LIBRARIES = {
    "QtPropertyBrowser": (),
    "ZTMarkDataManager": (),
    "ZTDrawEngineLib": ("QtPropertyBrowser", "ZTMarkDataManager"),
    "fontkit": ("hostkit/files/JsonKeys.h",),
    "vectorkit": (),
    "hostkit": (UMBRELLA, "vectorkit"),
    "codekit": (UMBRELLA, "hostkit", "vectorkit"),
    "jobkit": (UMBRELLA, "hostkit", "vectorkit"),
    "designer": (UMBRELLA,),
    "studio": (UMBRELLA, "hostkit", "vectorkit", "codekit", "jobkit"),
}
WITHOUT_WIDGETS = ("ZTMarkDataManager", "fontkit", "vectorkit", "jobkit")
QT_CORE_ALONE = ("ZTMarkDataManager", "fontkit")
# Nothing below includes anything of these, and they include each other's shared folder alone.
PROGRAMS = ROOT / "apps"


def check_library(library, problems):
    """Each library keeps to its row of the table."""
    allowed = LIBRARIES[library]
    for source in sources(LIBS / library, "*.h", "*.cpp"):
        for line, name in includes(source):
            where = f"{source.relative_to(ROOT)}:{line}: {name}"
            owner = name.split("/")[0]
            if owner in LIBRARIES and owner != library and not {owner, name} & set(allowed):
                problems.append(f"{where}: {library} may not include this")
            if library in WITHOUT_WIDGETS and name.startswith(WIDGETS):
                problems.append(f"{where}: {library} has no widgets")
            if library in QT_CORE_ALONE and re.match(r"Qt(?!Core)\w+/", name):
                problems.append(f"{where}: {library} has Qt Core alone")


def check_drawing(problems):
    """All that there is stands in the drawing, and nothing else; rules allow what is below alone."""
    there = {f"{path.name}/" for path in ENGINE.iterdir() if path.is_dir()} - {"resources/"}
    there |= {path.name for path in LIBS.iterdir() if path.is_dir() and path != ENGINE} | {"apps"}
    drawn = {name for name in LAYERS if "/" not in name or name.endswith("/")}
    for name in sorted(there ^ drawn):
        problems.append(f"{DRAWING.relative_to(ROOT)}: {name} is drawn or is there, not both")
    for name in LAYERS.keys() - drawn:
        if not list(ENGINE.glob(f"{name}*.h")):
            problems.append(f"{DRAWING.relative_to(ROOT)}: {name} is drawn and not there")
    for library, allowed in LIBRARIES.items():
        for below in LAYERS.keys() & set(allowed) if library in LAYERS else ():
            if LAYERS[below] >= LAYERS[library]:
                problems.append(f"{library} may include {below}, which is not drawn below it")


def check_programs(problems):
    """A program includes libraries, its own files and those that programs share."""
    names = {folder.name for folder in PROGRAMS.iterdir() if folder.is_dir()}
    for source in [*sources(PROGRAMS, "*.h", "*.cpp"), *sources(ROOT / "examples", "*.h", "*.cpp")]:
        own = source.relative_to(ROOT).parts[1]
        for line, name in includes(source):
            where = f"{source.relative_to(ROOT)}:{line}: {name}"
            owner = name.split("/")[0]
            if owner == "ZTDrawEngineLib" and name != UMBRELLA:
                problems.append(f"{where}: hosts include the umbrella")
            if owner in names - {own, "common"} and owner not in LIBRARIES:
                problems.append(f"{where}: programs know nothing of each other")


def folder_includes(library):
    """The folders of a library, and which other ones each includes."""
    graph = {}
    for source in sources(LIBS / library, "*.h", "*.cpp"):
        folder = source.parent.relative_to(LIBS / library).parts[:1]
        for _, name in includes(source):
            parts = name.split("/")
            if folder and parts[0] == library and len(parts) > 2 and parts[1] != folder[0]:
                graph.setdefault(folder[0], set()).add(parts[1])
    return graph


def check_one_direction(library, problems):
    """Between two folders of a library includes run one way, also by way of a third."""
    graph = folder_includes(library)

    def reach(folder):
        seen, ahead = set(), [folder]
        while ahead:
            for below in graph.get(ahead.pop(), ()):
                if below not in seen:
                    seen.add(below)
                    ahead.append(below)
        return seen

    for folder in sorted(graph):
        if folder in reach(folder):
            problems.append(f"libs/{library}/{folder} comes back to itself by its includes")


def main():
    problems = []
    check_drawing(problems)
    check_engine(problems)
    for library in sorted(path.name for path in LIBS.iterdir() if path.is_dir()):
        if library not in LIBRARIES:
            problems.append(f"libs/{library}: has no row in the table")
            continue
        check_library(library, problems)
        if library != "ZTDrawEngineLib":  # the engine has the table of its layers
            check_one_direction(library, problems)
    check_programs(problems)
    finish(problems, "layers")


main()
