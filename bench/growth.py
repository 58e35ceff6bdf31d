#!/usr/bin/env python3
"""Times decks that were thought out to take long, each in two sizes, the second four times the first.

usage: growth.py NAS2ZDT [NAME...]

A time that grows much faster than the deck means that something is quadratic: exit status 1 for a ratio above 8. Times
are those of the processor, the best of three.
"""
import os
import resource
import subprocess
import sys
import tempfile

FACTOR = 4
MOST_RATIO = 8.0
LEAST_SECONDS = 0.02  # below it a time is noise
MOST_KEY = 2**31 - 1


def key_hash(key):
    """Hash of a keyed table, for keys from 0."""
    h = 16807 * (key % 127773) - 2836 * (key // 127773)
    return h if h >= 0 else h + MOST_KEY


def same_bucket(n, buckets):
    """n keys in as few buckets as can be: the hash is a multiplication by 16807 modulo 2^31 - 1, so it can be undone."""
    undo = pow(16807, -1, MOST_KEY)
    keys = [h * undo % MOST_KEY for first in range(5, 5 + n * buckets // MOST_KEY + 2)
            for h in range(first, MOST_KEY, buckets)][:n]
    assert len({key_hash(key) % buckets for key in keys}) <= n * buckets // MOST_KEY + 1
    return keys


def crowded(n):
    """n keys whose pages of sixteen neighbours all want the same hundredth of the index's directory."""
    size = 16
    while size < 2 * n:
        size *= 2
    keys = []
    page = 0
    while len(keys) < n:
        if ((page * 0x9E3779B97F4A7C15) >> 32) % size < size // 128:
            keys.append(page * 16)
        page += 1
    return keys


def bulk(lines):
    return "BEGIN BULK\n" + "\n".join(lines) + "\nENDDATA\n"


def deck_grids(keys):
    return bulk(["GRID,%d,,1.,2.,3." % key for key in keys])


def elements_and_grids(n):
    lines = ["GRID,%d,,%d.,0.,0." % (i, i) for i in range(1, n + 1)]
    return lines + ["CROD,%d,1,%d,%d" % (i, i, i + 1) for i in range(1, n)]


def nested_includes(n):
    return {"deck.dat": "BEGIN BULK\nINCLUDE,1.INC\nENDDATA\n",
            **{"%d.INC" % i: "BEGIN BULK\nINCLUDE,%d.INC\nGRID,%d\nENDDATA\n" % (i + 1, i) for i in range(1, n)},
            "%d.INC" % n: "BEGIN BULK\nGRID,%d\nENDDATA\n" % n}


def repeated_leaf(n):
    """A chain of n decks, the last of which includes one deck n times."""
    decks = nested_includes(n)
    decks["%d.INC" % n] = bulk(["INCLUDE,LEAF.INC"] * n)
    decks["LEAF.INC"] = "BEGIN BULK\nGRID,1\nENDDATA\n"
    return decks


def crowd_of_two(n):
    """The same, with two decks in turn, the first of which includes the other."""
    decks = nested_includes(n)
    decks["%d.INC" % n] = bulk(["INCLUDE,TWIG.INC", "INCLUDE,LEAF.INC"] * n)
    decks["TWIG.INC"] = bulk(["INCLUDE,LEAF.INC"])
    decks["LEAF.INC"] = bulk(["GRID,1"])
    return decks


def lower_case_includes(n):
    """Names that arrive in upper case and are looked for in their folder."""
    return {"deck.dat": bulk(["INCLUDE,%d.INC" % i for i in range(1, n + 1)]),
            **{"%d.inc" % i: bulk(["GRID,%d" % i]) for i in range(1, n + 1)}}


def frame_chain(n, grids):
    """Frames in frames, of two kinds in turn since a frame isn't looked for in its own kind."""
    lines = []
    for i in range(1, n + 1):
        lines.append("CORD2%s,%d,%d,0.,0.,1.,0.,0.,2.,1.,0.,1." % ("RC"[i % 2], i, i - 1))
    return bulk(lines + ["GRID,%d,%d,1.,2.,3.,%d" % (i, n, n) for i in range(1, grids + 1)])


CASES = {
    # one bucket of the table for all records
    "grids in few buckets": (50000, lambda n: deck_grids(same_bucket(n, 1000001))),
    "load sets in one bucket": (40000, lambda n: bulk(["FORCE,%d,1,0,1.,1." % k for k in same_bucket(n, 101)])),
    "elements in one bucket": (50000, lambda n: bulk(["CONROD,%d,1,2,1,1." % k for k in same_bucket(n, 10001)])),
    "bushes, one bucket": (40000, lambda n: bulk(["CELAS2,%d,1.,1,1,2,1" % k for k in same_bucket(n, 1001)])),
    # the index from an id to its record
    "ids far apart": (50000, lambda n: deck_grids([i * 1000003 % MOST_KEY for i in range(1, n + 1)])),
    "ids in steps of 16": (100000, lambda n: deck_grids(range(16, 16 * n, 16))),
    "ids in steps of 4096": (100000, lambda n: deck_grids(range(4096, 4096 * n, 4096))),
    "ids that crowd": (50000, lambda n: deck_grids(crowded(n))),
    "ids descending": (100000, lambda n: deck_grids(range(n, 0, -1))),
    # lines
    "continuation lines": (800000, lambda n: bulk(["GRID,1"] + ["+,1.,2.,3.,4.,5.,6.,7.,8."] * n)),
    "one card of many lines, many times": (400, lambda n: bulk((["RBE2,1,1,123"] + ["+,1,2,3,4,5,6,7,8"] * 999) * n)),
    "generated lines": (200000, lambda n: bulk(["=,*(1),="] * n)),
    "blank and marker lines": (800000, lambda n: bulk(["BEGIN BULK", " ", "$"] * n)),
    "nul and ctrl-z": (200000, lambda n: bulk(["GRID,1\0,2"] + ["GRID,%d,,1." % i for i in range(n)])),
    # sets
    "one set of SPC1": (80000, lambda n: bulk(["SPC1,1,123,1,2,3,4,5,6,7"] * n)),
    "one set of FORCE": (80000, lambda n: bulk(["FORCE,1,%d,0,1.,1.,2.,3." % i for i in range(n)])),
    "many sets of one FORCE": (40000, lambda n: bulk(["FORCE,%d,1,0,1.,1.,2.,3." % i for i in range(n)])),
    "two sets in turn": (80000, lambda n: bulk(["FORCE,%d,%d,0,1.,1." % (i % 2, i) for i in range(n)])),
    "one set of MPC": (80000, lambda n: bulk(["MPC,1,%d,1,-1.,%d,1,1." % (i, i + 1) for i in range(n)])),
    "one set of TEMP": (160000, lambda n: bulk(["TEMP,1,%d,20." % i for i in range(n)])),
    "TEMPD with many TEMP": (80000, lambda n: bulk(["GRID,%d" % i for i in range(n)] + ["TEMPD,1,5."] +
                                                   ["TEMP,1,%d,20." % i for i in range(n, 0, -1)])),
    "TEMPRB on plates": (40000, lambda n: bulk(["CTRIA3,%d,1,1,2,3" % i for i in range(n)] +
                                               ["TEMPRB,1,%d,20.,%d,1." % (i, i + 1) for i in range(n)])),
    "one set of SPCD": (80000, lambda n: bulk(["SPCD,1,%d,123,1." % i for i in range(n)])),
    "one combination": (80000, lambda n: bulk(["FORCE,1,1,0,1.,1."] + ["LOAD,9,1.,1.,1,1.,1,1.,1"] * n)),
    "many combinations": (40000, lambda n: bulk(["FORCE,1,1,0,1.,1."] +
                                                ["LOAD,%d,1.,1.,1,1.,1" % i for i in range(n)])),
    "one RBE2": (100, lambda n: bulk(["GRID,1"] + ["RBE2,%d,1,123\n" % i + "\n".join(["+,1,1,1,1,1,1,1,1"] * 900)
                                                   for i in range(n)])),
    "PLOAD1 on bars": (60000, lambda n: bulk(elements_and_grids(n // 2) +
                                             ["PLOAD1,1,%d,FZ,FR,0.,1.,1.,2." % i for i in range(1, n // 2)])),
    "PLOAD4 on solids": (40000, lambda n: bulk(["CHEXA,%d,1,1,2,3,4,5,6,\n,7,8" % i for i in range(1, n)] +
                                               ["PLOAD4,1,%d,1.,,,,1,7" % i for i in range(1, n)])),
    "PLOAD2 over a range": (400000, lambda n: bulk(["PLOAD2,1,1.,1,THRU,%d" % n])),
    "springs between grids": (20000, lambda n: bulk(elements_and_grids(n) + ["PELAS,1,5."] +
                                                    ["CELAS1,%d,1,%d,1,%d,1" % (n + i, i, i + 1) for i in range(1, n)] +
                                                    ["CELAS1,%d,1,%d,1,%d,1" % (3 * n + i, i, i) for i in range(1, n)])),
    "bushes": (40000, lambda n: bulk(elements_and_grids(n) + ["PBUSH,1,K,1.,1.,1.,1.,1.,1."] +
                                     ["CBUSH,%d,1,%d,%d,1.,1.,1." % (n + i, i, i + 1) for i in range(1, n)])),
    "masses": (30000, lambda n: bulk(["GRID,%d" % i for i in range(n)] +
                                     ["CONM2,%d,%d,0,1." % (i, i) for i in range(n)])),
    "plies": (40000, lambda n: bulk(["PCOMP,%d,0.,0.,0.,,,,,\n,1,.1,0.,NO,1,.1,90.,NO" % i for i in range(n)])),
    # messages
    "messages": (200000, lambda n: bulk(["RBE3,%d,1,2" % i for i in range(n)])),
    "grids in a lost frame": (100000, lambda n: bulk(["GRID,%d,7,1.,2.,3.,8" % i for i in range(n)])),
    "elements without grids": (50000, lambda n: bulk(["CBAR,%d,1,7,8,1.,0.,0." % i for i in range(n)])),
    # frames, more than fit into the caches of a processor
    "a chain of frames, 2 grids": (160000, lambda n: frame_chain(n, 2)),
    "a circle of frames, 2 grids": (160000, lambda n: frame_chain(n, 2).replace("CORD2C,1,0", "CORD2C,1,%d" % n)),
    "a chain of frames, axes of all grids": (20000, lambda n: frame_chain(n, 0).replace(
        "\nENDDATA", "".join("\nGRID,%d,,,,,%d" % (i, n) for i in range(1, n + 1)) + "\nENDDATA")),
    "frames and grids": (20000, lambda n: bulk(["CORD2R,%d,0,0.,0.,1.,0.,0.,2.,1.,0.,1." % i for i in range(1, n)] +
                                               ["GRID,%d,%d,1.,2.,3.,%d" % (i, i, i) for i in range(1, n)])),
    # includes
    "one deck included again and again": (20000, lambda n: {
        "deck.dat": bulk(["INCLUDE,LEAF.INC"] * n), "LEAF.INC": "BEGIN BULK\nGRID,1\nENDDATA\n"}),
    "includes in includes": (3000, nested_includes),
    "a chain and a crowd of includes": (3000, repeated_leaf),
    "a chain and a crowd of two": (3000, crowd_of_two),
    "includes in lower case": (3000, lower_case_includes),
}


def measure(program, deck):
    """Best processor time of three runs."""
    if isinstance(deck, str):
        deck = {"deck.dat": deck}
    with tempfile.TemporaryDirectory() as folder:
        for name, text in deck.items():
            with open(os.path.join(folder, name), "w", newline="") as file:
                file.write(text)
        times = []
        for _ in range(3):
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            subprocess.run([program, "deck.dat"], cwd=folder, stdout=subprocess.DEVNULL, check=True)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            times.append(after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)
        return min(times)


def main():
    program = os.path.abspath(sys.argv[1])
    names = sys.argv[2:] or list(CASES)
    failed = False
    print("%-36s %9s %9s %9s %6s" % ("deck", "n", "n: s", "4n: s", "ratio"))
    for name in names:
        n, make = CASES[name]
        small, large = measure(program, make(n)), measure(program, make(FACTOR * n))
        ratio = large / max(small, LEAST_SECONDS)
        quadratic = ratio > MOST_RATIO
        failed |= quadratic
        print("%-36s %9d %9.3f %9.3f %6.1f%s" % (name, n, small, large, ratio, "  QUADRATIC" if quadratic else ""))
        sys.stdout.flush()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
