#!/usr/bin/env python3
"""Makes corpus/archive anew: small archives of every kind for the fuzzer to start from."""
import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "archive"))
import sevenzip as sz  # noqa: E402

GOOD = ("a/good.txt", b"good content, repeated, repeated, repeated")
MORE = ("more.bin", b"\xe8\1\2\0\0" * 12)
TABLE = [("a", None), GOOD, ("empty", b""), MORE, ("last", None)]
METHODS = {"bcj2": "-mf=BCJ2", "delta": "-mf=Delta:3", "ia64": "-mf=IA64", "armt": "-mf=ARMT", "ppc": "-mf=PPC"}


def own():
    yield "copy", sz.archive([sz.Block([GOOD, MORE])], TABLE, with_crc=False)
    yield "copy_crc", sz.archive([sz.Block([GOOD, MORE])], TABLE)
    yield "lzma", sz.archive([sz.lzma1_block([GOOD, MORE])], with_crc=False)
    yield "lzma2_two_blocks", sz.archive([sz.lzma2_block([GOOD]), sz.lzma2_block([MORE], x86=True)], with_crc=False)
    yield "climbs", sz.archive([sz.Block([GOOD, ("../out", b"x")])], with_crc=False)
    yield "no_names", sz.archive([sz.Block([GOOD])], names=False)
    yield "nothing", sz.archive()
    yield "long_name", sz.archive([sz.Block([("n" * 300, b"x")])], with_crc=False)
    yield "file_as_folder", sz.archive([sz.Block([("a", b"x"), ("a/b", b"y")])], with_crc=False)
    yield "folder_as_file", sz.archive([sz.Block([("a/b", b"x"), ("a", b"y")])], with_crc=False)
    yield "larger_than_the_limit", sz.archive([sz.lzma1_block([("zeros", bytes(5 << 20)), ("more", b"x")])])
    yield "wrong_crc", sz.archive([sz.Block([GOOD, MORE])]).replace(b"good content", b"evil content")


def packed_by_7z(name, switch):
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "code").write_bytes(MORE[1] * 4)
        path = pathlib.Path(folder) / f"{name}.7z"
        subprocess.run(["7z", "a", "-mmt1", "-m0=LZMA:d16", "-mhc=off", "-mtm=off", switch, path, "code"], cwd=folder,
                       stdout=subprocess.DEVNULL, check=True)
        return path.read_bytes()


target = HERE / "corpus" / "archive"
target.mkdir(parents=True, exist_ok=True)
for name, content in own():
    (target / name).write_bytes(content)
for name, switch in METHODS.items():
    (target / name).write_bytes(packed_by_7z(name, switch))
