#!/usr/bin/env python3
"""large_inputs.py PROGRAM CORPUS DICTIONARY SECONDS: runs a fuzz program on inputs of a megabyte.

Each input takes less than SECONDS of the processor and 256 MB, sanitizers included. What
costs too much is what repeats or nests, so the inputs repeat what the corpus and the dictionary
hold, and everything of the first kind comes before everything of the second.
"""
import os
import pathlib
import re
import sys
import tempfile

SIZE = 1 << 20
MEGABYTES = 256
MOST = 4  # words that are repeated each by itself


def repeated(piece, size=SIZE):
    return (piece * (size // max(len(piece), 1) + 1))[:size]


def words_of(dictionary):
    text = dictionary.read_bytes() if dictionary.exists() else b""
    for word in re.findall(rb'^"(.*)"$', text, re.M):
        yield re.sub(rb"\\(x..|.)", lambda found: bytes([int(found[1][1:], 16)]) if found[1][:1] == b"x" and
                     len(found[1]) == 3 else found[1], word)


def inputs(corpus, dictionary):
    files = [path.read_bytes() for path in sorted(corpus.iterdir())]
    yield "the whole corpus", repeated(b"".join(files))
    words = list(words_of(dictionary))
    if words:
        yield "all words", repeated(b"".join(words))
    for number, file in enumerate(sorted(filter(None, files), key=len)[-2:]):
        yield f"long file {number}", repeated(file)
        half = len(file) // 2  # what opens, then what closes
        yield f"nested file {number}", file[:1] + repeated(file[:half], SIZE // 2) + repeated(file[half:], SIZE // 2 - 1)
    for word in sorted(words, key=len)[:MOST] + [bytes([byte]) for byte in b"<[{&\n\0"]:
        yield f"only {word!r}", repeated(files[0][:4] + word) if len(word) > 1 else repeated(word)


def cost(program, path):
    """(exit status, seconds of the processor, megabytes)"""
    environment = dict(os.environ, ASAN_OPTIONS="quarantine_size_mb=8")
    process = os.posix_spawn(program, [program, "-timeout=60", "-rss_limit_mb=1000", path], environment,
                             file_actions=[(os.POSIX_SPAWN_OPEN, 2, path + ".log", os.O_WRONLY | os.O_CREAT, 0o600)])
    _, status, usage = os.wait4(process, 0)
    return os.waitstatus_to_exitcode(status), usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def main():
    program, corpus, dictionary, most = sys.argv[1:]
    bad = False
    with tempfile.TemporaryDirectory() as folder:
        for name, content in inputs(pathlib.Path(corpus), pathlib.Path(dictionary)):
            path = os.path.join(folder, "input")
            pathlib.Path(path).write_bytes(content)
            status, seconds, megabytes = cost(program, path)
            print(f"{name}: {seconds:.2f} s, {megabytes:.0f} MB")
            if status != 0:
                print(pathlib.Path(path + ".log").read_text(errors="replace")[-2000:])
            bad = bad or status != 0 or seconds >= float(most) or megabytes >= MEGABYTES
    return bad


if __name__ == "__main__":
    sys.exit(main())
