"""One drawing as text and in binary form reads equal: what is written of both is compared, tag by tag."""

import math

from judge.drawing_file import REFERENCES

# The text forms hold most reals with 16 digits behind the point, some with 6 digits in all; the binary ones hold every
# bit.
RELATIVE = 1e-13
ABSOLUTE = 1e-15
FEWEST_DIGITS = 6

# When and by whom the twin was saved, and how many handles had been used up by then.
VOLATILE_VARIABLES = {"$HANDSEED", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$TDUSRTIMER", "$VERSIONGUID",
                      "$FINGERPRINTGUID"}


def compare_twins(a, b):
    for name in sorted(set(a.header) ^ set(b.header)):
        yield f"only one has {name}"
    for name in sorted((set(a.header) & set(b.header)) - VOLATILE_VARIABLES):
        if not _equal(a.header[name], b.header[name]):
            yield f"{name} is {a.header[name]} and {b.header[name]}"
    records, others = _records(a), _records(b)
    if len(records) != len(others):
        yield f"{len(records)} records and {len(others)}"
    for (record, tags), (other, other_tags) in zip(records, others):
        if record.name != other.name or not _equal(tags, other_tags):
            yield f"{record.name} {record.handle} is {_first_difference(tags, other_tags)}"


def _records(file):
    """All records with their tags. Twins that were saved one after the other have other handles: the number of the
    record in the file stands in for its handle."""
    records = [record for record in file.records if record.section != "HEADER"]
    numbers = {record.handle: f"record {number}" for number, record in enumerate(records) if record.handle}
    codes = REFERENCES | {5, 105}
    return [(record, [(code, numbers.get(value, value)) if code in codes else (code, value)
                      for code, value in record.tags]) for record in records]


def _equal(tags, other_tags):
    return len(tags) == len(other_tags) and all(map(_equal_tags, tags, other_tags))


def _equal_tags(tag, other):
    if tag == other:
        return True
    if tag[0] != other[0]:
        return False
    try:
        value, exact = float(tag[1]), float(other[1])
    except ValueError:
        return False
    is_rounded = value == float(f"{exact:.{FEWEST_DIGITS}g}")
    return is_rounded or math.isclose(value, exact, rel_tol=RELATIVE, abs_tol=ABSOLUTE)


def _first_difference(tags, other_tags):
    for tag, other in zip(tags, other_tags):
        if not _equal_tags(tag, other):
            return f"{tag} and {other}"
    return f"{len(tags)} tags and {len(other_tags)}"
