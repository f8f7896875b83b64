#!/usr/bin/env python3
"""Mutation testing: would the tests notice if the product were wrong in one place?

Every change of the sources is woven into one build, behind a question for its number (mutant.h). First each test
function runs once alone and tells the places that it comes to; then each mutant of the sample meets the test functions
that come to it, cheapest first, until one fails.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import hashlib
import json
import multiprocessing
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import sites
import weave

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutate"
TREE = WORK / "tree"
BUILD = TREE / "build" / "dev"
TESTS = BUILD / "tests"
ROOMS = ("plugin", "page", "statistics", "charts", "export")
# Programs that test the development host, and headers of messages that are the host's: no place of ours in them.
FOREIGN = {
    "tst_controls", "tst_csv_import", "tst_devhost", "tst_import_failures", "tst_messages", "tst_postgres",
    "tst_periods", "tst_sample_events", "tst_store", "tst_store_locks", "tst_store_totals", "tst_temperature_messages",
}
SLOW_SECONDS = 1.5
SLACK_SECONDS = 15
TIMEOUT_FACTOR = 5


def product_files():
    return sorted(
        str(path.relative_to(ROOT)) for room in ROOMS for path in (ROOT / room).iterdir()
        if path.suffix in (".cpp", ".h"))


def programs():
    return sorted(path.stem for path in (ROOT / "tests").glob("tst_*.cpp") if path.stem not in FOREIGN)


# The tree to be woven.

def write_if_changed(path, data):
    if path.exists() and path.read_bytes() == data:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def copy_tree():
    """All files but the product's, which come woven. Their first copies are only there to be configured."""
    woven = set(product_files())
    found = set()
    for folder, names, files in os.walk(ROOT):
        if pathlib.Path(folder) == ROOT:
            names[:] = [name for name in names if name not in ("build", "out", ".git")]
        for name in files:
            path = pathlib.Path(folder) / name
            relative = str(path.relative_to(ROOT))
            found.add(relative)
            data = path.read_bytes()
            if relative == "plugin/CMakeLists.txt":
                data += b"\n# Woven code need not be clean.\ntarget_compile_options(TalvixDataStaticsObjects PRIVATE -w)\n"
            if relative not in woven or not (TREE / relative).exists():
                write_if_changed(TREE / relative, data)
    for folder, names, files in os.walk(TREE):
        if pathlib.Path(folder) == TREE:
            names[:] = [name for name in names if name != "build"]
        for name in files:
            if str((pathlib.Path(folder) / name).relative_to(TREE)) not in found:
                (pathlib.Path(folder) / name).unlink()


def run(command, **options):
    done = subprocess.run(command, cwd=TREE, text=True, capture_output=True, **options)
    if done.returncode:
        sys.exit(f"{done.stdout}{done.stderr}\n{shlex.join(map(str, command))} failed.")
    return done.stdout


def configure():
    run(["cmake", "--preset", "dev"])
    run(["ninja", "-C", BUILD, "TalvixDataStaticsObjects_autogen"], env=build_environment())


def build_environment():
    return dict(os.environ, CCACHE_BASEDIR=str(TREE))


# Finding what can be changed.

def compiler_arguments():
    """The flags of each product source, with the folders of the untouched sources."""
    arguments = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        source = os.path.relpath(entry["file"], TREE)
        if source not in set(product_files()) or "TalvixDataStaticsObjects.dir" not in entry["command"]:
            continue
        flags, words = [], iter(shlex.split(entry["command"])[1:])
        for word in words:
            if word in ("-include", "-o", "-c"):
                next(words)
            elif word.startswith(("-I", "-D", "-std")):
                flags.append(original_folder(word))
            elif word == "-isystem":
                flags += [word, next(words)]
        arguments[source] = flags + ["-fPIC", "-w"]
    return arguments


def original_folder(word):
    built = str(BUILD)
    return word if built in word else word.replace(str(TREE), str(ROOT))


def find_in(task):
    """All finds of one translation unit, its own headers included: {file: (mutants, edits)}."""
    source, flags = task
    unit = sites.cindex.Index.create().parse(
        str(ROOT / source), flags, options=sites.cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
    errors = [str(d) for d in unit.diagnostics if d.severity >= sites.cindex.Diagnostic.Error]
    if errors:
        raise RuntimeError("\n".join(errors))
    names = set(product_files())
    included = {os.path.realpath(i.include.name): i.include.name for i in unit.get_includes()}
    files = {source: str(ROOT / source)}
    for real, name in included.items():
        relative = os.path.relpath(real, ROOT)
        if relative in names:
            files[relative] = name
    found = {}
    for relative, name in files.items():
        finder = sites.Finder(unit, name, relative)
        found[relative] = (finder.mutants, finder.edits)
    return found


def find_all():
    tasks = sorted(compiler_arguments().items())
    found = {}
    with multiprocessing.Pool(os.cpu_count()) as pool:
        for finds in pool.imap(find_in, tasks):
            for name, find in finds.items():
                found.setdefault(name, find)
    return {name: found[name] for name in sorted(found)}


# Weaving and building.

def without(mutants, edits, excluded):
    """Leaves out the changes that do not compile."""
    bad = {i for i, mutant in enumerate(mutants) if mutant.key() in excluded}
    return [edit for edit in edits if not bad.intersection(edit.mutants)]


def weave_all(found, excluded):
    """Writes the woven sources; returns all mutants that are in them and where they stand."""
    mutants, spans, first = [], {}, 1
    for name, (own, edits) in found.items():
        kept = without(own, edits, excluded)
        # In headers constants may be needed, which then are the original ones; in sources nothing is a constant.
        in_header = name.endswith(".h")
        header = '#include "tests/mutate/mutant.h"\n'
        header += "" if in_header else '#include "tests/mutate/live.h"\n'
        header = '#pragma GCC system_header\n' + header if in_header else header
        form = "{}" if in_header else "talvix::live({})"
        data, places = weave.weave((ROOT / name).read_bytes(), kept, first, header, form)
        write_if_changed(TREE / name, data)
        spans[name] = (data, [(start, end, [own[i] for i in numbers]) for start, end, numbers in places])
        woven = {i for edit in kept for i in edit.mutants}
        for i in sorted(woven):
            own[i].number = first + i
            mutants.append(own[i])
        first += len(own)
    for name in set(product_files()) - set(found):
        write_if_changed(TREE / name, (ROOT / name).read_bytes())
    return mutants, spans


def build(targets):
    return subprocess.run(
        ["ninja", "-C", BUILD, "-j", str(os.cpu_count()), "-k", "0", *targets],
        text=True, capture_output=True, env=build_environment())


def culprits(output, spans):
    """The innermost mutants at the places that the compiler complains about."""
    found = set()
    for file, line, column in re.findall(r"([\w./-]+):(\d+):(\d+): error:", output):
        path = os.path.relpath(os.path.realpath(BUILD / file), TREE)
        if path not in spans:
            continue
        data, places = spans[path]
        offset = sum(len(l) + 1 for l in data.split(b"\n")[: int(line) - 1]) + int(column) - 1
        around = [(end - start, mutants) for start, end, mutants in places if start <= offset < end and mutants]
        if around:
            found.update(mutant.key() for mutant in min(around, key=lambda item: item[0])[1])
    return found


def weave_and_build():
    digest = hashlib.sha256()
    scripts = [f"tests/mutate/{name}" for name in ("mutant.h", "live.h", "sites.py", "weave.py")]
    for name in product_files() + scripts:
        digest.update((ROOT / name).read_bytes())
    state_file = WORK / "woven.json"
    state = json.loads(state_file.read_text()) if state_file.exists() else {}
    if state.get("digest") == digest.hexdigest():
        mutants = [sites.Mutant(**mutant) for mutant in state["mutants"]]
        done = build(programs())
        if done.returncode:
            sys.exit(done.stdout[-8000:] + "\nThe woven build failed.")
        return mutants
    say("Looking for what can be changed …")
    found = find_all()
    excluded = set(state.get("excluded", []))
    while True:
        mutants, spans = weave_all(found, excluded)
        say(f"Building {len(mutants)} mutants …")
        done = build(programs())
        if done.returncode == 0:
            break
        guilty = culprits(done.stdout, spans) - excluded
        if not guilty:
            sys.exit(done.stdout[-8000:] + "\nThe woven build failed.")
        for key in sorted(guilty):
            say(f"  does not compile: {key}")
        excluded |= guilty
    state = {"digest": digest.hexdigest(), "excluded": sorted(excluded),
             "mutants": [dataclasses.asdict(mutant) for mutant in mutants]}
    state_file.write_text(json.dumps(state))
    return mutants


# Running tests.

def run_test(program, functions, limit, **variables):
    """"passed", or how it was noticed. Stops at the first failure."""
    with tempfile.TemporaryDirectory(prefix="mutate-") as folder:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", TMPDIR=folder, XDG_RUNTIME_DIR=folder, **variables)
        process = subprocess.Popen(
            [TESTS / program, *functions], cwd=folder, env=environment, start_new_session=True,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, errors="replace")
        outcome = []

        def stop(reason):
            outcome.append(reason)
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass

        timer = threading.Timer(limit, stop, ["time-out"])
        timer.start()
        try:
            for line in process.stdout:
                if line.startswith(("FAIL!", "XPASS", "QFATAL")):
                    stop(line.split(":", 1)[-1].split("(", 1)[0].strip())
                    break
            process.stdout.close()
            code = process.wait()
        finally:
            timer.cancel()
        if outcome:
            return outcome[0]
        return "passed" if code == 0 else f"exit code {code}"


def test_functions(program):
    listed = subprocess.run([TESTS / program, "-functions"], text=True, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
    return [line[:-2] for line in listed.stdout.split() if line.endswith("()")]


def measure_function(program, function):
    with tempfile.TemporaryDirectory(prefix="mutate-") as folder:
        record = os.path.join(folder, "reached")
        start = time.monotonic()
        outcome = run_test(program, [function], 300, TALVIX_MUTANT_RECORD=record)
        seconds = time.monotonic() - start
        reached = set()
        if os.path.exists(record):
            with open(record) as lines:
                reached = {int(line) for line in lines}
    return outcome, seconds, sorted(reached)


def measure(jobs):
    """{program: {function: (seconds, numbers reached)}}; programs that did not change are not run again."""
    cache_file = WORK / "reached.json"
    cache = json.loads(cache_file.read_text()) if cache_file.exists() else {}
    measured, tasks = {}, []
    for program in programs():
        digest = hashlib.sha256((TESTS / program).read_bytes()).hexdigest()
        known = cache.get(program, {})
        if known.get("digest") == digest:
            measured[program] = known
        else:
            measured[program] = {"digest": digest, "functions": {}}
            tasks += [(program, function) for function in test_functions(program)]
    if tasks:
        say(f"Measuring what {len(tasks)} test functions come to …")
    failed = []
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for (program, function), (outcome, seconds, reached) in zip(
                tasks, pool.map(lambda task: measure_function(*task), tasks)):
            if outcome != "passed":
                failed.append(f"{program} {function}: {outcome}")
            measured[program]["functions"][function] = (seconds, reached)
    if failed:
        sys.exit("These tests fail without any mutant, each run alone:\n" + "\n".join(failed))
    cache_file.write_text(json.dumps(measured))
    return {program: known["functions"] for program, known in measured.items()}


class Hunt:
    """Runs mutants against the tests that come to them, in portions of one program: all its quick functions at once,
    each slow one alone."""

    def __init__(self, measured):
        self.reaching = collections.defaultdict(lambda: collections.defaultdict(list))
        for program, functions in measured.items():
            for function, (seconds, reached) in functions.items():
                portion = (program, function if seconds > SLOW_SECONDS else "")
                for number in reached:
                    self.reaching[number][portion].append((seconds, function))
        self.noticed = collections.Counter()
        self.tried = collections.Counter()
        self.lock = threading.Lock()
        self.memory_file = WORK / "noticed.json"
        self.memory = json.loads(self.memory_file.read_text()) if self.memory_file.exists() else {}

    def price(self, mutant, portion, functions):
        """Seconds until this portion has noticed a mutant of this file, as things went so far."""
        if self.memory.get(mutant.key()) == "/".join(portion):
            return 0
        pair = (mutant.file, portion)
        # A program that bears the file's name most likely knows best.
        expected = 20 if portion[0].replace("_", "")[3:] == pathlib.Path(mutant.file).stem.lower() else 1
        chance = (self.noticed[pair] + expected) / (self.tried[pair] + expected + 1)
        return (0.2 + sum(seconds for seconds, _ in functions)) * (1 - chance) / chance

    def outcome(self, mutant):
        tests = self.reaching.get(mutant.number)
        if not tests:
            return "survived", "no test comes to it"
        for portion in sorted(tests, key=lambda name: self.price(mutant, name, tests[name])):
            functions = sorted(tests[portion])
            limit = SLACK_SECONDS + TIMEOUT_FACTOR * sum(seconds for seconds, _ in functions)
            how = run_test(portion[0], [name for _, name in functions], limit, TALVIX_MUTANT=str(mutant.number))
            self.tried[mutant.file, portion] += 1
            if how != "passed":
                self.noticed[mutant.file, portion] += 1
                with self.lock:
                    self.memory[mutant.key()] = "/".join(portion)
                    # Kept at once: a run after one that was stopped begins with what is known.
                    self.memory_file.write_text(json.dumps(self.memory))
                return "noticed", f"{portion[0]}: {how}"
        return "survived", f"{sum(map(len, tests.values()))} test functions passed"


# The sample and what is said about it.

def draw(mutants, count, seed):
    """A fair part of all: of each file the same share, within a file one of each kind of change in turn."""
    def lot(mutant):
        return hashlib.sha256(f"{seed} {mutant.key()}".encode()).digest()

    files = collections.defaultdict(lambda: collections.defaultdict(list))
    for mutant in sorted(mutants, key=lot):
        files[mutant.file][mutant.kind].append(mutant)
    chosen = []
    for _, kinds in sorted(files.items()):
        share = max(1, round(count * sum(map(len, kinds.values())) / len(mutants)))
        groups = sorted(kinds.values(), key=lambda group: lot(group[0]))
        while share and any(groups):
            for group in groups:
                if group and share:
                    chosen.append(group.pop(0))
                    share -= 1
    return sorted(chosen, key=lambda mutant: mutant.number)


def equivalents():
    """{key: reason} of equivalent.txt, whose blocks are file and function, line, change and reason."""
    reasons = {}
    text = (pathlib.Path(__file__).parent / "equivalent.txt").read_text()
    for block in re.split(r"\n\s*\n", text):
        lines = [line.strip() for line in block.split("\n") if line.strip() and not line.startswith("#")]
        if lines:
            where, place, change, *reason = lines
            reasons[" | ".join((*where.split(" "), place, change))] = " ".join(reason)
    return reasons


def say(text):
    print(text, flush=True)


def shown(mutant):
    return f"{mutant.file}:{mutant.line} ({mutant.function}) {mutant.kind}: {mutant.change}"


def report(results, seconds, threshold):
    kinds = collections.defaultdict(collections.Counter)
    for mutant, (outcome, _) in results:
        kinds[mutant.kind][outcome] += 1
        kinds["all"][outcome] += 1
    say(f"\n{'kind of change':22} {'total':>6} {'noticed':>8} {'survived':>9} {'equivalent':>11}")
    for kind in (*sites.KINDS, "all"):
        counts = kinds[kind]
        say(f"{kind:22} {sum(counts.values()):6} {counts['noticed']:8} {counts['survived']:9} {counts['equivalent']:11}")
    survivors = [(mutant, how) for mutant, (outcome, how) in results if outcome == "survived"]
    if survivors:
        say("\nSurvived:")
    for mutant, how in survivors:
        say(f"  {shown(mutant)}\n      {mutant.place}\n      {how}")
    counted = kinds["all"]["noticed"] + kinds["all"]["survived"]
    score = 100.0 * kinds["all"]["noticed"] / counted if counted else 0.0
    say(f"\n{kinds['all']['noticed']} of {counted} noticed, {score:.1f} %, in {seconds / 60:.1f} minutes.")
    return score >= threshold


def options():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--count", type=int, default=400, help="how many mutants are drawn (%(default)s)")
    parser.add_argument("--all", action="store_true", help="run all mutants")
    parser.add_argument("--seed", default="talvix", help="another seed draws another sample")
    parser.add_argument("--again", action="store_true", help="only those that survived the last run")
    parser.add_argument("--only", default="", metavar="TEXT", help="only mutants whose description contains TEXT")
    parser.add_argument("--list", action="store_true", help="list the mutants that would be run")
    parser.add_argument("--jobs", type=int, default=2, help="test programs at a time (%(default)s)")
    parser.add_argument("--threshold", type=float, default=95.0, help="per cent to be noticed (%(default)s)")
    return parser.parse_args()


def chosen_mutants(mutants, given):
    if given.again:
        survived = set(json.loads((WORK / "survived.json").read_text()))
        return [mutant for mutant in mutants if mutant.key() in survived]
    drawn = mutants if given.all else draw(mutants, given.count, given.seed)
    return [mutant for mutant in drawn if given.only in f"{shown(mutant)} {mutant.place}"]


def main():
    given = options()
    start = time.monotonic()
    WORK.mkdir(parents=True, exist_ok=True)
    copy_tree()
    configure()
    mutants = weave_and_build()
    reasons = equivalents()
    stale = set(reasons) - {mutant.key() for mutant in mutants}
    for key in sorted(stale):
        say(f"equivalent.txt names no mutant: {key}")
    chosen = chosen_mutants(mutants, given)
    if given.list:
        for mutant in chosen:
            say(f"{mutant.number:5} {shown(mutant)}")
        return 0
    hunt = Hunt(measure(given.jobs))

    def judge(mutant):
        if mutant.key() in reasons:
            return "equivalent", reasons[mutant.key()]
        return hunt.outcome(mutant)

    say(f"Running {len(chosen)} of {len(mutants)} mutants after {(time.monotonic() - start) / 60:.1f} minutes …")
    results = []
    with concurrent.futures.ThreadPoolExecutor(given.jobs) as pool:
        for mutant, result in zip(chosen, pool.map(judge, chosen)):
            results.append((mutant, result))
            if result[0] == "survived":
                say(f"  survived: {shown(mutant)}")
            if len(results) % 50 == 0:
                say(f"  {len(results)} after {(time.monotonic() - start) / 60:.1f} minutes")
    (WORK / "survived.json").write_text(json.dumps([m.key() for m, (outcome, _) in results if outcome == "survived"]))
    (WORK / "results.json").write_text(json.dumps([(shown(m), *result) for m, result in results], indent=1))
    enough = report(results, time.monotonic() - start, given.threshold)
    return 0 if enough and not stale else 1


if __name__ == "__main__":
    sys.exit(main())
