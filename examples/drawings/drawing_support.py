"""What the scripts beside share: a new drawing whose file comes out byte for byte the same every time."""
import os
import sys

if os.environ.get("PYTHONHASHSEED") != "0":  # some objects are listed in the order of a hash
    os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "PYTHONHASHSEED": "0"})

import ezdxf  # noqa: E402
from ezdxf import options  # noqa: E402


def new_drawing(layers):
    """A metric R2018 drawing with layers given as (name, color, linetype)."""
    options.write_fixed_meta_data_for_testing = True
    doc = ezdxf.new("R2018", setup=["linetypes"])
    doc.header["$INSUNITS"] = 4  # millimetres
    for name, color, linetype in layers:
        doc.layers.add(name, color=color, linetype=linetype)
    return doc


def cross(space, center, size, layer):
    """Centre lines through a point."""
    x, y = center
    space.add_line((x - size, y), (x + size, y), {"layer": layer})
    space.add_line((x, y - size), (x, y + size), {"layer": layer})


def save(doc, path):
    doc.saveas(path)
    auditor = doc.audit()
    if auditor.errors:
        raise SystemExit(f"{path}: {auditor.errors[0].message}")
    print(f"{path}: {len(doc.modelspace())} entities in model space")
