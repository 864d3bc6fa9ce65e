"""Compares two drawing files tag by tag: nothing that stands in the first may be missing in the second."""

from collections import Counter

from judge.drawing_file import COMMENT, REFERENCES, todays_name

EXTENDED_DATA = range(1000, 1072)
BINARY_CHUNKS = range(310, 320)

# The program answers for these itself: release, seed of handles, code page of the target.
OWN_VARIABLES = {"$ACADVER", "$HANDSEED", "$DWGCODEPAGE", "$ACADMAINTVER"}

# Groups that hold names of records: the drawing spells a name as its record does.
NAME_CODES = {2, 3, 6, 7, 8}

# What stands in a table, in the frame of a block or behind its entity belongs there; some programs write another owner.
OWNER = 330
PLACED_SECTION = "TABLES"
PLACED = {"BLOCK", "ENDBLK", "ATTRIB", "VERTEX", "SEQEND"}

# The head of a table holds the number of its records, which some programs do not keep right, and for dimension styles
# their handles in any order.
COUNTS_IN_TABLE = {("TABLE", 70), ("TABLE", 71)}
UNORDERED = {("TABLE", 340)}
BRACES = 102


# Before R2000, extended data held what viewports have fields for now, and dimension styles named their arrows. Tags
# cannot be compared then; the attributes that ezdxf makes of them are.
MOVED_CODES = {"VIEWPORT": set(EXTENDED_DATA), "DIMSTYLE": {5, 6, 7}}


# Some programs write groups of texts once more below the marker of the attribute. R12 has no markers: there they stand
# twice in a row, and are read once.
REPEATING = {"ATTRIB", "ATTDEF"}


def compare_tags(source, result, with_records=True):
    yield from _compare_handles(source, result)
    yield from _compare_contents(source, result)
    yield from _compare_header(source, result)
    if with_records:
        yield from _compare_records(source, result)


def _compare_handles(source, result):
    for handle, record in sorted(source.handles.items()):
        other = result.handles.get(handle)
        if other is None or other.name != record.name:
            yield f"{record.name} {handle} became {other.name if other else None}"
    lost = source.resolved_references() - set(result.handles)
    if lost:
        yield f"references no longer resolve: {sorted(lost)}"


def _compare_contents(source, result):
    lost = [name for name in source.sections if name not in result.sections]
    if lost:
        yield f"sections are lost: {lost}"
    for title, codes in (("comments", [COMMENT]), ("extended data", EXTENDED_DATA), ("binary chunks", BINARY_CHUNKS)):
        old, new = (Counter(_tags_of(each, codes, source)) for each in (source, result))
        for difference, word in ((old - new, "lost"), (new - old, "added")):
            if difference:
                yield f"{title} {word}: {_few(list(difference.elements()))}"


def _moved_codes(name, source):
    return MOVED_CODES.get(name, ()) if source.is_old else ()


def _tags_of(file, codes, source):
    for record in file.records:
        moved = _moved_codes(record.name, source)
        for tag in record.tags:
            if tag[0] in codes and tag[0] not in moved:
                yield tag


def _compare_header(source, result):
    for name, value in source.header.items():
        if name not in result.header:
            yield f"the header variable {name} is lost"
        elif name not in OWN_VARIABLES and _caseless(value) != _caseless(result.header[name]):
            yield f"{name} was {value} and is {result.header[name]}"


def _compare_records(source, result):
    for handle, record in source.handles.items():
        other = result.handles.get(handle)
        if other is None:
            continue
        old, new = record.values_by_code(), other.values_by_code()
        for code, values in old.items():
            if code in _moved_codes(record.name, source):
                continue
            if code in REFERENCES:  # what refers to nothing may be mended
                values = [value for value in values if value in source.handles]
            if record.name in REPEATING and source.release == "R12":
                values = list(dict.fromkeys(values))
            if not _holds(record, code, values, new.get(code, [])):
                yield f"{record.name} {handle}: group {code} was {_few(values)} and is {_few(new.get(code, []))}"


def _holds(record, code, values, new_values):
    """All values are there still, in their order."""
    if (record.name, code) in COUNTS_IN_TABLE:
        return True
    if code == OWNER and (record.section == PLACED_SECTION or record.name in PLACED):
        values = [value for value in values if value != record.owner]
    if code in NAME_CODES:
        values, new_values = ([todays_name(value).lower() for value in each] for each in (values, new_values))
    if code == BRACES or (record.name, code) in UNORDERED:  # groups in braces may change their order
        return not Counter(values) - Counter(new_values)
    return _is_subsequence(values, new_values)


def _caseless(tags):
    return [(code, value.lower()) if code in NAME_CODES else (code, value) for code, value in tags]


def _is_subsequence(part, whole):
    rest = iter(whole)
    return all(value in rest for value in part)


def _few(values):
    return f"{values[:6]}{f' ... {len(values)} of them' if len(values) > 6 else ''}"
