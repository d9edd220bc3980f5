"""Dependencies run in one direction: every include is held against the table of layers."""

from project import ENGINE, LIBS, ROOT, finish, includes, sources

# Layer of each folder or, where a file serves folders below its own, of the file.
ENGINE_LAYERS = {
    "shx": 1,
    "common": 2,
    "document/ZTCoord": 3,
    "model/ZTMarkData": 3,
    "model/ZTPointSort": 3,
    "model/GreedyChain": 3,
    "model/PointTree": 3,
    "shapes": 4,
    "text": 5,
    "items": 6,
    "model": 7,
    "properties": 7,
    "document": 8,
}
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


def check_standing_alone(problems):
    """The sister libraries, fontkit and vectorkit know nothing of the engine; hosts know its umbrella."""
    for library in ("QtPropertyBrowser", "ZTMarkDataManager", "fontkit", "vectorkit"):
        for source in sources(LIBS / library, "*.h", "*.cpp"):
            for line, name in includes(source):
                if name.startswith(("ZT", "Qt")) and not name.startswith((f"{library}/", "Qt")):
                    problems.append(f"{source.relative_to(ROOT)}:{line}: {name}: stands alone")
                if library == "fontkit" and name.startswith("Qt") and not name.startswith("QtCore/"):
                    problems.append(f"{source.relative_to(ROOT)}:{line}: {name}: Qt Core alone")
    for folder in (LIBS / "hostkit", LIBS / "studio", ROOT / "apps", ROOT / "examples"):
        for source in sources(folder, "*.h", "*.cpp"):
            for line, name in includes(source):
                if name.startswith("ZTDrawEngineLib/") and name != UMBRELLA:
                    problems.append(
                        f"{source.relative_to(ROOT)}:{line}: {name}: hosts include the umbrella"
                    )


def main():
    problems = []
    check_engine(problems)
    check_standing_alone(problems)
    finish(problems, "layers")


main()
