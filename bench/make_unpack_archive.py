#!/usr/bin/env python3
"""make_unpack_archive.py TARGET: makes the archive of the unpacking benchmark, once.

One solid LZMA2 block with a dictionary of 32 MiB, of a few large files: making many
small ones would measure the file system. The content is what this machine has of
programs, tables and texts, so that it packs as real packages do.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

FILE_SIZE = 26 << 20
SOURCES = {"code": "/usr/lib", "data": "/usr/share"}
FILES_OF_EACH = 4


def contents(root):
    for folder, folders, names in os.walk(root):
        folders.sort()
        for name in sorted(names):
            path = pathlib.Path(folder, name)
            if path.is_file() and not path.is_symlink() and 4096 < path.stat().st_size < 8 << 20:
                yield path.read_bytes()


def fill(path, source):
    with open(path, "wb") as file:
        while file.tell() < FILE_SIZE:
            file.write(next(source))
        file.truncate(FILE_SIZE)


def main():
    target = pathlib.Path(sys.argv[1]).resolve()
    if target.exists():
        return
    target.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        for kind, root in SOURCES.items():
            source = contents(root)
            for number in range(FILES_OF_EACH):
                fill(pathlib.Path(folder, f"{kind}{number}.bin"), source)
        part = target.with_suffix(".part")
        part.unlink(missing_ok=True)
        subprocess.run(["7z", "a", "-t7z", "-mx=3", "-m0=LZMA2:d=32m", "-mf=off", "-mmt2", part, "."], cwd=folder,
                       stdout=subprocess.DEVNULL, check=True)
        part.rename(target)


main()
