"""Compares what ezdxf makes of two drawing files: layouts, blocks, entities with their order, every attribute."""

import re
from collections import Counter

from ezdxf.entities import DXFGraphic
from ezdxf.lldxf.encoding import decode_dxf_unicode

from judge.old_viewports import attributes_of_view

# References that ezdxf adds while reading, to objects that are not in the source.
ADDED_REFERENCES = {"layout", "material_handle", "plotstyle_handle"}

# Names that the drawing spells its own way: they are compared without regard to case.
CASELESS = {"layer", "linetype", "style", "name", "dimstyle"}


# Files of R12 name no owners, and ezdxf gives none to the end marks of sequences in blocks.
OWNERLESS_END = re.compile(r"Deleted SEQEND\(#[0-9A-F]+\) entity with invalid owner handle #None")


def audit_errors(file):
    auditor = file.load().audit()  # auditing mends, hence a document of its own
    return Counter(str(error.code) for error in auditor.errors + auditor.fixes
                   if file.release != "R12" or not OWNERLESS_END.match(error.message))


def compare_audits(source_errors, result):
    for error in (audit_errors(result) - source_errors).elements():
        yield f"new audit error: {error}"


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


def compare_documents(source, result):
    old, new = source.document, result.document
    names, new_names = (sorted(layout.name for layout in document.layouts) for document in (old, new))
    if names != new_names:
        yield f"layouts {names} became {new_names}"
    yield from compare_blocks(source, result)
    for record, other in _pairs(source, result):
        yield from _compare_attributes(record, other, source, result)


def compare_blocks(source_file, result_file):
    """Blocks of the file: ezdxf adds some that names in old dimension styles call for."""
    source, result = source_file.document, result_file.document
    names = source_file.block_names()
    for block in source.blocks:
        if block.name.lower() not in names:
            continue
        if block.name not in result.blocks:
            yield f"the block {block.name} is lost"
            continue
        handles = [[entity.dxf.handle for entity in entities_of(each)]
                   for each in (block, result.blocks.get(block.name))]
        if handles[0] != handles[1]:
            yield f"{block.name}: {len(handles[0])} entities became {len(handles[1])}, or their order changed"


def _pairs(source, result):
    """What is to be equal. Records of tables have no handles in old files; ezdxf invents some, so that only their
    names say which is which."""
    for handle in source.handles:
        record, other = source.document.entitydb.get(handle), result.document.entitydb.get(handle)
        if record is not None and other is not None and record.is_alive and other.is_alive:
            yield record, other
    for name in ("layers", "linetypes", "styles", "dimstyles", "appids", "views", "ucs"):
        table, other = getattr(source.document, name), getattr(result.document, name)
        for record in table:
            if record.dxf.handle in source.handles:
                continue
            if record.dxf.name in other:
                yield record, other.get(record.dxf.name)


def compare_names(source, result):
    """Records without handles are found by their names."""
    for name in ("layers", "linetypes", "styles", "dimstyles", "appids", "views", "ucs", "viewports"):
        old, new = (Counter(decode_dxf_unicode(record.dxf.name).lower() for record in _records(getattr(each.document, name)))
                    for each in (source, result))
        if old - new:
            yield f"{name} are lost: {sorted((old - new).elements())}"


def _records(table):
    """Of the table of viewports, ezdxf gives lists of records with one name."""
    for record in table:
        yield from record if isinstance(record, list) else [record]


def _comparable(attribs):
    """Values as text: points of ezdxf compare with a tolerance, their text shows every bit."""
    values = {key: decode_dxf_unicode(str(value)) for key, value in attribs.items()
              if (key, value) != ("paperspace", 0)}
    return {key: value.lower() if key in CASELESS else value for key, value in values.items()}


def _compare_attributes(a, b, source, result):
    """Records and objects may get defaults that the source left out, and the table that they stand in as owner."""
    handles = source.handles
    old, new = _comparable(a.dxfattribs()), _comparable(b.dxfattribs())
    if a.dxftype() == "VIEWPORT" and source.is_old:
        old.update(_comparable(attributes_of_view(handles[a.dxf.handle])))
        new.update(_comparable(attributes_of_view(result.handles[a.dxf.handle])))
        new = {key: value for key, value in new.items() if key in old}
    invented = [key for key in ADDED_REFERENCES if old.get(key) not in handles]
    if old.get("handle") not in handles:
        invented.append("handle")
    # ezdxf takes some owners away, and gives owners to everything in files of releases that did not name them.
    if not isinstance(a, DXFGraphic) or old.get("owner") not in handles:
        invented.append("owner")
    for key in invented:
        old.pop(key, None)
        new.pop(key, None)
    for key in sorted(set(old) | set(new) if isinstance(a, DXFGraphic) else old):
        if old.get(key) != new.get(key):
            yield f"{a.dxftype()} {a.dxf.handle}: {key} was {old.get(key)} and is {new.get(key)}"
