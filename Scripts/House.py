#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""House.py check|draw [<root of the project>]

Documentation/House.md lists the rooms of the project in a table: the folder, what it holds, and which other rooms its
files include. `check` holds that table, and the picture beside it, against the sources, and names each line that says
something else; and it holds every file, folder, `Class::Function` and single name that the page quotes against the
project. `draw` writes the last column of the table and the picture anew; it needs Graphviz. Which includes are allowed
is Scripts/CheckLayering.sh's affair.
"""

import os
import pathlib
import re
import subprocess
import sys

PAGE = "Documentation/House.md"
PICTURE = "Documentation/Pictures/House.svg"
FLOORS = ("Source", "Platform", "Tools", "Examples")
SUFFIXES = {".h", ".cpp", ".c"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
ROW = re.compile(r"^\| `([^`]+)` \| ([^|]+) \|([^|]*)\|$")
QUOTED = re.compile(r"`([^`]+)`")
PATH = re.compile(r"[\w.+-]+(?:/[\w.+-]+)+|[\w+-]+\.(?:c|cpp|cmake|h|json|map|md|py|sh|svg|txt)")
MEMBER = re.compile(r"(\w+)::(~?\w+|operator[^\w\s(]+)(?:\(.*\))?")
NAME = re.compile(r"(\w+)(?:\(\))?")


def listed_rooms(root):
    """The rooms of the table: folder -> the folders that it may include."""
    rooms = {}
    for line in (root / PAGE).read_text(encoding="utf-8").splitlines():
        row = ROW.match(line)
        if row:
            rooms[row[1]] = set(re.findall(r"`([^`]+)`", row[3]))
    return rooms


def sources(root):
    """Every source of the project's floors, as a path from its root."""
    found = []
    for floor in FLOORS:
        found += [path.relative_to(root) for path in (root / floor).rglob("*") if path.suffix in SUFFIXES]
    return sorted(found)


def room_of(path, rooms):
    """The innermost room that a file lies in, or None."""
    for folder in path.parents:
        if folder.as_posix() in rooms:
            return folder.as_posix()
    return None


def nearest(including, candidates):
    """The file that an include means: of several with that name, the one that shares most folders."""

    def shared(path):
        count = 0
        for mine, its in zip(including.parts, path.parts):
            if mine != its:
                break
            count += 1
        return count

    return max(candidates, key=shared)


def includes(root, files):
    """Each include of a file of the project: (including file, line number, included file)."""
    by_name = {}
    for path in files:
        by_name.setdefault(path.name, []).append(path)
    for path in files:
        for number, line in enumerate((root / path).read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            name = match[1] or match[2]
            candidates = [
                other for other in by_name.get(pathlib.PurePosixPath(name).name, [])
                if ("/" + other.as_posix()).endswith("/" + name)
            ]
            if candidates:
                yield path, number, nearest(path, candidates)


def arrows(root, rooms, files):
    """Which room includes which: (room, room) -> the first line that does."""
    found = {}
    for path, number, included in includes(root, files):
        arrow = room_of(path, rooms), room_of(included, rooms)
        if None not in arrow and arrow[0] != arrow[1]:
            found.setdefault(arrow, f"{path.as_posix()}:{number}")
    return found


def drawn_arrows(root):
    """The arrows of the picture. Graphviz keeps each one's ends as its title."""
    text = (root / PICTURE).read_text(encoding="utf-8")
    return {tuple(title.split("&#45;&gt;")) for title in re.findall(r"<title>([^<]*&#45;&gt;[^<]*)</title>", text)}


def paths_of(root):
    """Every file and folder of the project, as a path from its root."""
    for folder, folders, files in os.walk(root):
        here = pathlib.Path(folder).relative_to(root)
        folders[:] = [name for name in folders if name[0] != "." and (here / name).as_posix() != "Build"]
        yield from (here / name for name in folders + files)


class Project:
    """What the page can name: paths, members of classes, and names that occur in the code."""

    def __init__(self, root):
        found = sorted(paths_of(root))
        # With a slash in front of each, so that whoever looks for the end of a path finds whole names.
        self.paths = ["/" + path.as_posix() for path in found]
        self.codes = [(root / path).read_text(encoding="utf-8") for path in found
                      if path.suffix in SUFFIXES | {".cmake"} and (root / path).is_file()]
        self.names = {name for code in self.codes for name in re.findall(r"\w+", code)}
        self.names |= {path.name for path in found}

    def has_path(self, path):
        return any(other.endswith("/" + path) for other in self.paths)

    def has_member(self, owner, member):
        """Whether a source defines the member by its full name, or declares both the class and a function so called."""
        full_name = re.compile(rf"\b{owner}::{re.escape(member)}\s*\(")
        class_head = re.compile(rf"\b(?:class|struct)\b[^;:{{}}()]*\b{owner}\b(?: final)?\s*(?::[^;{{}}()]*)?\{{")
        call = re.compile(rf"(?<!\w){re.escape(member)}\s*\(")
        return any(full_name.search(code) or (class_head.search(code) and call.search(code)) for code in self.codes)

    def lacks(self, text):
        """What is wrong with a text that the page quotes, or None. Texts that are none of these say nothing."""
        word = text.split()[0]
        if PATH.fullmatch(word):
            return None if self.has_path(word) else f"{word}, which is nowhere in the project"
        member = MEMBER.fullmatch(text)
        if member:
            return None if self.has_member(member[1], member[2]) else f"{text}, which no source has"
        name = NAME.fullmatch(text)
        if name and name[1] not in self.names:
            return f"{text}, which no source has"
        return None


def wrong_names(root):
    """The names on the page that the project does not have."""
    project = Project(root)
    page = (root / PAGE).read_text(encoding="utf-8")
    for quoted in QUOTED.finditer(page):
        lack = project.lacks(quoted[1])
        if lack:
            line = page.count("\n", 0, quoted.start()) + 1
            yield f"{PAGE}:{line} names {lack}"


def findings(root):
    rooms = listed_rooms(root)
    if not rooms:
        yield f"{PAGE} lists no room"
        return
    files = sources(root)
    inhabited = {room_of(path, rooms) for path in files}
    for path in files:
        if room_of(path, rooms) is None:
            yield f"{path.as_posix()} lies in no room of {PAGE}"
    for room in sorted(set(rooms) - inhabited):
        yield f"{PAGE} lists {room}, where no source is"
    found = arrows(root, rooms, files)
    listed = {(room, other) for room, others in rooms.items() for other in others}
    for arrow in sorted(set(found) - listed):
        yield f"{found[arrow]}: {arrow[0]} includes {arrow[1]}, which {PAGE} does not say"
    for room, other in sorted(listed - set(found)):
        yield f"{PAGE} says that {room} includes {other}, which nothing there does"
    drawn = drawn_arrows(root)
    for room, other in sorted(set(found) ^ drawn):
        state = "does not show" if (room, other) in found else "still shows"
        yield f"{PICTURE} {state} that {room} includes {other}; Scripts/House.py draw makes it anew"
    yield from wrong_names(root)


def goes_round(arrow, found):
    """Whether other arrows lead from one end to the other as well, past the rooms inside of the latter. Such arrows are
    drawn pale."""
    seen, ahead = {arrow[0]}, [arrow[0]]
    while ahead:
        room = ahead.pop()
        for start, end in found:
            is_inside = end.startswith(arrow[1] + "/")
            if start == room and (start, end) != arrow and end not in seen and not is_inside:
                seen.add(end)
                ahead.append(end)
    return arrow[1] in seen


def graph(root):
    """The rooms and their arrows in Graphviz's language, with a frame around each floor."""
    rooms = listed_rooms(root)
    found = arrows(root, rooms, sources(root))
    lines = [
        "digraph House {",
        '  graph [rankdir=TB, fontname="sans-serif", fontsize=13, labeljust=l, ranksep=0.55, nodesep=0.35];',
        '  node [shape=box, style="filled,rounded", fillcolor="#ffffff", color="#6b7280",'
        ' fontname="sans-serif", fontsize=12];',
        "  edge [arrowsize=0.7];",
    ]
    colours = {"Examples": "#fef3c7", "Tools": "#ede9fe", "Source": "#dbeafe", "Platform": "#dcfce7"}
    for floor in ("Examples", "Tools", "Source", "Platform"):
        lines.append(f'  subgraph "cluster_{floor}" {{ label="{floor}"; style="filled,rounded";'
                     f' color="{colours[floor]}";')
        for room in rooms:
            if room.split("/")[0] == floor:
                label = room.removeprefix(floor + "/")
                lines.append(f'    "{room}" [label="{label}"];')
        lines.append("  }")
    for room, other in sorted(found):
        colour = "#b8bec9" if goes_round((room, other), found) else "#374151"
        lines.append(f'  "{room}" -> "{other}" [color="{colour}"];')
    lines.append("}")
    return "\n".join(lines)


def write_table(root):
    """Puts what the rooms include into the last column, in the order in which the page lists them."""
    rooms = listed_rooms(root)
    found = arrows(root, rooms, sources(root))
    lines = (root / PAGE).read_text(encoding="utf-8").splitlines()
    for place, line in enumerate(lines):
        row = ROW.match(line)
        if row:
            included = ", ".join(f"`{room}`" for room in rooms if (row[1], room) in found)
            lines[place] = f"| `{row[1]}` | {row[2]} | {included} |"
    (root / PAGE).write_text("\n".join(lines) + "\n", encoding="utf-8")


def draw_picture(root):
    picture = subprocess.run(["dot", "-Tsvg"], input=graph(root), capture_output=True, check=True, text=True).stdout
    (root / PICTURE).write_text(picture, encoding="utf-8")


def main(arguments):
    if len(arguments) not in (2, 3) or arguments[1] not in ("check", "draw"):
        print(__doc__, file=sys.stderr)
        return 2
    root = pathlib.Path(arguments[2] if len(arguments) == 3 else ".")
    if arguments[1] == "draw":
        write_table(root)
        draw_picture(root)
        return 0
    found = list(findings(root))
    for finding in found:
        print(finding)
    print(f"{len(found)} differences between the page and the sources")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
