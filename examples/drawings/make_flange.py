"""Makes flange.dxf beside this script: a toothed flange with bolt holes, in plan and in section (millimetres)."""
"""Makes flange.dxf beside this script: a toothed flange with bolt holes, in plan and in section (millimetres)."""
import math
from pathlib import Path

from drawing_support import cross, new_drawing, save

TEETH = 48
HOLES = 8
OUTER, ROOT, BORE, BOLT_CIRCLE, HOLE = 120.0, 112.0, 40.0, 80.0, 9.0
THICKNESS, HUB, HUB_HEIGHT = 20.0, 60.0, 45.0


def polar(radius, angle):
    return (radius * math.cos(angle), radius * math.sin(angle))


def plan(space):
    for k in range(TEETH):
        step = 2 * math.pi / TEETH
        flank = [polar(r, (k + part) * step) for r, part in ((ROOT, 0.0), (OUTER, 0.2), (OUTER, 0.5), (ROOT, 0.7))]
        for start, end in zip(flank, flank[1:]):
            space.add_line(start, end, {"layer": "PART"})
        start, end = math.degrees((k + 0.7) * step), math.degrees((k + 1) * step)
        space.add_arc((0, 0), ROOT, start, end, dxfattribs={"layer": "PART"})
    for radius in (BORE, HUB):
        space.add_circle((0, 0), radius, {"layer": "PART"})
    space.add_circle((0, 0), BOLT_CIRCLE, {"layer": "CENTER"})
    cross(space, (0, 0), OUTER + 10, "CENTER")
    for k in range(HOLES):
        center = polar(BOLT_CIRCLE, 2 * math.pi * k / HOLES)
        space.add_circle(center, HOLE, {"layer": "HOLES"})
        space.add_point(center, {"layer": "HOLES"})
        cross(space, center, HOLE + 4, "CENTER")
    # keyway: three sides of a slot, rounded at its corners
    space.add_lwpolyline([(-6, 38, 0, 0, 0), (-6, 44, 0, 0, -0.2), (6, 44, 0, 0, 0), (6, 38, 0, 0, 0)],
                         dxfattribs={"layer": "PART"})


def section(space, x0):
    """Half section beside the plan; the cut faces are lined by hand so that every stroke is a line."""
    outline = [(x0, BORE), (x0, OUTER), (x0 + THICKNESS, OUTER), (x0 + THICKNESS, HUB),
               (x0 + HUB_HEIGHT, HUB), (x0 + HUB_HEIGHT, BORE)]
    space.add_lwpolyline(outline, close=True, dxfattribs={"layer": "PART"})
    space.add_lwpolyline([(x, -y) for x, y in outline], close=True, dxfattribs={"layer": "PART"})
    for side in (1, -1):
        for k in range(12):
            y = HUB + 5 + k * 4.5
            space.add_line((x0, side * y), (x0 + THICKNESS, side * (y + 4)), {"layer": "SECTION"})
    space.add_line((x0 - 10, 0), (x0 + HUB_HEIGHT + 10, 0), {"layer": "CENTER"})


def title(space):
    space.add_lwpolyline([(-150, -170), (260, -170), (260, 150), (-150, 150)], close=True,
                         dxfattribs={"layer": "FRAME"})
    for row, text in enumerate(("FLANGE 48T", "8 x Ø18 on Ø160", "SCALE 1:1", "UNITS: MM")):
        y = -140 - row * 8
        space.add_text(text, dxfattribs={"layer": "TEXT", "height": 4.0}).set_pos((170, y))
        space.add_line((160, y - 2), (260, y - 2), {"layer": "FRAME"})


def main():
    doc = new_drawing([("PART", 7, "Continuous"), ("HOLES", 3, "Continuous"), ("CENTER", 1, "CENTER"),
                       ("SECTION", 8, "Continuous"), ("TEXT", 2, "Continuous"), ("FRAME", 5, "Continuous")])
    space = doc.modelspace()
    plan(space)
    section(space, 170.0)
    title(space)
    save(doc, Path(__file__).with_name("flange.dxf"))


main()
