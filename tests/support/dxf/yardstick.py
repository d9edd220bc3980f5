"""Drawings and their curves as another reader has them.

yardstick.py write FOLDER          writes one drawing a version and feature into a folder
yardstick.py flatten TOLERANCE FILE...   prints a line a curve: "FILE x y x y ..." in the file's unit
yardstick.py time FILE             prints the seconds to read a drawing and flatten its curves
yardstick.py layers FILE           prints a line a layer: "NAME INDEX", and "LAYER COUNT" of polylines
"""

import math
import sys
import time
from pathlib import Path

import ezdxf
from ezdxf import disassemble
from ezdxf import path as curves

VERSIONS = ["R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]
MILLIMETRES = 4
TILTED = (0.3, -0.4, 0.866)
BARELY_TILTED = (0.01, 0.005, 1.0)


def plain(space):
    space.add_line((1, 2), (31, 7))
    space.add_circle((10, 10), 4)
    space.add_arc((20, 10), 5, 30, 300)
    space.add_arc((20, 30), 5, 300, 30)
    space.add_polyline2d([(0, 0, 0, 0, 0.5), (10, 0, 0, 0, -1), (10, 10, 0, 0, 0.1)],
                         format="xyseb", dxfattribs={"flags": 1})
    space.add_polyline3d([(0, 0, 1), (5, 5, 9), (9, 1, 3)])
    space.add_solid([(0, 0), (4, 0), (0, 3), (4, 3)])
    space.add_trace([(10, 0), (14, 0), (10, 3), (14, 4)])


def tilted(space):
    for extrusion in (TILTED, BARELY_TILTED, (0, 0, -1), (1, 0, 0.001)):
        attributes = {"extrusion": extrusion}
        space.add_circle((10, 10, 3), 4, dxfattribs=attributes)
        space.add_arc((20, 10, -2), 5, 30, 300, dxfattribs=attributes)
        space.add_solid([(0, 0), (4, 0), (0, 3), (4, 3)], dxfattribs=attributes)
        space.add_polyline2d([(0, 0, 0, 0, 0.5), (10, 0, 0, 0, -1), (10, 10, 0, 0, 0.1)],
                             format="xyseb", dxfattribs={"flags": 1, **attributes})


def blocks(space):
    inner = space.doc.blocks.new("INNER", base_point=(1, 1))
    inner.add_circle((2, 2), 1.5)
    inner.add_line((0, 0), (5, 1))
    outer = space.doc.blocks.new("OUTER")
    outer.add_blockref("INNER", (3, 4), dxfattribs={"xscale": 2, "yscale": 1})
    outer.add_blockref("INNER", (0, 9), dxfattribs={"xscale": -1})
    outer.add_arc((0, 0), 3, 10, 200)
    space.add_blockref("OUTER", (10, 10), dxfattribs={"rotation": 17})
    space.add_blockref("OUTER", (60, 10), dxfattribs={"xscale": -2, "yscale": 0.5})
    space.add_blockref("OUTER", (90, 50), dxfattribs={"extrusion": (0, 0, -1), "rotation": 20})
    space.add_blockref("OUTER", (20, 50), dxfattribs={"extrusion": TILTED, "zscale": 2})
    space.add_blockref("INNER", (0, 100), dxfattribs={
        "column_count": 3, "row_count": 2, "column_spacing": 8, "row_spacing": 11, "rotation": 45})


def newer(space):
    space.add_lwpolyline([(0, 0, 0, 0, 0), (9, 0, 0, 0, 0.4), (9, 6, 0, 0, -0.3), (1, 5)],
                         close=True)
    space.add_lwpolyline([(0, 0, 0, 0, 0.7), (9, 3, 0, 0, 0.4), (9, 6)],
                         dxfattribs={"extrusion": TILTED, "elevation": 4})
    space.add_ellipse((20, 5), (6, 3), 0.4)
    space.add_ellipse((20, 25), (6, 3), 0.4, 0.5, 4.0)
    space.add_ellipse((20, 45), (0, 3), 0.9, 5.0, 1.0)
    space.add_ellipse((40, 45), (3, 0), 0.5, 1.0, 5.0, dxfattribs={"extrusion": (0, 0, -1)})
    points = [(0, 40), (5, 50), (10, 38), (18, 44), (20, 52), (27, 41)]
    for degree in (1, 2, 3, 4, 5):
        space.add_open_spline([(x, y + 20 * degree) for x, y in points], degree)
    space.add_rational_spline([(x + 40, y) for x, y in points], [1, 2, 0.5, 4, 1, 1], 3)
    space.add_spline().set_closed([(x + 80, y, 0) for x, y in points], 3)
    space.add_spline().set_closed_rational(
        [(x + 80, y + 30, 0) for x, y in points], [1, 2, 3, 1, 2, 1], 3)
    quarter = math.sqrt(0.5)
    space.add_rational_spline([(60, 0), (60, 10), (50, 10)], [1, quarter, 1], 2)
    space.add_leader([(0, 0), (5, 5), (9, 5)], dxfattribs={"has_arrowhead": 0})


def hatches(space):
    square = space.add_hatch(color=2)
    square.paths.add_polyline_path([(0, 0), (10, 0, 0.5), (10, 10), (0, 10)], is_closed=True)
    square.paths.add_polyline_path([(3, 3), (6, 3), (6, 6)], is_closed=True, flags=16)
    edges = space.add_hatch(color=3).paths.add_edge_path()
    edges.add_line((20, 0), (30, 0))
    edges.add_arc((30, 5), 5, 270, 450, ccw=True)
    edges.add_line((30, 10), (20, 10))
    edges.add_arc((20, 5), 5, 90, 270, ccw=True)
    clockwise = space.add_hatch(color=3).paths.add_edge_path()
    clockwise.add_line((40, 0), (40, 10))
    clockwise.add_arc((45, 10), 5, 0, 180, ccw=False)
    clockwise.add_line((50, 10), (50, 0))
    clockwise.add_line((50, 0), (40, 0))
    ellipses = space.add_hatch(color=3).paths.add_edge_path()
    ellipses.add_ellipse((70, 5), (8, 2), 0.5, 0, 360)
    half = space.add_hatch(color=3).paths.add_edge_path()
    half.add_ellipse((70, 25), (8, 0), 0.5, 0, 180)
    half.add_line((62, 25), (78, 25))
    curve = space.add_hatch(color=3).paths.add_edge_path()
    curve.add_spline(control_points=[(0, 20), (5, 30), (10, 15), (15, 20)], degree=3,
                     knot_values=[0, 0, 0, 0, 1, 1, 1, 1])
    curve.add_line((15, 20), (0, 20))


def dimensions(space):
    space.add_linear_dim(base=(0, 12), p1=(0, 0), p2=(25, 3), override={"dimtxt": 2.5}).render()


FEATURES = {"plain": plain, "tilted": tilted, "blocks": blocks, "newer": newer,
            "hatches": hatches, "dimensions": dimensions}
SINCE_2000 = {"newer", "hatches"}


def write(folder):
    for version in VERSIONS:
        for name, draw in FEATURES.items():
            if version == "R12" and name in SINCE_2000:
                continue
            drawing = ezdxf.new(version, setup=True)
            drawing.units = MILLIMETRES
            draw(drawing.modelspace())
            drawing.saveas(folder / f"{name}-{version}.dxf")
            with open(folder / f"{name}-{version}-binary.dxf", "wb") as stream:
                drawing.write(stream, fmt="bin")


def spline_points(curve, steps=400):
    """Points of a spline where it is defined: its packaged path is a cubic through some of them."""
    knots = curve.knots()
    first, last = knots[curve.degree], knots[curve.count]
    places = [first + (last - first) * i / steps for i in range(steps + 1)]
    return [(point.x, point.y) for point in curve.points(sorted({*places, *knots[
        curve.degree:curve.count + 1]}))]


def flat_curves(drawing, tolerance):
    """The points of every curve of the model space, seen from above."""
    for entity in disassemble.recursive_decompose(drawing.modelspace()):
        kind = entity.dxftype()
        if kind in ("TEXT", "MTEXT", "POINT", "ATTRIB", "ATTDEF"):
            continue
        if kind == "HATCH":
            paths = curves.from_hatch(entity)
        elif kind in ("SOLID", "TRACE", "3DFACE"):
            corners = entity.wcs_vertices(close=True)
            yield [(corner.x, corner.y) for corner in corners]
            continue
        elif kind == "SPLINE":
            yield spline_points(entity.construction_tool())
            continue
        elif kind == "LEADER":  # without its arrow head
            yield [(corner.x, corner.y) for corner in entity.vertices]
            continue
        else:
            paths = [primitive.path for primitive in disassemble.to_primitives([entity])]
        for path in paths:
            if path is not None and len(path):
                yield [(point.x, point.y) for point in path.flattening(tolerance, segments=8)]


def main():
    command = sys.argv[1]
    if command == "write":
        write(Path(sys.argv[2]))
    elif command == "flatten":
        for file in sys.argv[3:]:
            for points in flat_curves(ezdxf.readfile(file), float(sys.argv[2])):
                print(file, *(f"{x!r} {y!r}" for x, y in points))
    elif command == "time":
        begin = time.perf_counter()
        count = sum(1 for _ in flat_curves(ezdxf.readfile(sys.argv[2]), 0.01))
        print(time.perf_counter() - begin, count)
    elif command == "layers":
        drawing = ezdxf.readfile(sys.argv[2])
        assert not drawing.audit().errors
        for layer in drawing.layers:
            count = len(drawing.modelspace().query(f'*[layer=="{layer.dxf.name}"]'))
            print(layer.dxf.name, layer.color, count)


main()
