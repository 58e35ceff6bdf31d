#!/usr/bin/env python3
"""Puts faults into the product's sources and tells which of them no test catches.

All faults of a sample are built at once, into a copy of the sources, each behind a switch that a number in the
environment turns on. Each test is run once to learn which faults it comes by; then each fault is run with those tests
alone, quick ones first, up to the first that fails. A test that takes too long has caught its fault, too.

    scripts/mutate.py [--sample N] [--seed N] [--path PREFIX] [--again] [--require core=92,rest=85]

Faults that change nothing that can be seen stand with their reason in mutants_equivalent.txt, and aren't put in."""

import argparse
import collections
import concurrent.futures
import hashlib
import json
import math
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import mutants

PROJECT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = PROJECT / "build" / "mutants"
SOURCE, BUILD, HEADER, RESULTS = (FOLDER / name for name in ("source", "build", "Mutant.h", "results.json"))
EQUIVALENT = PROJECT / "scripts" / "mutants_equivalent.txt"
PRODUCT = ("Converter", "platform", "nas2zdt")
ELSEWHERE = re.compile(r"platform/(win32|gtk)/|Windows\.cpp$|None\.cpp$|/NoPage\.cpp$")  # isn't built here
NOT_COPIED = shutil.ignore_patterns("build", ".git", "node_modules", "__pycache__")
QUICK = 0.4  # seconds: tests that take longer run alone
ENOUGH = 60  # seconds of tests that a fault has survived: those that are left seldom catch one
WAIT = 60  # seconds at least before a process that does nothing counts as one that hangs
MOST = 65536

SWITCH = """// The switch of each fault.
#ifdef __cplusplus
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
namespace mutants {
inline char* OpenReached() {
    const char* const pPath = std::getenv("MUTANTS_REACHED");
    const int iFile = pPath ? open(pPath, O_RDWR) : -1;
    if (iFile < 0) return nullptr;
    void* const p = mmap(nullptr, MOST, PROT_READ | PROT_WRITE, MAP_SHARED, iFile, 0);
    close(iFile);
    return p == MAP_FAILED ? nullptr : static_cast<char*>(p);
}
inline const char* const g_pNumber = std::getenv("MUTANT");
inline const int g_iMutant = g_pNumber ? std::atoi(g_pNumber) : -1;
struct T_REACHED_D {
    char* p = OpenReached();
    ~T_REACHED_D() {
        if (p) munmap(p, MOST);
        p = nullptr;
    }
};
inline T_REACHED_D g_reached;
}
inline bool Mutant(int i) {
    if (mutants::g_reached.p) mutants::g_reached.p[i] = 1;
    return i == mutants::g_iMutant;
}
#endif
""".replace("MOST", str(MOST))


def group_of(path):
    return "core" if path.startswith(("Converter/", "platform/")) else "rest"


def read_equivalent():
    """File, faulty line and reason, each on a line of its own, the second and third indented."""
    known, path, faulty = set(), None, None
    for line in EQUIVALENT.read_text().splitlines():
        if line.startswith("    # "):
            known.add((path, faulty))
        elif line.startswith("    "):
            faulty = line.strip()
        elif line and not line.startswith("#"):
            path = line
    return known


def rank(seed, *what):
    """By which a sample is taken: what is like no other by chance, and stays when sources elsewhere change."""
    return hashlib.sha256(" ".join(map(str, (seed, *what))).encode()).digest()


def choose(options):
    """A sample: as many lines as wanted out of all that have places for faults, each with one fault."""
    known, used = read_equivalent(), set()
    by_line = collections.defaultdict(list)
    for folder in PRODUCT:
        for path in sorted((PROJECT / folder).rglob("*")):
            name = str(path.relative_to(PROJECT))
            if path.suffix not in (".cpp", ".h") or ELSEWHERE.search(name):
                continue
            text = path.read_text().splitlines()
            for fault in mutants.Source(name, path.read_text()).find():
                if fault.key() in known:
                    used.add(fault.key())
                elif name.startswith(options.path):
                    by_line[name, fault.line, text[fault.line - 1]].append(fault)
    for path, faulty in sorted(known - used):
        print(f"{EQUIVALENT.name} names a fault that isn't there: {path}: {faulty}")
    chosen, taken = [], collections.defaultdict(list)
    for name, line, text in sorted(by_line, key=lambda line: rank(options.seed, line[0], line[2])):
        faults = by_line[name, line, text]
        kind = min({fault.kind for fault in faults}, key=lambda kind: rank(options.seed, name, text, kind))
        fault = min((fault for fault in faults if fault.kind == kind), key=lambda f: rank(options.seed, name, f.faulty))
        if all(fault.end <= begin or end <= fault.begin for begin, end in taken[name]):
            taken[name].append((fault.begin, fault.end))
            chosen.append(fault)
        if len(chosen) == min(options.sample, MOST // 2):
            break
    return chosen


def give_numbers(chosen):
    """A number each, which stays when other faults come or go: so does the object file."""
    faults = {}
    for fault in sorted(chosen, key=lambda fault: (fault.path, fault.begin)):
        number = int.from_bytes(rank(fault.path, fault.faulty)[:4], "big") % MOST
        while number in faults:
            number = (number + 1) % MOST
        faults[number] = fault
    return faults


def write(path, text):
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def copy(source, target):
    """Copies what changed, so that the next build is a short one."""
    if os.path.exists(target) and pathlib.Path(source).read_bytes() == pathlib.Path(target).read_bytes():
        return
    shutil.copy(source, target)


def put_in(faults):
    """Writes the sources that have faults, and those that had."""
    by_path = collections.defaultdict(list)
    for number, fault in faults.items():
        by_path[fault.path].append((fault.begin, fault.end, fault.switched(number)))
    for folder in PRODUCT:
        for path in (PROJECT / folder).rglob("*"):
            name = str(path.relative_to(PROJECT))
            if path.suffix not in (".cpp", ".h"):
                continue
            text = path.read_text()
            for begin, end, switched in sorted(by_path[name], reverse=True):
                lost = text.count("\n", begin, end)
                text = text[:begin] + switched.replace("\n", " ") + "\n" * lost + text[end:]
            write(SOURCE / name, text)


def forget_broken(blocks, faults):
    """Forgets the faults that a compiler's messages name, a text a file that doesn't compile. False if there are
    none."""
    broken = set()
    for block in blocks:
        named = {(folder + path, int(line)) for folder, path, line in re.findall(rf"/source/({'|'.join(PRODUCT)})(/[\w/.]+):(\d+)", block)}
        hits = {number for number, fault in faults.items() if (fault.path, fault.line) in named}
        broken |= hits or {number for number, fault in faults.items() if fault.path in {path for path, _ in named}}
    for number in broken:
        del faults[number]
    put_in(faults)
    return bool(broken)


def try_headers(faults, environment):
    """Compiles all headers that have faults at once: one that is broken would break nearly every file."""
    while headers := sorted({fault.path for fault in faults.values() if fault.path.endswith(".h")}):
        text = "".join(f'#include "{SOURCE / path}"\n' for path in headers)
        done = subprocess.run(["c++", "-x", "c++", "-std=c++20", "-fsyntax-only", "-w", "-Wno-narrowing", "-include", HEADER,
                               "-I", SOURCE, "-I", SOURCE / "Converter/ConvertNastran", "-"],
                              input=text, capture_output=True, text=True, env=environment)
        if done.returncode == 0:
            return
        if not forget_broken([done.stderr], faults):
            sys.exit(done.stderr[-5000:])


def build(faults):
    """Builds with all faults that compile, and forgets the others."""
    for path in SOURCE.rglob("*"):
        if path.is_file() and not (PROJECT / path.relative_to(SOURCE)).exists():
            path.unlink()  # or what is found by its name would be built on
    shutil.copytree(PROJECT, SOURCE, ignore=lambda folder, names: NOT_COPIED(folder, names) | {
        name for name in names if name.endswith((".cpp", ".h")) and
        pathlib.Path(folder).relative_to(PROJECT).parts[:1] in [(part,) for part in PRODUCT]},
        copy_function=copy, dirs_exist_ok=True)
    write(HEADER, SWITCH)
    put_in(faults)
    environment = os.environ | {"CCACHE_BASEDIR": str(FOLDER), "CCACHE_NOHASHDIR": "1", "CCACHE_DEPEND": "1"}
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    subprocess.run(["cmake", "-S", SOURCE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", *launcher,
                    "-DCMAKE_CXX_FLAGS_RELEASE=-O1", f"-DCMAKE_CXX_FLAGS=-w -Wno-narrowing -include {HEADER}",
                    "-DCONVERTNASTRAN_GTK=OFF", "-DCONVERTNASTRAN_VIEWER=AUTO"],
                   check=True, stdout=subprocess.DEVNULL, env=environment)
    try_headers(faults, environment)
    while True:
        done = subprocess.run(["ninja", "-C", BUILD, "-k", "0"], capture_output=True, text=True, env=environment)
        if done.returncode == 0:
            return
        if not forget_broken(done.stdout.split("FAILED: ")[1:], faults):
            sys.exit(done.stdout[-5000:])


class Test:
    def __init__(self, described):
        self.name, self.command = described["name"], described.get("command", [])
        self.environment, self.folder, self.skipped = {}, str(BUILD), None
        for entry in described.get("properties", []):
            name, value = entry["name"], entry["value"]
            if name == "ENVIRONMENT":
                self.environment |= dict(text.split("=", 1) for text in value)
            elif name == "ENVIRONMENT_MODIFICATION":
                for text in value:
                    variable, change = text.split("=", 1)
                    self.environment[variable] = change[4:] if change.startswith("set:") else None
            elif name == "WORKING_DIRECTORY":
                self.folder = value
            elif name == "SKIP_RETURN_CODE":
                self.skipped = value
        match = re.fullmatch(r"--gtest_filter=(.*)", self.command[1]) if len(self.command) > 1 else None
        self.filter = match and match.group(1)
        self.seconds, self.reached = 0.0, set()

    def program(self):
        return pathlib.Path(self.command[0]).name if self.filter else self.name


def run(test, command, seconds, **more):
    """The result and the output of one process and its children, None as result if it waited for too long. The time is
    that of the processor, so that a busy machine doesn't count. Of the decks of chance, a part will do."""
    environment = {**os.environ, **test.environment, "GTEST_FAIL_FAST": "1", "RESTATED_DECKS": "400", **more}
    environment = {name: value for name, value in environment.items() if value is not None}

    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
        resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))

    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, cwd=test.folder, env=environment, stdin=subprocess.DEVNULL, stdout=output,
                                   stderr=subprocess.STDOUT, start_new_session=True, preexec_fn=limit)
        try:
            result = process.wait(WAIT + 10 * seconds)
        except subprocess.TimeoutExpired:
            result = None
        try:
            os.killpg(process.pid, signal.SIGKILL)  # what a test left behind, or the test itself
        except ProcessLookupError:
            pass
        process.wait()
        output.seek(0)
        return result, output.read(1 << 22).decode(errors="replace")


def learn(test):
    """Runs a test without a fault. False if it fails or was skipped: then it catches nothing."""
    with tempfile.NamedTemporaryFile(dir=FOLDER) as reached:
        reached.truncate(MOST)
        begun = time.monotonic()
        result, output = run(test, test.command, 120, MUTANTS_REACHED=reached.name)
        test.seconds = time.monotonic() - begun
        test.reached = {number for number, byte in enumerate(reached.read()) if byte}
    if result not in (0, test.skipped) and test.reached:
        print(f"fails without a fault, isn't used: {test.name}\n{output[-1500:]}")
    return result == 0 and "[  SKIPPED ]" not in output


class Hunt:
    def __init__(self, tests):
        self.tests = tests
        self.catches = collections.Counter()  # by the folder of the fault and the program
        self.lock = threading.Lock()

    def batches(self, number, folder):
        """Lists of tests that run in one process, the likeliest for their time first."""
        quick, batches = collections.defaultdict(list), []
        for test in self.tests:
            if number not in test.reached:
                continue
            if test.filter and test.seconds < QUICK:
                quick[test.command[0]].append(test)
            else:
                batches.append([test])
        batches += quick.values()
        with self.lock:
            return sorted(batches, key=lambda batch: (0.02 + sum(test.seconds for test in batch) / math.sqrt(len(batch))) /
                          (1 + self.catches[folder, batch[0].program()]))

    def catch(self, number, fault):
        """The name of the test that catches a fault, "" if none does, None if none even comes by."""
        folder = str(pathlib.Path(fault.path).parent)
        batches = self.batches(number, folder)
        spent = 0.0
        for batch in batches:
            if spent > ENOUGH:
                break
            spent += sum(test.seconds for test in batch)
            first = batch[0]
            command = first.command
            if first.filter:
                command = [first.command[0], "--gtest_filter=" + ":".join(test.filter for test in batch)]
            seconds = 5 + math.ceil(10 * sum(test.seconds for test in batch))
            result, output = run(first, command, seconds, MUTANT=str(number))
            if result == 0:
                continue
            with self.lock:
                self.catches[folder, first.program()] += 1
            begun = re.findall(r"\[ RUN      \] (\S+)", output)
            return f"{first.program()}: {begun[-1]}" if begun and first.filter else first.program()
        return "" if batches else None


def folder_of(path):
    parts = path.split("/")[:-1]
    return "/".join(parts[:3 if parts[0] == "Converter" else 2 if parts[0] == "nas2zdt" else 1])


def share(caught, total):
    return 100.0 * caught / total if total else 100.0


def tell(results):
    """Prints what was caught by folder and by program, and each survivor. Returns the shares of core and rest."""
    by_folder, by_program = collections.defaultdict(list), collections.Counter()
    for result in results:
        by_folder[folder_of(result["path"])].append(result)
        if result["by"]:
            by_program[result["by"].split(":")[0]] += 1
    for result in sorted(results, key=lambda r: (r["path"], r["line"])):
        if not result["by"]:
            unreached = " (no test comes by)" if result["by"] is None else ""
            print(f"survived: {result['path']}:{result['line']}: {result['faulty']}{unreached}")
    print(f"\n{'folder':40} faults caught survived")
    for folder, some in sorted(by_folder.items()):
        caught = sum(1 for result in some if result["by"])
        print(f"{folder:40} {len(some):6} {caught:6} {len(some) - caught:8} {share(caught, len(some)):6.1f} %")
    print("\ncaught by: " + ", ".join(f"{program} {count}" for program, count in by_program.most_common()))
    shares = {}
    for group in ("core", "rest"):
        some = [result for result in results if group_of(result["path"]) == group]
        caught = sum(1 for result in some if result["by"])
        shares[group] = share(caught, len(some))
        print(f"{group}: {caught} of {len(some)} caught, {shares[group]:.1f} %")
    return shares


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--sample", type=int, default=300, metavar="N", help="so many faults")
    parser.add_argument("--seed", type=int, default=1, metavar="N", help="another seed gives other faults")
    parser.add_argument("--path", default="", help="faults only in files whose path begins so")
    parser.add_argument("--again", action="store_true", help="only the survivors of the last run with this sample")
    parser.add_argument("--require", default="", metavar="core=N,rest=N", help="fail below these percentages")
    options = parser.parse_args()
    required = {name: float(least) for name, least in (part.split("=") for part in options.require.split(",") if part)}

    begun = time.monotonic()
    FOLDER.mkdir(parents=True, exist_ok=True)
    faults = give_numbers(choose(options))
    wanted = len(faults)
    build(faults)
    print(f"{len(faults)} of {wanted} faults compile; built in {time.monotonic() - begun:.0f} s", flush=True)
    listed = subprocess.run(["ctest", "--show-only=json-v1"], cwd=BUILD, capture_output=True, text=True, check=True)
    tests = [Test(described) for described in json.loads(listed.stdout)["tests"] if "command" in described]
    last = {(r["path"], r["line"], r["faulty"]): r for r in json.loads(RESULTS.read_text())} if options.again else {}
    before = {number: last.get((fault.path, fault.line, fault.faulty)) for number, fault in faults.items()}
    results = [result for result in before.values() if result and result["by"]]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        tests = [test for test, useful in zip(tests, pool.map(learn, tests)) if useful]
        print(f"{len(tests)} tests run after {time.monotonic() - begun:.0f} s", flush=True)
        hunt = Hunt(tests)
        open_faults = [(number, fault) for number, fault in faults.items()
                       if not (before[number] and before[number]["by"])]
        for (_, fault), by in zip(open_faults, pool.map(lambda pair: hunt.catch(*pair), open_faults)):
            results.append({"path": fault.path, "line": fault.line, "faulty": fault.faulty, "by": by})
    RESULTS.write_text(json.dumps(results, indent=1))
    shares = tell(results)
    print(f"{time.monotonic() - begun:.0f} s")
    return 1 if any(shares[name] < least for name, least in required.items()) else 0


if __name__ == "__main__":
    sys.exit(main())
