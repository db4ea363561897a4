#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""DrawWindows.py <figures> <commit> <page> <summary>: makes the table of what CompareWindows.sh measured.

Each figure is a line of five fields: measure, question, window, program, figure. Of one that was measured several
times, the median counts. Plain Qt is what the others are set in relation to. The table is printed and takes the
place of the last section of the page; the summary is JSON, of which only the part about windows is replaced.
"""

import datetime
import json
import os
import statistics
import sys

TOOLKITS = {"QtPeerWindow": "Qt Widgets", "LmWindow": "LmBindings", "GtkPeerWindow": "GTK 4"}
BASE = "Qt Widgets"
HEADING = "## Windows\n"
MEASURES = {
    "instructions": lambda figure: f"{figure / 1e6:,.1f} M",
    "milliseconds": lambda figure: f"{figure:,.2f} ms",
    "bytes": lambda figure: f"{figure:,.0f} bytes",
    "idle-milliseconds": lambda figure: f"{figure:,.1f} ms",
    "idle-wakings": lambda figure: f"{figure:,.0f}",
}
ROWS = [
    ("opening it, four kinds", "open", "mixed", ["instructions", "milliseconds"]),
    ("opening it, sliders alone", "open", "sliders", ["instructions", "milliseconds"]),
    ("changing every value once, four kinds", "change", "mixed", ["instructions", "milliseconds"]),
    ("changing every value once, sliders alone", "change", "sliders", ["instructions", "milliseconds"]),
    ("a step of a slider that 100 others follow", "drag", "sliders", ["instructions", "milliseconds"]),
    ("memory of a control, its key and its binding, four kinds", "control", "mixed", ["bytes"]),
    ("the same, sliders alone", "control", "sliders", ["bytes"]),
    ("processor time of ten idle seconds", "idle", "mixed", ["idle-milliseconds"]),
    ("wakings in ten idle seconds", "idle", "mixed", ["idle-wakings"]),
]
TITLES = {"instructions": "instructions", "milliseconds": "time"}
PREFACE = """
One window with 1,000 controls, each bound to a key of a model, written with bindings of this library on its Qt
presenter, directly in Qt Widgets with signals and slots, and in GTK 4 with bindings of GObject properties. Four kinds:
sliders, check boxes, text fields and progress bars, 250 each. Written by `Benchmarks/CompareWindows.sh`.

- Everything includes the painting. All three paint in memory, in the style that the toolkit has by default, at the same
  places, on a screen of their own under a window manager; the controls of Qt and of this library are the same
  widgets. Bounds are given; no layout is computed in Qt. GTK's animations are off.
- Instructions are counted by callgrind, once. Time is the processor's: the median of the runs, in which the three
  take turns. The figures are multiples of plain Qt's.
- The slider is dragged by a pointer of the X server. A step is a move of the pointer, until all has been painted.
- Memory is what 1,000 controls have in use of the heap more than 500, for each of them.
- A cell is blank, and a row is missing, where nothing was measured.
- Wakings are the times that the program slept and was woken, with nothing happening on the screen.
"""


def read(path):
    figures = {}
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            measure, question, window, program, figure = line.rstrip("\n").split("\t")
            row = figures.setdefault((measure, question, window), {})
            row.setdefault(TOOLKITS[program], []).append(float(figure))
    return {key: {toolkit: statistics.median(measured) for toolkit, measured in row.items()}
            for key, row in figures.items()}


def rows(figures):
    for title, question, window, measures in ROWS:
        for measure in measures:
            row = figures.get((measure, question, window), {})
            if BASE in row:
                yield title + (f": {TITLES[measure]}" if measure in TITLES else ""), measure, row


def cell(row, toolkit, measure):
    if toolkit not in row:
        return ""
    text = MEASURES[measure](row[toolkit])
    if measure.startswith("idle"):
        return text
    return f"{row[toolkit] / row[BASE]:.2f} ({text})"


def markdown(figures):
    yield "| | " + " | ".join(TOOLKITS.values()) + " |"
    yield "|---|" + "---:|" * len(TOOLKITS)
    for title, measure, row in rows(figures):
        yield f"| {title} | " + " | ".join(cell(row, toolkit, measure) for toolkit in TOOLKITS.values()) + " |"


def summary(figures, commit):
    return {
        "command": "Benchmarks/CompareWindows.sh",
        "commit": commit,
        "date": datetime.date.today().isoformat(),
        "base": BASE,
        "rows": [
            {
                "what": title,
                "measure": measure,
                "figures": row,
                "ratios": {} if measure.startswith("idle") else
                {toolkit: round(figure / row[BASE], 3) for toolkit, figure in row.items()},
            }
            for title, measure, row in rows(figures)
        ],
    }


def main():
    figures_path, commit, page, summary_path = sys.argv[1:]
    figures = read(figures_path)
    table = "\n".join(markdown(figures)) + "\n"
    print(table, end="")
    with open(page, encoding="utf-8") as file:
        text = file.read().split(HEADING)[0]
    with open(page, "w", encoding="utf-8") as file:
        file.write(text.rstrip("\n") + "\n\n" + HEADING + PREFACE + "\n" + table)
    parts = {}
    if os.path.exists(summary_path):
        with open(summary_path, encoding="utf-8") as file:
            parts = json.load(file)
    parts["windows"] = summary(figures, commit)
    os.makedirs(os.path.dirname(summary_path), exist_ok=True)
    with open(summary_path, "w", encoding="utf-8") as file:
        json.dump(parts, file, indent=2, sort_keys=True)
        file.write("\n")


main()
