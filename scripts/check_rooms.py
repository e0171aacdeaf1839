#!/usr/bin/env python3
"""Checks that every #include points to a room at the left of its own (see CONTRIBUTING.md).

Usage: check_rooms.py [ROOT]. Prints each wrong include and exits 1 if there is one.
"""
import pathlib
import re
import sys

# From left to right; a room includes itself and the rooms to its left.
LINE = [
    "platform",
    "platform/text",
    "platform/expression",
    "platform/host",
    "platform/files",
    "platform/interchange",
    "platform/scratch",
    "platform/controls",
    "foundation",
    "run/shared",
    "glossary",
    "text",
    "catalog",
    "window",
    "pipeline",
    "run",
]
# Rooms beside the line: what of the tree they may include besides themselves, from left to right.
PLATFORM = LINE[: LINE.index("foundation")]
SQLITE = [f"platform/sqlite{folder}" for folder in ("", "/file", "/tree", "/table", "/sql", "/shell")]
TWIN = "platform/host/posix"
WINDOWS_TWIN = "platform/host/win32"
SIDE = {
    **{twin: LINE[: LINE.index("platform/host") + 1] for twin in (TWIN, WINDOWS_TWIN)},
    "platform/qt": [*PLATFORM, TWIN],
    "platform/win32": PLATFORM,
    "platform/headless": PLATFORM,
    "platform/batch": PLATFORM,
    **{room: PLATFORM + SQLITE[:place] for place, room in enumerate(SQLITE)},
}
# Files that alone may reach a side room.
DOORS = {
    "run/console_main.cpp": "platform/headless",
    "platform/sqlite/main.cpp": "platform/sqlite/shell",
}
# Headers from outside that belong to a few rooms alone.
OUTSIDE = {
    r"Q[A-Z]\w*": ["platform/qt"],
    r"sqlite3\.h": [*SQLITE, "platform/scratch"],
    r"pcre2\.h": ["platform/expression"],
    r"unicode/.*": ["platform/text"],
    r"(expat|csv)\.h": ["platform/interchange"],
    # Of the system, and what the standard library says in the system's terms.
    r"fcntl\.h": [TWIN, WINDOWS_TWIN],
    r"sys/.*|(unistd|poll|spawn|dirent|pwd|termios|dlfcn)\.h|c?(signal|errno)(\.h)?": [
        TWIN,
        "platform/qt",
    ],
    r"(win[a-z]*|commctrl|objbase|ole2|oleacc|gdiplus|sh(ellapi|lobj|lwapi)|aclapi|io)\.h": [
        WINDOWS_TWIN,
        "platform/win32",
    ],
    # There is one thread.
    r"pthread\.h|thread|mutex|shared_mutex|condition_variable|future": [],
}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


def room_of(path):
    """The innermost known room that holds a file, or None for a file of no room."""
    rooms = [room for room in [*SIDE, *LINE] if path.startswith(room + "/")]
    return max(rooms, key=len, default=None)


def allowed(path, included):
    """True if the file `path` may include the file `included`, both relative to the root."""
    here, there = room_of(path), room_of(included)
    if here is None or there is None or here == there or DOORS.get(path) == there:
        return True
    if here in SIDE:
        return there in SIDE[here]
    return there in LINE and LINE.index(there) < LINE.index(here)


def outside_allowed(path, header):
    """True if the file `path` may include the library header `header`."""
    for pattern, homes in OUTSIDE.items():
        if re.fullmatch(pattern, header):
            return path in homes or room_of(path) in homes
    return True


def wrong_includes(root):
    for source in sorted(root.rglob("*")):
        path = source.relative_to(root).as_posix()
        if source.suffix not in {".h", ".cpp"} or room_of(path) is None:
            continue
        for quote, header in INCLUDE.findall(source.read_text(encoding="utf-8")):
            good = allowed(path, header) if quote == '"' else outside_allowed(path, header)
            if not good:
                yield f"{path} may not include {header}"


def main():
    root = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parents[1])
    wrong = list(wrong_includes(root))
    print("\n".join(wrong) if wrong else "rooms: every include points to the left")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
