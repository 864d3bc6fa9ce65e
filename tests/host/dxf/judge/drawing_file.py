"""The tags of a drawing file as they stand there, whatever form and release it has.

Everything is normalised here, so that nothing has to be loosened where tags are compared: numbers are numbers, handles
are upper case without leading zeros, text is decoded. ezdxf's own drawing (drawing_file.document) is another matter:
it mends and completes what it reads.
"""

import io
from functools import cached_property

import ezdxf
from ezdxf.document import Drawing
from ezdxf.lldxf.encoding import decode_dxf_unicode
from ezdxf.lldxf.tagger import ascii_tags_loader, binary_tags_loader
from ezdxf.lldxf.types import BINARY_DATA, HEX_HANDLE_CODES, TYPE_TABLE
from ezdxf.tools.codepage import toencoding

BINARY_MARK = b"AutoCAD Binary DXF\r\n\x1a\x00"

# Releases by the names that the program under test takes, from old to new.
RELEASES = {"R12": "AC1009", "R13": "AC1012", "R14": "AC1014", "R2000": "AC1015", "R2004": "AC1018",
            "R2007": "AC1021", "R2010": "AC1024", "R2013": "AC1027", "R2018": "AC1032"}
NEWEST = "R2018"
FIRST_RELEASE_IN_UTF8 = "AC1021"
FIRST_RELEASE_IN_TODAYS_FORM = "AC1015"

COMMENT = 999

# Group codes of references to other objects.
REFERENCES = set(range(320, 370)) | set(range(390, 400)) | {480, 481, 1005}


class Record:
    """One record: the name behind group 0 and its other tags."""

    def __init__(self, name, section):
        self.name = name
        self.section = section
        self.tags = []

    @cached_property
    def handle(self):
        """None where the record has none. In a dimension style of R12, group 5 is the name of a block."""
        wanted = 105 if self.name == "DIMSTYLE" else 5
        for code, value in self.tags:
            if code in (9, 100):
                break
            if code == wanted:
                return value
        return None

    @cached_property
    def owner(self):
        """The reference that stands before the first marker, outside of braces."""
        is_in_braces = False
        for code, value in self.tags:
            if code == 100:
                break
            if code == 102:
                is_in_braces = value != "}"
            elif code == 330 and not is_in_braces:
                return value
        return None

    def values_by_code(self):
        values = {}
        for code, value in self.tags:
            values.setdefault(code, []).append(value)
        return values


class DrawingFile:
    def __init__(self, path):
        self.path = path
        data = path.read_bytes()
        self.is_binary = data.startswith(BINARY_MARK)
        self.code = _header_text(data, b"$ACADVER", "AC1009")
        self.release = next((name for name, code in RELEASES.items() if code >= self.code), NEWEST)
        if self.is_binary:
            tags = binary_tags_loader(data)
        else:
            encoding = "utf-8" if self.code >= FIRST_RELEASE_IN_UTF8 else \
                toencoding(_header_text(data, b"$DWGCODEPAGE", "ANSI_1252"))
            text = io.TextIOWrapper(io.BytesIO(data), encoding=encoding, errors="surrogateescape")
            tags = ascii_tags_loader(text, skip_comments=False)
        self.tags = [(tag.code, _normalised(tag.code, tag.value)) for tag in tags]

    @cached_property
    def document(self):
        return self.load()

    def load(self):
        """The drawing as ezdxf reads it, once more. ezdxf skips comments in text files but stumbles over them in
        binary ones."""
        if not self.is_binary:
            return ezdxf.readfile(self.path)
        return Drawing.load(tag for tag in binary_tags_loader(self.path.read_bytes()) if tag.code != COMMENT)

    @cached_property
    def records(self):
        records, section = [], ""
        for index, (code, value) in enumerate(self.tags):
            if code == 0:
                if value == "SECTION":
                    section = self.tags[index + 1][1]
                records.append(Record(value, section))
            elif records:
                records[-1].tags.append((code, value))
        return records

    @cached_property
    def handles(self):
        """Records that have a handle by it."""
        return {record.handle: record for record in self.records
                if record.handle is not None and record.section != "HEADER"}

    @cached_property
    def sections(self):
        return [value for index, (code, value) in enumerate(self.tags)
                if code == 2 and self.tags[index - 1] == (0, "SECTION")]

    @cached_property
    def header(self):
        """Values of the header variables by their names."""
        variables, name = {}, None
        for record in self.records:
            if record.section != "HEADER":
                continue
            for code, value in record.tags:
                if code == 9:
                    name = value
                    variables[name] = []
                elif name and code != 999:
                    variables[name].append((code, value))
        return variables

    @property
    def is_old(self):
        return self.code < FIRST_RELEASE_IN_TODAYS_FORM

    def block_names(self):
        """In lower case, the two spaces under their names of today."""
        return {todays_name(value).lower() for record in self.records if record.name == "BLOCK"
                for code, value in record.tags if code == 2}

    def resolved_references(self):
        return {value for code, value in self.tags if code in REFERENCES} & set(self.handles)


def todays_name(name):
    """R12 has other names for the blocks of the two spaces."""
    return {"$model_space": "*Model_Space", "$paper_space": "*Paper_Space"}.get(name.lower(), name)


def _header_text(data, name, default):
    """A header variable that has to be known before the file can be decoded."""
    start = data.find(name + (b"\0" if data.startswith(BINARY_MARK) else b""))
    if start < 0:
        return default
    rest = data[start + len(name):start + len(name) + 40]
    if data.startswith(BINARY_MARK):  # a group code of one or two bytes stands between
        return rest[1:].lstrip(b"\0\1\3").split(b"\0")[0].decode("ascii")
    return rest.split(b"\n")[2].strip().decode("ascii")


def _normalised(code, value):
    if isinstance(value, str) and code not in BINARY_DATA:
        if code in HEX_HANDLE_CODES:
            return value.strip().upper().lstrip("0") or "0"
        try:
            value = TYPE_TABLE.get(code, str)(value)
        except ValueError:
            pass
    if isinstance(value, bytes):
        return value.hex().upper()
    if isinstance(value, float):
        return repr(value)  # shows every bit, and the sign of 0
    return decode_dxf_unicode(value) if isinstance(value, str) else value
