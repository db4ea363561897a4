#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""DrawComparison.py <figures> <table> <chart>: makes tables and a chart of what PeerComparison measured.

Each figure is a line of four fields: what was measured (count, time or heap), the scenario, the peer, the figure.
Of one that was measured several times, the median counts.
The first peer of a scenario is the floor, to which all others are set in relation. The tables are printed
and written as Markdown, the chart as SVG.
"""

import math
import statistics
import sys

FLOOR = "the floor"
TABLES = [
    ("count", "Instructions", "Counted by callgrind for one operation: the median of three runs, in which each scenario "
     "begins in a new process; after other scenarios, GLib took up to twice as many.", ""),
    ("time", "Time", "The processor's time for one operation: the median of nine repetitions, in which "
     "the libraries take turns. It depends on the machine and on what else runs there. Each scenario begins in a "
     "new process, so that nobody works in a heap that others have left in pieces.", " ns"),
    ("heap", "Memory", "What is in use of the heap, as malloc counts it. The observers are 1,000 of one key; up to sixteen "
     "of a key take about 150 bytes each with LmBindings, which keeps no index of them.", " bytes"),
]
CHARTED = [
    "set an integer, 1 observer",
    "set an integer, 10 observers",
    "set one of 1,000 keys, 1 observer",
    "set a double, 1 observer",
    "set a string of 20, 1 observer",
    "one hop, both ways",
    "a chain of 100, both ways",
    "a fan-out of 1,000, one way",
    "a fan-out of 1,000, both ways",
    "make and undo a two-way binding, 10,000 of them",
]
COLOURS = {
    "LmBindings": "#d1495b",
    "GLib": "#66a182",
    "GNUstep": "#2e4057",
    "Qt, declared": "#8d96a3",
    "Qt, dynamic": "#b9c0c9",
    "QProperty": "#dfe3e8",
    "Boost.Signals2": "#edae49",
}
PREFACE = """# Side by side

The same work, done by LmBindings and by what else could be used for it, in one run of one program. Written by
`Benchmarks/ComparePeers.sh`; `Scripts/InstallPeers.sh` installs the other libraries. What each of such libraries has
and has not stands in [Feature by feature](Features.md).

![Instructions for one operation, as multiples of the floor](Pictures/Comparison.svg)

- **The floor** is the least that a store with names, tagged values, an equality test and two notifications can
  cost: 200 lines on `std::map` and `std::variant`, without any of the care that a library takes. The figures are
  multiples of it; the absolute ones are in brackets.
- **LmBindings**, the floor, GNUstep and Boost.Signals2 tell each observer twice, before and after a change; GLib
  and Qt once. An observer counts its calls. Each set is a real change.
- **GLib**: declared properties set by name, and GBinding. **GNUstep**: `setValue:forKey:` and key-value
  observers. **Qt, dynamic**: dynamic properties, which are made by setting them.
- **Qt, declared**: declared properties set by name. What follows is connected signal to slot there, which is a
  compiled call without a name and without a tagged value.
- **QProperty** has neither names nor tagged values, and binds one way only. **Boost.Signals2** notifies and does
  nothing else. Both show what is left when the rest is given up.
- A scenario that a library has no means for is left blank. So is one that was not reasonable to run: 100,000
  declared properties would have to be written, and as many dynamic ones take minutes to make.
- GLib and Qt keep the names of declared keys in the class, where they are not counted with each object.
"""


def read(path):
    """The figures by kind and scenario, and the peers in their order."""
    figures = {}
    peers = []
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            kind, scenario, peer, figure = line.rstrip("\n").split("\t")
            figures.setdefault(kind, {}).setdefault(scenario, {}).setdefault(peer, []).append(float(figure))
            if peer not in peers:
                peers.append(peer)
    for scenarios in figures.values():
        for row in scenarios.values():
            row.update((peer, statistics.median(measured)) for peer, measured in row.items())
    order = [FLOOR, "LmBindings"] + [peer for peer in COLOURS if peer in peers and peer != "LmBindings"]
    return figures, order


def multiple(ratio):
    return f"{ratio:.1f}" if ratio < 100 else f"{ratio:,.0f}"


def cell(row, peer, unit):
    if peer not in row:
        return ""
    if peer == FLOOR:
        return f"1 ({row[peer]:,.0f}{unit})"
    return f"{multiple(row[peer] / row[FLOOR])} ({row[peer]:,.0f}{unit})"


def table(rows, peers, unit):
    peers = [peer for peer in peers if any(peer in row for row in rows.values())]
    yield "| | " + " | ".join(peers) + " |"
    yield "|---|" + "---:|" * len(peers)
    for scenario, row in rows.items():
        if FLOOR in row:
            yield f"| {scenario} | " + " | ".join(cell(row, peer, unit) for peer in peers) + " |"


def markdown(figures, peers):
    for kind, title, explanation, unit in TABLES:
        yield f"\n## {title}\n\n{explanation}\n"
        yield from table(figures[kind], peers, unit)


def bars(rows, peers):
    """What stands in the chart: for each scenario its title and the ratios of the peers."""
    for scenario in CHARTED:
        row = rows[scenario]
        yield scenario, [(peer, row[peer] / row[FLOOR]) for peer in peers if peer != FLOOR and peer in row]


def svg(rows, peers):
    left, width, bar, gap, top = 345, 560, 13, 16, 66
    right = left + width + 70
    least, most = 0.1, 1000.0

    def place(ratio):
        share = math.log(min(max(ratio, least), most) / least) / math.log(most / least)
        return left + width * share

    body = []
    y = top
    for scenario, ratios in bars(rows, peers):
        middle = y + len(ratios) * bar / 2 + 4
        body.append(f'<text x="{left - 12}" y="{middle:.0f}" text-anchor="end">{scenario}</text>')
        for peer, ratio in ratios:
            weight = ' font-weight="bold"' if peer == "LmBindings" else ""
            body.append(f'<rect x="{left}" y="{y}" width="{place(ratio) - left:.1f}" height="{bar - 2}" '
                        f'fill="{COLOURS[peer]}"/>')
            body.append(f'<text x="{place(ratio) + 4:.1f}" y="{y + bar - 3}" font-size="10"{weight}>'
                        f'{multiple(ratio)}</text>')
            y += bar
        y += gap
    axis = []
    for power in range(-1, 4):
        x = place(10.0 ** power)
        stroke = "#000000" if power == 0 else "#dddddd"
        axis.append(f'<line x1="{x:.1f}" y1="{top - 6}" x2="{x:.1f}" y2="{y - gap + 4}" stroke="{stroke}"/>')
        label = "the floor" if power == 0 else f"{10.0 ** power:g}"
        axis.append(f'<text x="{x:.1f}" y="{top - 10}" text-anchor="middle" font-size="10">{label}</text>')
    legend = []
    x = 16
    for peer in peers:
        if peer != FLOOR:
            legend.append(f'<rect x="{x}" y="32" width="10" height="10" fill="{COLOURS[peer]}"/>')
            legend.append(f'<text x="{x + 14}" y="41">{peer}</text>')
            x += 30 + 7 * len(peer)
    yield (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {right} {y}" font-family="sans-serif" '
           'font-size="12">')
    yield f'<rect width="{right}" height="{y}" fill="#ffffff"/>'
    yield '<text x="16" y="20" font-weight="bold">Instructions for one operation, as multiples of the floor</text>'
    yield from legend + axis + body
    yield "</svg>"


def main(source, table_path, chart_path):
    figures, peers = read(source)
    lines = list(markdown(figures, peers))
    print("\n".join(lines))
    with open(table_path, encoding="utf-8") as old:
        windows = old.read().partition("\n## Windows\n")
    with open(table_path, "w", encoding="utf-8") as output:
        output.write(PREFACE + "\n".join(lines) + "\n" + "".join(windows[1:]))
    with open(chart_path, "w", encoding="utf-8") as output:
        output.write("\n".join(svg(figures["count"], peers)) + "\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
