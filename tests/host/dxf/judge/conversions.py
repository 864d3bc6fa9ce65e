"""Saves drawings by the program under test and collects what the judges find in the results."""

import subprocess
from collections import Counter
from pathlib import Path

from judge.compare_documents import audit_errors, compare_audits, compare_blocks, compare_documents, compare_names
from judge.compare_tags import compare_tags
from judge.drawing_file import NEWEST, RELEASES, DrawingFile
from judge.older_releases import compare_older
from judge.twins import compare_twins


class SaveFailed(Exception):
    pass


class Workshop:
    """Saves with the program under test into a folder."""

    def __init__(self, program, folder):
        self.program = program
        self.folder = Path(folder)

    def save(self, path, name, *options):
        target = self.folder / f"{name}.dxf"
        run = subprocess.run([self.program, path, target, *options], capture_output=True, text=True, timeout=120)
        if run.returncode != 0:
            raise SaveFailed(f"{Path(self.program).name} failed ({run.returncode}): {run.stderr.strip()}")
        return DrawingFile(target)


def outcome(title, judge):
    """A title and the differences found."""
    try:
        return title, list(judge())
    except SaveFailed as error:
        return title, [str(error)]
    except Exception as error:  # ezdxf gives up on the result
        return title, [f"{type(error).__name__}: {error}"]


def releases_from(release):
    names = list(RELEASES)
    return names[names.index(release):]


def releases_before(release):
    names = list(RELEASES)
    return names[:names.index(release)]


def judge_newer(workshop, path):
    """As its own release and as each newer one in text form, as the newest in binary form too."""
    source = DrawingFile(path)
    errors = audit_errors(source)

    def judge(release, options):
        result = workshop.save(path, "once", release, *options)
        yield from _compare_forms(workshop, result, release, options)
        yield from compare_tags(source, result)
        yield from compare_documents(source, result)
        yield from compare_names(source, result)
        yield from compare_audits(errors, result)

    for release in releases_from(source.release):
        yield outcome(f"{path.name}: {source.release} -> {release}", lambda: judge(release, ()))
    yield outcome(f"{path.name}: {source.release} -> {NEWEST} binary", lambda: judge(NEWEST, ("--binary",)))


def judge_older(workshop, path):
    """As each older release; what was written is then a drawing of that release, and survives as all others do."""
    source = DrawingFile(path)
    errors = audit_errors(source)

    def judge(release, options):
        result = workshop.save(path, "older", release, *options)
        yield from _compare_forms(workshop, result, release, options)
        yield from compare_older(source, result)
        yield from compare_audits(errors, result)
        newer = workshop.save(result.path, "newer", NEWEST)
        yield from compare_tags(result, newer)
        yield from compare_documents(result, newer)

    for release in releases_before(source.release):
        for options in ((), ("--binary",)):
            yield outcome(f"{path.name}: {source.release} -> {release}{' binary' if options else ''}",
                          lambda: judge(release, options))


def _compare_forms(workshop, result, release, options):
    if (result.code, result.is_binary) != (RELEASES[release], bool(options)):
        yield f"the result is {result.code}, {'binary' if result.is_binary else 'text'}"
    again = workshop.save(result.path, "again", release, *options)
    if result.path.read_bytes() != again.path.read_bytes():
        yield "saving the result once more gives other bytes"


def judge_twins(workshop, path):
    """The text twin of a pair; the other one has "binary" in the place of "ascii" in its name."""
    other = path.with_name(path.name.replace("ascii", "binary"))
    release = DrawingFile(path).release

    known = Counter(compare_twins(DrawingFile(path), DrawingFile(other)))  # the twins are not quite equal themselves

    def judge(target):
        found = Counter(compare_twins(workshop.save(path, "text", target), workshop.save(other, "binary", target)))
        yield from (found - known).elements()

    for target in dict.fromkeys((release, NEWEST)):
        yield outcome(f"{path.name} and {other.name} as {target}", lambda: judge(target))


def judge_moved(workshop, path):
    """The program moves all of model space by (1,0) before it saves: coordinates differ, all else holds."""
    source = DrawingFile(path)
    errors = audit_errors(source)

    def judge():
        result = workshop.save(path, "once")
        if workshop.save(path, "again").path.read_bytes() != result.path.read_bytes():
            yield "moving and saving once more gives other bytes"
        yield from compare_tags(source, result, with_records=False)
        yield from compare_blocks(source, result)
        yield from _compare_places(source.document, result.document)
        yield from compare_audits(errors, result)

    yield outcome(path.name, judge)


def _compare_places(source, result):
    """Lines and circles of model space stand 1 further along X."""
    for entity in source.modelspace().query("LINE CIRCLE"):
        name = "start" if entity.dxftype() == "LINE" else "center"
        if entity.dxf.hasattr("extrusion") and not entity.dxf.extrusion.isclose((0, 0, 1)):
            continue
        old, new = entity.dxf.get(name), result.entitydb[entity.dxf.handle].dxf.get(name)
        if not new.isclose(old + (1, 0, 0)):
            yield f"{entity.dxftype()} {entity.dxf.handle} moved from {old} to {new}"
