#!/usr/bin/python3
"""Opens and saves every text drawing of the corpus and lets ezdxf compare the results with the sources.

Usage: check_roundtrip.py [--moved] RESAVE [NAME...]    RESAVE: program that opens IN and saves it as OUT
With --moved, the program moves all of model space by (1,0) before it saves: coordinates differ, all else holds.
The corpus lies in the folder that VORN_CORPUS names; without it, or without ezdxf, the test is skipped (77).
"""

import os
import subprocess
import sys
import tempfile
from collections import Counter
from pathlib import Path

SKIPPED = 77
BINARY = b" Binary DXF"
OLD_RELEASES = ("AC1006", "AC1009", "AC1012", "AC1014")

# Group codes of handles and of references to other objects.
HANDLES = (5, 105)
REFERENCES = set(range(320, 370)) | set(range(390, 400)) | {480, 481, 1005}

# References that ezdxf adds while reading, to objects that are not in the source.
ADDED_REFERENCES = {"layout", "material_handle"}

# Names that the drawing spells its own way: they are compared without regard to case.
CASELESS = {"layer", "linetype", "style", "name", "dimstyle"}


def skip(reason):
    print("skipped:", reason)
    sys.exit(SKIPPED)


try:
    import ezdxf
    from ezdxf.entities import DXFGraphic
    from ezdxf.lldxf.encoding import decode_dxf_unicode
    from ezdxf.lldxf.tagger import ascii_tags_loader
except ImportError:
    skip("python3-ezdxf is not installed")


def release_of(path):
    data = path.read_bytes()
    if BINARY in data[:24]:
        return "binary"
    lines = data.split(b"\n", 400)
    for i, line in enumerate(lines):
        if line.strip() == b"$ACADVER":
            return lines[i + 2].strip().decode()
    return "unknown"


def raw_tags(path):
    with open(path, encoding="utf-8", errors="surrogateescape") as file:
        return [(tag.code, tag.value) for tag in ascii_tags_loader(file, skip_comments=False)]


def sections_of(tags):
    names = [tags[i + 1][1] for i, tag in enumerate(tags) if tag == (0, "SECTION")]
    return [name for name in names if name != "THUMBNAILIMAGE"]


def handles_of(tags):
    """Handles of all records by the type of the record."""
    found, record, is_open = {}, "", False
    for code, value in tags:
        if code == 0:
            record, is_open = value, True
        elif code == 9 or code == 100:
            is_open = False
        elif is_open and code == (105 if record == "DIMSTYLE" else 5):
            found[value.strip().upper()] = record
            is_open = False
    return found


def resolved_references(tags, handles):
    return {value.strip().upper() for code, value in tags if code in REFERENCES} & set(handles)


def audit_errors(document):
    auditor = document.audit()
    return Counter(str(error.code) for error in auditor.errors + auditor.fixes)


def comparable(attribs):
    """Values as text: points of ezdxf compare with a tolerance, their text shows every bit."""
    values = {key: decode_dxf_unicode(str(value)) for key, value in attribs.items() if (key, value) != ("paperspace", 0)}
    return {key: value.lower() if key in CASELESS else value for key, value in values.items()}


def entities_of(block):
    """Entities with what ezdxf hangs onto them: attributes, vertices, further columns of a text (which it takes for
    entities of their own in drawings of the current release)."""
    for entity in block:
        yield entity
        if entity.dxftype() == "INSERT":
            yield from entity.attribs
        elif entity.dxftype() == "POLYLINE":
            yield from entity.vertices
        elif entity.dxftype() == "MTEXT" and entity.has_columns:
            yield from entity._columns.linked_columns


def compare_attributes(a, b, handles):
    """Records and objects may get defaults that the source left out, and the table that they stand in as owner."""
    old, new = comparable(a.dxfattribs()), comparable(b.dxfattribs())
    if not isinstance(a, DXFGraphic) or old.get("owner") in (None, "None"):  # ezdxf takes some owners away
        old.pop("owner", None)
        new.pop("owner", None)
    for key in ADDED_REFERENCES:
        if old.get(key) not in handles:
            old.pop(key, None)
            new.pop(key, None)
    for key in sorted(set(old) | set(new) if isinstance(a, DXFGraphic) else old):
        if old.get(key) != new.get(key):
            yield f"{a.dxftype()} {a.dxf.handle}: {key} was {old.get(key)} and is {new.get(key)}"


def compare_blocks(source, result):
    for block in source.blocks:
        if block.name not in result.blocks:
            yield f"the block {block.name} is lost"
            continue
        handles = [[entity.dxf.handle for entity in entities_of(each)]
                   for each in (block, result.blocks.get(block.name))]
        if handles[0] != handles[1]:
            yield f"{block.name}: {len(handles[0])} entities became {len(handles[1])}, or they or their order changed"


def compare_documents(source, result, handles):
    names, new_names = (sorted(layout.name for layout in document.layouts) for document in (source, result))
    if names != new_names:
        yield f"layouts {names} became {new_names}"
    yield from compare_blocks(source, result)
    for handle in handles:
        record, other = source.entitydb.get(handle), result.entitydb.get(handle)
        if record is not None and other is not None and record.is_alive and other.is_alive:
            yield from compare_attributes(record, other, handles)


def compare_tags(source, result):
    handles, new_handles = handles_of(source), handles_of(result)
    for handle, record in sorted(handles.items()):
        if new_handles.get(handle) != record:
            yield f"{record} {handle} became {new_handles.get(handle)}"
    lost = resolved_references(source, handles) - set(new_handles)
    if lost:
        yield f"references no longer resolve: {sorted(lost)}"
    lost = [name for name in sections_of(source) if name not in sections_of(result)]
    if lost:
        yield f"sections are lost: {lost}"
    for code in (999, 1001, 310, 1004):
        count, new_count = (sum(tag[0] == code for tag in tags) for tags in (source, result))
        if count != new_count:
            yield f"group {code} stood there {count} times and does {new_count} times"
    variables = {value for code, value in source if code == 9} - {value for code, value in result if code == 9}
    if variables:
        yield f"header variables are lost: {sorted(variables)}"


def compare_places(source, result):
    """Lines and circles of model space stand 1 further along X."""
    for entity in source.modelspace().query("LINE CIRCLE"):
        name = "start" if entity.dxftype() == "LINE" else "center"
        if entity.dxf.hasattr("extrusion") and not entity.dxf.extrusion.isclose((0, 0, 1)):
            continue
        old, new = entity.dxf.get(name), result.entitydb[entity.dxf.handle].dxf.get(name)
        if not new.isclose(old + (1, 0, 0)):
            yield f"{entity.dxftype()} {entity.dxf.handle} moved from {old} to {new}"


def compare(source_path, result_path, is_moved):
    source_tags = raw_tags(source_path)
    yield from compare_tags(source_tags, raw_tags(result_path))
    source, result = ezdxf.readfile(source_path), ezdxf.readfile(result_path)
    if is_moved:
        yield from compare_blocks(source, result)
        yield from compare_places(source, result)
    else:
        yield from compare_documents(source, result, handles_of(source_tags))
    for error in (audit_errors(result) - audit_errors(source)).elements():
        yield f"new audit error: {error}"


def check(resave, source, folder, is_moved):
    """Differences between a drawing and what became of it; saves it twice."""
    first, second = folder / source.name, folder / ("again_" + source.name)
    for given, saved in ((source, first), (source if is_moved else first, second)):
        run = subprocess.run([resave, given, saved], capture_output=True, text=True, timeout=60)
        if run.returncode != 0:
            return [f"{Path(resave).name} failed: {run.stderr.strip()}"]
    differences = list(compare(source, first, is_moved))
    if first.read_bytes() != second.read_bytes():
        differences.append("saving the drawing once more gives other bytes")
    return differences


def main():
    corpus = os.environ.get("VORN_CORPUS")
    if not corpus:
        skip("VORN_CORPUS is not set")
    arguments = sys.argv[1:]
    is_moved = arguments[0] == "--moved"
    resave, *wanted = arguments[1:] if is_moved else arguments
    drawings = [path for path in sorted(Path(corpus, "dxf").glob("*.dxf"))
                if release_of(path).startswith("AC10") and release_of(path) not in OLD_RELEASES
                and (not wanted or path.name in wanted)]
    if not drawings:
        print(f"no drawings in {corpus}/dxf")
        return 1
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        for drawing in drawings:
            differences = check(resave, drawing, Path(folder), is_moved)
            failed += bool(differences)
            print(f"{'FAILED' if differences else 'ok    '} {drawing.name}")
            for difference in differences[:20]:
                print("   ", difference)
            if len(differences) > 20:
                print(f"    ... and {len(differences) - 20} more")
    print(f"{len(drawings) - failed} of {len(drawings)} drawings survive")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
