#!/usr/bin/env python3
"""Measures nas2zdt as a whole process, in turn with yardsticks, on decks made for the purpose.

    bench/run.py growth     time and memory as decks grow, beside cp, gmsh and meshio; draws a plot
    bench/run.py reference  the same for the reference deck
    bench/run.py threads    the reference deck with one thread, two and more
    bench/run.py additions  the reference deck with what the command does besides converting
    bench/run.py ladder     what the system alone takes to move the bytes of the reference deck and its result
    bench/run.py doubling   whether a deck twice as long takes at most 2.1 times as long
    bench/run.py tiny       a deck of ten cards: what a run costs at least
    bench/run.py cards      what a card of each kind costs, in every field format and order of ids
    bench/run.py all        all of these

Builds what it needs (preset "bench"). Decks go to build/bench-decks. A yardstick that isn't installed is left out;
--install gets it from Debian's packages. Tables are Markdown. Needs Python's standard library alone, and POSIX.
"""

import argparse
import os
import platform
import shutil
import statistics
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

import plot

ROOT = Path(__file__).resolve().parent.parent
BIN = ROOT / "build" / "bench" / "bin"
DISTRIBUTION_PYTHON = "/usr/bin/python3"  # the one that packages of the distribution belong to
MESHIO = "import sys, meshio; meshio.write(sys.argv[2], meshio.read(sys.argv[1]))"
PACKAGES = ["gmsh", "python3-meshio", "libbenchmark-dev"]

GROWTH_SIZES = [10_000, 100_000, 1_000_000, 5_000_000]
DOUBLING_LIMIT = 2.1
CARD_LIMIT = 3.0
TINY_MILLISECONDS = 3.0
TINY_MEGABYTES = 20.0

# command: from the paths of deck and output; a yardstick needn't be able to read every deck
Program = namedtuple("Program", "name command yardstick", defaults=[False])
Sample = namedtuple("Sample", "seconds cpu megabytes")


def fail(text):
    sys.exit(f"run.py: {text}")


def note(text):
    print(text, file=sys.stderr, flush=True)


# ---- what is measured


def nas2zdt(name, binary, *arguments):
    return Program(name, lambda deck, output: [str(binary), *arguments, str(deck)])


CP = Program("cp", lambda deck, output: ["cp", str(deck), str(output)])


def yardsticks():
    """cp, which does nothing but move the bytes, and two programs that read decks into meshes and write them."""
    found = [CP]
    if shutil.which("gmsh"):
        # as little as gmsh can be asked for: no mesh is made, the one that was read is saved
        arguments = ["-save", "-format", "msh2", "-v", "0", "-o"]
        found.append(Program("gmsh", lambda deck, output: ["gmsh", str(deck), *arguments, f"{output}.msh"], True))
    else:
        note("gmsh isn't installed and is left out; --install gets it")
    if subprocess.run([DISTRIBUTION_PYTHON, "-c", "import meshio"], capture_output=True).returncode == 0:
        command = [DISTRIBUTION_PYTHON, "-c", MESHIO]
        found.append(Program("meshio", lambda deck, output: [*command, str(deck), f"{output}.vtk"], True))
    else:
        note("meshio isn't installed and is left out; --install gets it")
    return found


def programs(options, with_yardsticks):
    chosen = [nas2zdt("nas2zdt", options.binary)]
    chosen += [nas2zdt(str(path), path) for path in options.against]
    return chosen + (yardsticks() if with_yardsticks else [])


# ---- measuring


def generate(options, name, *arguments):
    """Path of a deck; its bytes are in the page cache, since they were just written."""
    path = options.decks / f"{name}.bdf"
    subprocess.run([BIN / "nas2zdt-deckgen", *map(str, arguments), "-o", path], check=True)
    return path


def measure(program, deck):
    """One run, or None if it was a yardstick's and failed. What it writes is gone before and after, so that no run
    overwrites what another left."""
    output = deck.with_suffix(".copy")
    report = deck.with_suffix(".report")
    traces = [output, deck.with_suffix(".zdt"), report, *(Path(f"{output}{end}") for end in (".msh", ".vtk", ".html"))]
    for path in traces:
        path.unlink(missing_ok=True)
    command = program.command(deck, output)
    measured = [BIN / "nas2zdt-measure", report, *command]
    said = subprocess.run(measured, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True).stderr
    seconds, user, system, kilobytes, status = report.read_text().split()
    for path in traces:
        path.unlink(missing_ok=True)
    if int(status) not in (0, 4):  # 4: the check found faults of the deck
        if program.yardstick:
            return None
        fail(f"{' '.join(command)} ended with {status}: {said}")
    return Sample(float(seconds), float(user) + float(system), int(kilobytes) * 1024 / 1e6)


def measure_in_turn(chosen, deck, runs, limit):
    """Samples by program. Programs take turns, so that what disturbs the machine disturbs all; one that has had limit
    seconds gets no more turns after its first. A yardstick that can't read the deck is left out."""
    samples = {program.name: [] for program in chosen}
    for run in range(runs):
        for program in chosen[run % len(chosen) :] + chosen[: run % len(chosen)]:
            taken = samples.get(program.name)
            if taken is None or (taken and sum(sample.seconds for sample in taken) >= limit):
                continue
            if sample := measure(program, deck):
                taken.append(sample)
            else:
                note(f"{program.name} can't read {deck.name} and is left out of its table")
                del samples[program.name]
    return samples


def middle(samples):
    return Sample(*(statistics.median(values) for values in zip(*samples)))


# ---- reporting


def table(header, rows):
    print("| " + " | ".join(header) + " |")
    print("|" + "---|" * len(header))
    for row in rows:
        print("| " + " | ".join(row) + " |")
    print(flush=True)


def verdict(met):
    return "met" if met else "MISSED"


def machine():
    model = platform.processor()
    cpuinfo = Path("/proc/cpuinfo")
    if cpuinfo.exists():
        names = [line.split(":", 1)[1].strip() for line in cpuinfo.read_text().splitlines() if "model name" in line]
        model = names[0] if names else model
    commit = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty"], capture_output=True, text=True)
    load = os.getloadavg()[0]
    print(f"{model}, {os.cpu_count()} cores, {platform.system()} {platform.release()}, load {load:.1f} at the start;")
    print(f"commit {commit.stdout.strip() or 'unknown'}\n", flush=True)


def compare(options, title, deck, cards):
    """Measures all programs on a deck and prints their table. Returns medians by program."""
    megabytes = deck.stat().st_size / 1e6
    samples = measure_in_turn(programs(options, True), deck, options.runs, options.limit)
    medians = {name: middle(taken) for name, taken in samples.items()}
    own = medians["nas2zdt"].seconds
    print(f"### {title}: {cards:,} cards, {megabytes:,.1f} MB\n")
    rows = []
    for name, median in medians.items():
        rows.append(
            [
                name,
                f"{median.seconds:.3f}",
                f"{min(sample.seconds for sample in samples[name]):.3f}",
                f"{median.cpu:.3f}",
                f"{median.seconds / own:.2f}",
                f"{megabytes / median.seconds:,.0f}",
                f"{median.megabytes:,.0f}",
                str(len(samples[name])),
            ]
        )
    table(["program", "median s", "least s", "CPU s", "to nas2zdt", "MB/s", "peak MB", "runs"], rows)
    return medians


# ---- the modes


def growth(options):
    series = {}
    title = " ".join(["Deck", *options.deck]) if options.deck else "Mixed deck"
    for cards in options.sizes:
        deck = generate(options, f"mix-{cards}", "--cards", cards, *options.deck)
        for name, median in compare(options, title, deck, cards).items():
            series.setdefault(name, []).append((cards, median))
        deck.unlink()
    charts = [
        plot.Chart("Time", "seconds", {n: [(c, m.seconds) for c, m in p] for n, p in series.items()}),
        plot.Chart("Peak memory", "MB", {n: [(c, m.megabytes) for c, m in p] for n, p in series.items()}),
    ]
    plot.draw(options.svg, "cards in the deck", charts)
    print(f"Plot: {options.svg}\n")


def reference(options):
    deck = generate(options, "reference", "--reference", "--scale", options.scale)
    compare(options, "Reference deck", deck, 2_340_000 * options.scale // 100)
    deck.unlink()


def ratios(options, title, chosen):
    """Measures programs on the reference deck, all but the first as ratios to the first, too."""
    deck = generate(options, "reference", "--reference", "--scale", options.scale)
    samples = measure_in_turn(chosen, deck, options.runs, options.limit)
    deck.unlink()
    print(f"### {title}\n")
    rows = []
    first = middle(next(iter(samples.values())))
    for name, taken in samples.items():
        median = middle(taken)
        figures = [f"{median.seconds:.3f}", f"{min(sample.seconds for sample in taken):.3f}", f"{median.cpu:.3f}"]
        figures += [f"{median.megabytes:.0f}"]
        figures += [f"{part / whole:.2f}" for part, whole in zip(median, first)]
        rows.append([name, *figures, str(len(taken))])
    header = ["program", "median s", "least s", "CPU s", "peak MB", "time to first", "CPU to first", "memory to first"]
    table([*header, "runs"], rows)


def threads(options):
    counts = sorted({1, 2, os.cpu_count()})
    chosen = [nas2zdt(str(path), path) for path in options.against]
    chosen += [nas2zdt(f"--threads {count}", options.binary, "--threads", str(count)) for count in counts]
    ratios(options, "Threads", chosen)


def additions(options):
    def adding(*arguments):
        return nas2zdt(" ".join(arguments), options.binary, *arguments)

    def report(deck, output):
        return [str(options.binary), "--report", f"{output}.html", str(deck)]

    chosen = [adding("--no-warnings"), nas2zdt("with warnings", options.binary), adding("--account")]
    chosen += [adding("--check"), adding("--faithful"), Program("--report", report)]
    ratios(options, "What the command does besides converting", chosen)


def ladder(options):
    """Each step does more with the same bytes than the one before."""
    deck = generate(options, "reference", "--reference", "--scale", options.scale)
    result = deck.with_suffix(".moved")
    subprocess.run([options.binary, "--quiet", "-o", result, deck], check=True)
    deck.unlink()  # the steps have one of their own

    def shell(name, script):
        return Program(name, lambda deck, output: ["sh", "-c", script, "sh", str(deck), str(output), str(result)])

    chosen = [shell("reading the deck", 'cat "$1" >/dev/null'), CP]
    chosen += [shell("reading the deck, writing the result's bytes", 'cat "$1" >/dev/null; cp "$3" "$2"')]
    chosen += [shell("counting lines and words of the deck, too", 'wc "$1" >/dev/null; cp "$3" "$2"')]
    chosen += [nas2zdt(f"nas2zdt --threads {count}", options.binary, "--threads", str(count)) for count in (1, 2)]
    ratios(options, "From moving bytes to converting", chosen)
    result.unlink()


def doubling(options):
    program = programs(options, False)[0]
    sizes = [options.longest >> shift for shift in range(options.doublings, -1, -1)]
    decks = [generate(options, f"double-{size}", "--cards", size, *options.deck) for size in sizes]
    samples = [[] for _ in decks]
    for _ in range(options.runs):  # all lengths in turn, for the same reason as programs
        for deck, taken in zip(decks, samples):
            taken.append(measure(program, deck))
    rows = []
    last = None
    for size, taken in zip(sizes, samples):
        # the least of the runs: a disturbance can only add
        least = Sample(*map(min, zip(*taken)))
        columns = ["", "", ""]
        if last:
            ratio = least.seconds / last.seconds
            columns = [f"{ratio:.2f}", f"{least.cpu / last.cpu:.2f}", verdict(ratio <= DOUBLING_LIMIT)]
        times = [f"{least.seconds:.3f}", f"{least.cpu:.3f}", f"{least.seconds / size * 1e9:.0f}"]
        rows.append([f"{size:,}", *times, f"{least.megabytes:,.0f}", *columns])
        last = least
    print("### Doubling the deck\n")
    header = ["cards", "least s", "least CPU s", "ns a card", "peak MB", "time to half of it", "CPU to half of it"]
    table([*header, f"time at most {DOUBLING_LIMIT}"], rows)
    for deck in decks:
        deck.unlink()


def tiny(options):
    deck = generate(options, "tiny", "--cards", 10, "--mix", "grids=60,shells=20")
    chosen = programs(options, False) + [CP, Program("true", lambda deck, output: ["true"])]
    samples = measure_in_turn(chosen, deck, max(options.runs, 51), options.limit)
    print("### A deck of ten cards\n")
    rows = []
    for name, taken in samples.items():
        median = middle(taken)
        least = min(sample.seconds for sample in taken)
        times = [f"{seconds * 1e3:.2f}" for seconds in (median.seconds, least, median.cpu)]
        rows.append([name, *times, f"{median.megabytes:.1f}", str(len(taken))])
    table(["program", "median ms", "least ms", "CPU ms", "peak MB", "runs"], rows)
    own = middle(samples["nas2zdt"])
    print(f"At most {TINY_MILLISECONDS:g} ms: {verdict(own.seconds * 1e3 <= TINY_MILLISECONDS)}. ", end="")
    print(f"At most {TINY_MEGABYTES:g} MB: {verdict(own.megabytes <= TINY_MEGABYTES)}.\n", flush=True)
    deck.unlink()


FORMATS = ["small", "large", "free", "mixed"]
ORDERS = ["ascending", "shuffled", "sparse", "scattered"]


def variants(full):
    """Pairs of format and order: each format, each order, or all together."""
    pairs = [(form, order) for form in FORMATS for order in ORDERS]
    return pairs if full else [pair for pair in pairs if pair[0] == "small" or pair[1] == "ascending"]


def cards(options):
    listed = subprocess.run([BIN / "nas2zdt-deckgen", "--list"], capture_output=True, text=True, check=True)
    kinds = options.kinds or listed.stdout.split()
    program = programs(options, False)[0]
    empty = generate(options, "empty", "--cards", 1, "--only", "GRID")
    # processor time: these decks are so short that one turn of another process would count as a multiple of a card
    start = min(measure(program, empty).cpu for _ in range(21))  # what a run costs before the first card
    empty.unlink()
    pairs = variants(options.full)
    costs = {}
    memory = {}
    for number, kind in enumerate(kinds):
        note(f"{kind} ({number + 1} of {len(kinds)})")
        for form, order in pairs:
            arguments = ["--only", kind, "--cards", options.cards, "--format", form, "--ids", order]
            deck = generate(options, "only", *arguments)
            taken = [measure(program, deck) for _ in range(options.runs)]
            costs[kind, form, order] = (min(sample.cpu for sample in taken) - start) / options.cards * 1e9
            memory[kind, form, order] = middle(taken).megabytes * 1e6 / options.cards
            deck.unlink()
    mean = statistics.mean(costs.values())
    print(f"### Cost of a card by kind: decks of {options.cards:,} cards, least of {options.runs} runs\n")
    print(f"Processor time of a card in ns, and the dearest of a row to the mean of all, {mean:.0f} ns.\n")
    rows = []
    for kind in kinds:
        row = [costs[kind, form, order] for form, order in pairs]
        dearest = max(row) / mean
        most = max(memory[kind, form, order] for form, order in pairs)
        times = [f"{cost:.0f}" for cost in row]
        rows.append([kind, *times, f"{most:.0f}", f"{dearest:.2f}", verdict(dearest <= CARD_LIMIT)])
    names = [f"{form}, {order}" for form, order in pairs]
    table(["card", *names, "peak bytes a card", "dearest to mean", f"at most {CARD_LIMIT:g}"], rows)
    print("| format, order | mean ns |\n|---|---|")
    for form, order in pairs:
        print(f"| {form}, {order} | {statistics.mean(costs[kind, form, order] for kind in kinds):.0f} |")
    print(flush=True)


MODES = {
    "growth": growth,
    "reference": reference,
    "threads": threads,
    "additions": additions,
    "ladder": ladder,
    "doubling": doubling,
    "tiny": tiny,
    "cards": cards,
}


# ---- getting ready


def install():
    sudo = [] if os.geteuid() == 0 else ["sudo"]
    environment = dict(os.environ, DEBIAN_FRONTEND="noninteractive")
    subprocess.run([*sudo, "apt-get", "update", "-q"], check=True)
    command = [*sudo, "apt-get", "install", "-q", "-y", "--no-install-recommends", *PACKAGES]
    subprocess.run(command, check=True, env=environment)


def build(jobs):
    subprocess.run(["cmake", "--preset", "bench"], cwd=ROOT, check=True, stdout=sys.stderr)
    command = ["cmake", "--build", "--preset", "bench", "--parallel", str(jobs)]
    subprocess.run(command, cwd=ROOT, check=True, stdout=sys.stderr)


def parse():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add = parser.add_argument
    add("mode", choices=[*MODES, "all"], nargs="+")
    add("--runs", type=int, default=5, help="of each program on each deck (default 5)")
    add("--limit", type=float, default=60, metavar="S", help="seconds a program gets on a deck (default 60)")
    add("--sizes", type=int, nargs="+", default=GROWTH_SIZES, metavar="N", help="growth: cards")
    add("--longest", type=int, default=10_000_000, metavar="N", help="doubling: cards of the longest deck")
    add("--doublings", type=int, default=5, metavar="N", help="doubling: how often (default 5)")
    add("--scale", type=int, default=100, metavar="PERCENT", help="reference: of its size")
    add("--cards", type=int, default=100_000, metavar="N", help="cards: of each deck")
    add("--kinds", nargs="+", metavar="CARD", help="cards: these alone")
    add("--full", action="store_true", help="cards: every format with every order of ids")
    add("--deck", default="", metavar="OPTIONS", help="growth, doubling: of the deck, e.g. '--only GRID'")
    add("--binary", type=Path, default=BIN / "nas2zdt", help="the nas2zdt to measure")
    add("--against", type=Path, action="append", default=[], help="another nas2zdt, to take turns with")
    add("--decks", type=Path, default=ROOT / "build" / "bench-decks", help="folder for decks")
    add("--svg", type=Path, default=ROOT / "build" / "bench" / "growth.svg", help="growth: the plot")
    add("--jobs", type=int, default=os.cpu_count(), help="of the build")
    add("--no-build", action="store_true", help="measure what was built last")
    add("--install", action="store_true", help="get the yardsticks first")
    options = parser.parse_args()
    options.deck = options.deck.split()
    return options


def main():
    options = parse()
    if options.install:
        install()
    if not options.no_build:
        build(options.jobs)
    options.decks.mkdir(parents=True, exist_ok=True)
    machine()
    for mode in MODES:
        if mode in options.mode or "all" in options.mode:
            MODES[mode](options)


if __name__ == "__main__":
    main()
