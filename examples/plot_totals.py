"""Plots the resultant of each load case of a deck beside that of its file.

Usage: plot_totals.py DECK [PICTURE]
"""

import sys
from pathlib import Path

import matplotlib

matplotlib.use("Agg")  # into a file, without a screen
import matplotlib.pyplot as plot

import nas2zdt

deck = sys.argv[1]
picture = sys.argv[2] if len(sys.argv) > 2 else Path(deck).with_suffix(".png")

# %% Convert, in memory, with the check that adds up deck and file.
result = nas2zdt.convert(deck, check=True)
for warning in result.warnings:
    print("warning:", warning)

# %% The components of the resultants by load case. Rows that are zero on both sides are left out.
COMPONENTS = ["force x", "force y", "force z", "moment x", "moment y", "moment z"]
cases = {}
for total in result.totals:
    if total.name in COMPONENTS and total.group.startswith("load set "):
        cases.setdefault(total.group, {})[total.name] = total

# %% A row of bars for each load case: the deck, and the file beside it.
if not cases:
    sys.exit(f"{deck}: no load case has a resultant")
figure, axes = plot.subplots(len(cases), 2, figsize=(9, 2.2 * len(cases)), squeeze=False, layout="constrained")
for row, (group, totals) in zip(axes, cases.items()):
    for axis, names in zip(row, (COMPONENTS[:3], COMPONENTS[3:])):
        for shift, side in ((-0.2, "deck"), (0.2, "file")):
            values = [getattr(totals[name], side) or 0.0 if name in totals else 0.0 for name in names]
            axis.bar([place + shift for place in range(3)], values, width=0.4, label=side)
        axis.set_xticks(range(3), names)
        axis.axhline(0.0, color="black", linewidth=0.5)
    row[0].set_ylabel(group)
    differing = [total.name for total in totals.values() if total.differs]
    row[1].set_title("differs: " + ", ".join(differing) if differing else "the same in both", fontsize="small")
axes[0][0].legend()
figure.savefig(picture)
print(f"{len(cases)} load cases in {picture}")
