#!/usr/bin/env python3
"""make_archives.py FOLDER: makes the archives that the tests unpack.

FOLDER/trees/NAME.7z       made by 7z, one for each method and filter
FOLDER/trees/NAME          what '7z x' makes of it, less the folders and empty files that
                           stand behind the last entry with data
FOLDER/refused/NAME.7z     a good file, then one whose name must be refused
FOLDER/faults/CODE_NAME.7z archives with the fault NAME, for which the result is CODE
FOLDER/limits/far.7z       lacks 5 GiB behind its first 32 bytes
FOLDER/limits/claim_N.7z   claims an entry of 2 to the 30 and N bytes, which its data is not
The same bytes each time, but for what another version of 7z would change.
"""
import os
import pathlib
import random
import shutil
import struct
import subprocess
import sys
import zlib

import sevenzip as sz

METHODS = {
    "copy": ["-m0=Copy"],
    "lzma": ["-m0=LZMA", "-mf=off"],
    "lzma2": ["-m0=LZMA2", "-mf=off"],
    "lzma2_not_solid": ["-m0=LZMA2", "-mf=off", "-ms=off"],
    "lzma2_many_blocks": ["-m0=LZMA2", "-mf=off", "-ms=100k"],
    "plain_header": ["-m0=LZMA", "-mf=off", "-mhc=off"],
    "delta": ["-m0=Delta:4", "-m1=LZMA2"],
    "x86": ["-m0=BCJ", "-m1=LZMA2"],
    "x86_lzma": ["-m0=BCJ", "-m1=LZMA"],
    "x86_copy": ["-m0=BCJ", "-m1=Copy"],
    "x86_not_solid": ["-m0=BCJ", "-m1=LZMA2", "-ms=off"],
    "ppc": ["-m0=PPC", "-m1=LZMA"],
    "ia64": ["-m0=IA64", "-m1=LZMA2"],
    "arm": ["-m0=ARM", "-m1=LZMA"],
    "armt": ["-m0=ARMT", "-m1=LZMA2"],
    "sparc": ["-m0=SPARC", "-m1=LZMA2"],
    "bcj2": ["-mf=BCJ2", "-m0=LZMA"],
    "bcj2_many_blocks": ["-mf=BCJ2", "-m0=LZMA", "-ms=off"],
}

REFUSED = {
    "climbs": "../outside.txt", "climbs_deep": "a/../../outside.txt", "climbs_back": "a\\..\\..\\outside.txt",
    "climbs_inside": "a/../inside.txt", "absolute": "/outside.txt", "absolute_back": "\\outside.txt",
    "drive": "C:\\outside.txt", "drive_relative": "c:outside.txt", "unc": "\\\\server\\share\\outside.txt",
    "device_space": "\\\\?\\C:\\outside.txt", "stream": "good.txt:stream", "device": "sub/NUL",
    "device_extension": "con.txt", "device_folded": "Aux .tar.gz", "device_superscript": "com\u00b9",
    "trailing_dot": "file.txt.", "trailing_blank": "folder /file.txt", "three_dots": ".../file.txt",
    "forbidden": "what?.txt", "control": "line\nbreak.txt", "long": "d/" * 128 + "abcd", "no_name": "",
    "ends_in_separator": "folder/",
}


def code_like(size, rng):
    """Bytes in which every branch filter finds something to convert."""
    out = bytearray()
    while len(out) < size:
        target = struct.pack("<I", rng.randrange(1 << 24))
        out += rng.choice([b"\xe8" + target, b"\xe9" + target, b"\x48" + target[:3], b"\xeb" + target[:3],
                           target[:3] + b"\xeb", b"\x40\x00" + target[:2], b"\xf0\xf8", target * 2])
    return bytes(out[:size])


def make_tree(root):
    rng = random.Random(7)
    words = [bytes(rng.choices(b"etaoinshrdlu", k=rng.randrange(2, 9))) for _ in range(400)]
    files = {
        "readme.txt": b"hello\n",
        "empty first.txt": b"",
        "data/words.txt": b" ".join(rng.choices(words, k=60000)),
        "data/zeros.bin": bytes(1000000),
        "data/noise.bin": rng.randbytes(100001),
        "bin/program.exe": code_like(400003, rng),
        "bin/tiny.dll": b"\xe8\x01\x02\x03",
        "bin/empty.dat": b"",
        "한국어/게임 데이터.txt": "안녕하세요".encode() * 50,
        "ไทย/ข้อมูล.txt": b"thai",
        "emoji 😀/файл.txt": b"pair",
        "a/b/c/d/e/f/deep.txt": b"deep",
    }
    for name, content in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    (root / "folder without files/inner").mkdir(parents=True)
    for path in root.rglob("*"):
        os.utime(path, (1700000000, 1700000000))


def listed_entries(path):
    """(name, size) in the order of the archive."""
    text = subprocess.run(["7z", "l", "-slt", "-ba", path], capture_output=True, check=True).stdout.decode()
    for record in text.strip().split("\n\n"):
        fields = dict(line.split(" = ", 1) for line in record.splitlines() if " = " in line)
        if fields:
            yield fields["Path"], int(fields.get("Size") or 0)


def expected_tree(path, target):
    subprocess.run(["7z", "x", "-y", f"-o{target}", path], stdout=subprocess.DEVNULL, check=True)
    entries = list(listed_entries(path))
    reached = max((i + 1 for i, (_, size) in enumerate(entries) if size), default=0)
    needed = {part for name, _ in entries[:reached] for part in (target / name, *(target / name).parents)}
    for name, _ in sorted(entries[reached:], reverse=True):
        path = target / name
        if path not in needed:
            path.rmdir() if path.is_dir() else path.unlink()


def make_trees(folder):
    source = folder / "source"
    make_tree(source)
    (folder / "trees").mkdir()
    for name, switches in METHODS.items():
        path = folder / "trees" / f"{name}.7z"
        subprocess.run(["7z", "a", "-mmt1", "-mx=3", *switches, path.resolve(), "."], cwd=source,
                       stdout=subprocess.DEVNULL, check=True)
        expected_tree(path, folder / "trees" / name)
    shutil.rmtree(source)


def make_own_trees(folder):
    """Orders of entries that 7z does not write itself but reads."""
    good = ("good.txt", b"good content")
    more = ("z/more.txt", b"more")
    trees = {
        "nothing": sz.archive(),
        "no_data": sz.archive(entries=[("folder", None), ("empty.txt", b"")]),
        "between": sz.archive([sz.Block([good, more])], [("first", None), good, ("empty.txt", b""), ("mid", None), more,
                                                         ("behind.txt", b""), ("behind", None)]),
        "without_crc": sz.archive([sz.lzma2_block([good, more])], with_crc=False),
        "lzma_end_mark": sz.archive([sz.lzma1_block([good, more])]),
        "x86_short": sz.archive([sz.lzma2_block([("jump", b"\xe8\1\2\3\4\x90\x90\xe8\1\2\3")], x86=True)]),
    }
    for name, content in trees.items():
        path = folder / "trees" / f"{name}.7z"
        path.write_bytes(content)
        (folder / "trees" / name).mkdir()
        expected_tree(path, folder / "trees" / name)


def make_refused(folder):
    (folder / "refused").mkdir()
    for name, entry in REFUSED.items():
        block = sz.Block([("good.txt", b"good content"), (entry, b"evil")])
        (folder / "refused" / f"{name}.7z").write_bytes(sz.archive([block]))
    outside = [("good.txt", b"good content"), ("../outside", None), ("more.txt", b"more")]
    block = sz.Block([outside[0], outside[2]])
    (folder / "refused" / "folder_climbs.7z").write_bytes(sz.archive([block], outside))


def faults():
    good = ("good.txt", b"good content, some of it repeated, repeated, repeated")
    more = ("more.txt", b"more content")
    sound = sz.archive([sz.lzma2_block([good, more])])
    lzma1 = sz.lzma1_block([good])
    size = len(good[1])
    yield "1014_text", b"this is no archive, but it is longer than the start header is\n"
    yield "1014_nothing", b""
    yield "1006_cut", sound[:-1]
    yield "1013_header", sound[:-1] + bytes([sound[-1] ^ 1])
    yield "1005_start_header", sound[:20] + bytes([sound[20] ^ 1]) + sound[21:]
    yield "1005_entry", sz.archive([sz.Block([good, ("bad.txt", b"changed"), more])]).replace(b"changed", b"Changed", 1)
    yield "1005_block", sz.archive([sz.Block([good, more], crc=zlib.crc32(b"other"))], with_crc=False)
    yield "1003_method", sz.archive([sz.Block([good], sz.chain(sz.coder(bytes([9, 9]))))], with_crc=False)
    yield "1001_garbage", sz.archive([sz.Block([good], sz.chain(sz.coder(sz.LZMA2, bytes([8]))), bytes([0x37] * 40))])
    yield "1001_copy_size", sz.archive([sz.Block([good], unpack_sizes=[size], packed=good[1] + b"x")])
    yield "1001_lzma2_properties", sz.archive([sz.Block([good], sz.chain(sz.coder(sz.LZMA2, b"\x08\x08")))])
    longer = ("good.txt", good[1] + b"more than the stream holds")
    yield "1001_early_end", sz.archive([sz.Block([longer], lzma1.description, lzma1.packed)], with_crc=False)
    huge = sz.coder(sz.LZMA, b"\x5d\xff\xff\xff\xff")
    yield "1002_dictionary", sz.archive([sz.Block([good], sz.chain(huge), lzma1.packed)])
    unknown = sz.chain(sz.coder(bytes([9, 9])))
    for power in (31, 40):
        claim = sz.Block([("huge.bin", b"x")], unknown, unpack_sizes=[1 << power])
        yield f"1002_whole_block_{power}", sz.archive([claim])


def make_faults(folder):
    (folder / "faults").mkdir()
    for name, content in faults():
        (folder / "faults" / f"{name}.7z").write_bytes(content)


def make_limits(folder):
    (folder / "limits").mkdir()
    block = sz.lzma2_block([("good.txt", b"good content"), ("more.txt", b"more")])
    (folder / "limits" / "far.7z").write_bytes(sz.archive([block], gap=5 << 30))
    block = sz.lzma2_block([("huge.bin", bytes(1 << 20))])
    for more in 0, 1:
        claim = sz.Block([("huge.bin", b"x")], block.description, block.packed, [(1 << 30) + more])
        (folder / "limits" / f"claim_{more}.7z").write_bytes(sz.archive([claim]))


def main():
    folder = pathlib.Path(sys.argv[1])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    make_trees(folder)
    make_own_trees(folder)
    make_refused(folder)
    make_faults(folder)
    make_limits(folder)


main()
