#!/usr/bin/python3
"""Makes floor_plan.dxf beside this script: a small office floor with doors and desks as blocks (millimetres)."""
from pathlib import Path

from drawing_support import cross, new_drawing, save

WIDTH, DEPTH, WALL = 24000.0, 15000.0, 200.0
ROOMS = 4  # along each long side
CORRIDOR = (6500.0, 8500.0)


def define_blocks(doc):
    door = doc.blocks.new("DOOR")
    door.add_line((0, 0), (0, 900), {"layer": "DOORS"})
    door.add_arc((0, 0), 900, 0, 90, dxfattribs={"layer": "DOORS"})
    door.add_attdef("NUMBER", (450, 300), "D00",
                    dxfattribs={"height": 150, "layer": "TEXT", "prompt": "Door number"})
    door.add_attdef("FIRE", (450, 100), "NO",
                    dxfattribs={"height": 100, "layer": "TEXT", "prompt": "Fire door", "flags": 1})
    desk = doc.blocks.new("DESK")
    desk.add_lwpolyline([(0, 0), (1600, 0), (1600, 800), (0, 800)], close=True, dxfattribs={"layer": "FURNITURE"})
    desk.add_circle((800, 1100), 250, {"layer": "FURNITURE"})
    desk.add_arc((800, 1100), 300, 30, 150, dxfattribs={"layer": "FURNITURE"})
    column = doc.blocks.new("COLUMN")
    column.add_lwpolyline([(-150, -150), (150, -150), (150, 150), (-150, 150)], close=True,
                          dxfattribs={"layer": "COLUMNS"})
    cross(column, (0, 0), 250, "GRID")


def double_line(space, start, end):
    """A wall: two parallel lines, WALL apart, along an axis."""
    (x1, y1), (x2, y2) = start, end
    dx, dy = (0, WALL / 2) if y1 == y2 else (WALL / 2, 0)
    space.add_line((x1 - dx, y1 - dy), (x2 - dx, y2 - dy), {"layer": "WALLS"})
    space.add_line((x1 + dx, y1 + dy), (x2 + dx, y2 + dy), {"layer": "WALLS"})


def walls(space):
    outer = [(0, 0), (WIDTH, 0), (WIDTH, DEPTH), (0, DEPTH)]
    space.add_lwpolyline(outer, close=True, dxfattribs={"layer": "WALLS", "const_width": WALL})
    for y in CORRIDOR:
        double_line(space, (0, y), (WIDTH, y))
    for k in range(1, ROOMS):
        x = k * WIDTH / ROOMS
        double_line(space, (x, 0), (x, CORRIDOR[0]))
        double_line(space, (x, CORRIDOR[1]), (x, DEPTH))


def rooms(space):
    number = 0
    for upper in (False, True):
        for k in range(ROOMS):
            number += 1
            x, y = k * WIDTH / ROOMS, CORRIDOR[1] if upper else 0.0
            name = space.add_text(f"ROOM {100 + number}", dxfattribs={"layer": "TEXT", "height": 300})
            name.set_pos((x + 2000, y + 3000))
            # Doors open into their rooms, beside the desks.
            hinge, rotation = ((x + 4900, CORRIDOR[1]), 0) if upper else ((x + 5800, CORRIDOR[0]), 180)
            door = space.add_blockref("DOOR", hinge, {"layer": "DOORS", "rotation": rotation})
            door.add_auto_attribs({"NUMBER": f"D{number:02}", "FIRE": "YES" if k == 0 else "NO"})
            for row in range(2):
                for column in range(2):
                    space.add_blockref("DESK", (x + 500 + column * 2400, y + 700 + row * 3600),
                                       {"layer": "FURNITURE"})


def grid(space):
    for k in range(9):
        x = k * WIDTH / 8
        space.add_line((x, -1500), (x, DEPTH + 800), {"layer": "GRID"})
        space.add_circle((x, -1900), 400, {"layer": "GRID"})
        letter = space.add_text(chr(ord("A") + k), dxfattribs={"layer": "GRID", "height": 350})
        letter.set_pos((x - 120, -2070))
        for y in CORRIDOR:
            space.add_blockref("COLUMN", (x, y), {"layer": "COLUMNS"})


def tiles(space):
    """The corridor floor, 600 by 600."""
    y = CORRIDOR[0] + WALL / 2 + 300
    while y < CORRIDOR[1] - WALL / 2:
        space.add_line((0, y), (WIDTH, y), {"layer": "TILES"})
        y += 600
    for k in range(1, int(WIDTH / 600)):
        space.add_line((k * 600, CORRIDOR[0] + WALL / 2), (k * 600, CORRIDOR[1] - WALL / 2), {"layer": "TILES"})


def windows(space):
    for k in range(2 * ROOMS):
        x = 900 + k * WIDTH / (2 * ROOMS)
        for y in (0, DEPTH):
            for offset in (-60, 0, 60):
                space.add_line((x, y + offset), (x + 1400, y + offset), {"layer": "WINDOWS"})


def main():
    doc = new_drawing([("WALLS", 7, "Continuous"), ("DOORS", 4, "Continuous"), ("WINDOWS", 5, "Continuous"),
                       ("FURNITURE", 8, "Continuous"), ("COLUMNS", 1, "Continuous"), ("GRID", 1, "CENTER"),
                       ("TILES", 9, "Continuous"), ("TEXT", 2, "Continuous")])
    define_blocks(doc)
    space = doc.modelspace()
    for draw in (walls, rooms, windows, tiles, grid):
        draw(space)
    save(doc, Path(__file__).with_name("floor_plan.dxf"))


main()
