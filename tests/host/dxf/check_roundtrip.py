#!/usr/bin/python3
"""Saves real drawings by a program under test and lets ezdxf compare the results with the sources.

Usage: check_roundtrip.py MODE PROGRAM [NAME...]
  newer   PROGRAM IN OUT RELEASE [--binary]: each drawing as its own release and as every newer one
  older   the same program: each drawing as every older release, and back
  twins   the same program: drawings that are there as text and in binary form are saved equal
  moved   PROGRAM IN OUT: moves model space by (1,0) before it saves

The drawings are the examples of this repository and those in the folder that VORN_CORPUS names. Without ezdxf nothing
can be judged, without VORN_CORPUS the examples only: then the result is "skipped" (77) unless a difference is found.
"""

import multiprocessing
import os
import sys
import tempfile
from functools import partial
from pathlib import Path

SKIPPED = 77
MOST_SHOWN = 20

try:
    from judge import conversions
except ImportError as missing:
    if not (missing.name or "").startswith("ezdxf"):
        raise
    print("skipped: python3-ezdxf is not installed")
    sys.exit(SKIPPED)

MODES = {"newer": conversions.judge_newer, "older": conversions.judge_older, "twins": conversions.judge_twins,
         "moved": conversions.judge_moved}


def drawings_of(mode, names):
    """Paths of the drawings, large ones first, so that no worker begins with one in the end."""
    examples = Path(__file__).resolve().parents[3] / "examples" / "drawings"
    folders = [examples]
    if corpus := os.environ.get("VORN_CORPUS"):
        folders.append(Path(corpus, "dxf"))
    paths = [path for folder in folders for path in folder.glob("*.dxf") if not names or path.name in names]
    if mode == "twins":
        paths = [path for path in paths if "ascii" in path.name
                 and path.with_name(path.name.replace("ascii", "binary")).exists()]
    return sorted(paths, key=lambda path: (-path.stat().st_size, path.name))


def judge(mode, program, path):
    with tempfile.TemporaryDirectory() as folder:
        return list(MODES[mode](conversions.Workshop(program, folder), path))


def show(title, differences):
    print(f"{'FAILED' if differences else 'ok    '} {title}", flush=True)
    for difference in differences[:MOST_SHOWN]:
        print("   ", difference)
    if len(differences) > MOST_SHOWN:
        print(f"    ... and {len(differences) - MOST_SHOWN} more")


def main():
    if len(sys.argv) < 3 or sys.argv[1] not in MODES:
        print(__doc__, file=sys.stderr)
        return 2
    mode, program, *names = sys.argv[1:]
    paths = drawings_of(mode, names)
    has_corpus = bool(os.environ.get("VORN_CORPUS"))
    if not paths and (has_corpus or names or mode != "twins"):
        print("no drawings are there to be judged")
        return 1
    count = failed = 0
    with multiprocessing.Pool(min(2, os.cpu_count() or 1)) as pool:
        for outcomes in pool.imap(partial(judge, mode, program), paths):
            for title, differences in outcomes:
                show(title, differences)
                count += 1
                failed += bool(differences)
    print(f"{count - failed} of {count} conversions keep their drawing")
    if failed:
        return 1
    if not has_corpus:
        print("skipped: VORN_CORPUS is not set, and only the examples were judged")
        return SKIPPED
    return 0


if __name__ == "__main__":
    sys.exit(main())
