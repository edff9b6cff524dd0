"""fuzz_coverage.py [NAME ...]: how many lines of its parser each fuzz target reaches.

Replays the committed corpora and what searches have found below build/fuzz, in a build of its
own that counts. Which lines are missed: llvm-cov-14 show, with the profile that is left in
build/coverage/fuzz.
"""
import json
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/coverage"
GOAL = 90


def quietly(*command, **more):
    result = subprocess.run([str(part) for part in command], cwd=ROOT, capture_output=True, text=True, errors="replace",
                            **more)
    if result.returncode:
        sys.exit(f"{' '.join(map(str, command))}\n{result.stdout[-3000:]}{result.stderr[-3000:]}")
    return result.stdout


def targets(wanted):
    if not (BUILD / "build.ninja").exists():
        quietly("cmake", "--preset", "coverage")
    quietly("ninja", "-C", BUILD, "build.ninja")
    for line in (BUILD / "fuzz_targets.txt").read_text().splitlines():
        name, corpus, *sources = line.split()
        if not wanted or name in wanted:
            yield name, corpus, sources


def line_coverage(name, corpus, sources):
    """{source: (lines reached, lines)}"""
    program = BUILD / f"bin/{name}_fuzz"
    quietly("ninja", "-C", BUILD, "-j2", program.name)
    raw, profile = (BUILD / f"fuzz/{name}.{end}" for end in ("profraw", "profdata"))
    raw.parent.mkdir(exist_ok=True)
    folders = [ROOT / "tests/fuzz/corpus" / corpus, ROOT / "build/fuzz" / name]
    quietly(program, "-runs=0", *filter(pathlib.Path.exists, folders), env=dict(os.environ, LLVM_PROFILE_FILE=str(raw)))
    quietly("llvm-profdata-14", "merge", "-sparse", raw, "-o", profile)
    report = quietly("llvm-cov-14", "export", "-summary-only", f"-instr-profile={profile}", program,
                     *(ROOT / source for source in sources))
    found = {file["filename"]: file["summary"]["lines"] for file in json.loads(report)["data"][0]["files"]}
    for source in sources:
        lines = next(found[path] for path in found if path.endswith("/" + source))
        yield source, lines["covered"], lines["count"]


def main():
    print(f"{'target':16}{'source':36}{'lines':>6}{'reached':>9}")
    below = []
    for name, corpus, sources in targets(sys.argv[1:]):
        for source, covered, count in line_coverage(name, corpus, sources):
            percent = 100 * covered / count
            print(f"{name:16}{source:36}{count:6}{percent:8.1f}%")
            if percent <= GOAL:
                below.append(f"{source} by {name}")
    if below:
        print(f"not above {GOAL} %: {', '.join(below)}")


if __name__ == "__main__":
    main()
