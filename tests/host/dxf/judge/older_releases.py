"""What a drawing that was saved as an older release has to hold still."""

from judge.compare_documents import entities_of
from judge.drawing_file import RELEASES

# The first release that has the entity; what is not listed is in R12 already.
FIRST_RELEASE = {
    **dict.fromkeys(["3DSOLID", "BODY", "REGION", "ELLIPSE", "SPLINE", "LEADER", "MLINE", "MTEXT", "RAY", "XLINE",
                     "TOLERANCE"], "R13"),
    **dict.fromkeys(["HATCH", "IMAGE", "LWPOLYLINE", "OLE2FRAME"], "R14"),
    "WIPEOUT": "R2000",
    **dict.fromkeys(["ACAD_TABLE", "MESH", "MULTILEADER", "MPOLYGON", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION",
                     "HELIX", "LIGHT", "SUN", "SURFACE", "EXTRUDEDSURFACE", "LOFTEDSURFACE", "REVOLVEDSURFACE",
                     "SWEPTSURFACE", "PLANESURFACE", "PDFUNDERLAY", "DGNUNDERLAY", "DWFUNDERLAY", "GEODATA",
                     "SECTION", "ACAD_PROXY_ENTITY"], "R2018"),
}

# Attributes that every release holds under the same meaning.
BASICS = {
    "LINE": ("start", "end"),
    "CIRCLE": ("center", "radius"),
    "ARC": ("center", "radius", "start_angle", "end_angle"),
    "POINT": ("location",),
    "TEXT": ("insert", "height", "rotation", "width"),
    "INSERT": ("insert", "xscale", "yscale", "zscale", "rotation", "row_count", "column_count"),
}


# From R2013 on, the shapes of bodies stand in a section of their own, in a form that no older release reads.
BODIES = {"3DSOLID", "BODY", "REGION"}
FIRST_RELEASE_WITH_BODY_SECTION = RELEASES["R2013"]


def is_in(source, result, entity):
    name = entity.dxftype()
    if name in BODIES and result.code < FIRST_RELEASE_WITH_BODY_SECTION <= source.code:
        return False
    return RELEASES[FIRST_RELEASE.get(name, "R12")] <= result.code


def compare_older(source, result):
    """Entities that the release has are there under their handles, the basic ones with equal geometry."""
    new = result.document.entitydb
    for block in source.document.blocks:
        for entity in entities_of(block):
            handle = entity.dxf.handle
            if handle not in source.handles or not is_in(source, result, entity):
                continue
            other = new.get(handle)
            if other is None or other.dxftype() != entity.dxftype():
                yield f"{entity.dxftype()} {handle} became {other.dxftype() if other else None}"
                continue
            yield from _compare_basics(entity, other)


def _compare_basics(entity, other):
    for name in BASICS.get(entity.dxftype(), ()):
        old, new = str(entity.dxf.get_default(name)), str(other.dxf.get_default(name))
        if old != new:
            yield f"{entity.dxftype()} {entity.dxf.handle}: {name} was {old} and is {new}"
