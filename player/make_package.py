#!/usr/bin/env python3
"""Packs the stand-in of the player package.

make_package.py PROGRAMS OUT.7z [--megabytes N] [--player-version N] [--app-version N]

PROGRAMS is the build's folder with vynclient.exe, vynrepairer.exe and driverconfig.exe.
Beside them the package gets the version files and a few hundred files of the kinds that
an emulator is made of: libraries (x86 code), disk images, textures, sounds, tables of
text. The same arguments give the same files.
"""
import argparse
import pathlib
import random
import shutil
import struct
import subprocess
import tempfile
import zlib


def png(rng, side):
    """A valid picture with smooth colours and a little noise."""
    base = [rng.randrange(256) for _ in range(3)]
    rows = bytearray()
    for y in range(side):
        rows.append(0)
        for x in range(side):
            noise = rng.getrandbits(3)
            rows += bytes((base[0] + x + noise & 255, base[1] + y & 255, base[2] + x * y // side & 255))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(bytes(rows), 6))
            + chunk(b"IEND", b""))


def text_table(rng, lines):
    words = ["box", "key", "map", "touch", "screen", "sound", "frame", "cache", "driver", "port"]
    return "".join(f"{rng.choice(words)}.{rng.choice(words)}.{i}={rng.randrange(100000)}\r\n"
                   for i in range(lines)).encode()


def disk_image(rng, size):
    """Mostly empty sectors, some text, some packed data."""
    out = bytearray()
    while len(out) < size:
        kind = rng.random()
        if kind < 0.5:
            out += bytes(16384)
        elif kind < 0.85:
            out += text_table(rng, 400)
        else:
            out += rng.randbytes(32768)
    return bytes(out[:size])


def library(rng, code, size):
    """Pieces of real x86 code in a new order."""
    out = bytearray()
    while len(out) < size:
        start = rng.randrange(max(1, len(code) - 65536))
        out += code[start:start + 65536]
    return bytes(out[:size])


def fill(folder, programs, megabytes, versions):
    rng = random.Random(1000)
    code = b""
    for name in ("vynclient.exe", "vynrepairer.exe", "driverconfig.exe"):
        shutil.copy(programs / name, folder / name)
        code += (programs / name).read_bytes()
    player, app = versions
    files = {"playerversion": str(player).encode(), "data/appversion1000": str(app).encode()}
    unit = megabytes * 1024 * 1024 // 100
    for i in range(40):
        files[f"lib/qz{i:02d}.dll"] = library(rng, code, unit // 2 + rng.randrange(unit // 4 + 1))
    for i in range(4):
        files[f"vm/system{i}.img"] = disk_image(rng, unit * 14)
    for i in range(120):
        files[f"skins/default/icon {i:03d}.png"] = png(rng, 24 + i % 40)
    for i in range(80):
        files[f"config/keymap/{i:03d}.ini"] = text_table(rng, 60 + i)
    for i in range(30):
        files[f"sounds/effect{i:02d}.ogg"] = b"OggS" + rng.randbytes(unit // 40)
    for i, name in enumerate(("한국어", "简体中文", "ไทย", "tiếng Việt")):
        files[f"config/language/{name}.ini"] = text_table(rng, 200 + i)
    files["config/empty.flag"] = b""
    for name, data in files.items():
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


def write_list(folder):
    """files.txt: what the repair helper checks after the installation. The version of the
    game package changes with each of its updates and is not in it."""
    names = sorted(p for p in folder.rglob("*") if p.is_file() and p.name != "appversion1000")
    with open(folder / "files.txt", "w", encoding="utf-8", newline="") as out:
        for path in names:
            out.write(f"{path.stat().st_size} {str(path.relative_to(folder)).replace('/', chr(92))}\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", type=pathlib.Path)
    parser.add_argument("out", type=pathlib.Path)
    parser.add_argument("--megabytes", type=int, default=64, help="rough size unpacked")
    parser.add_argument("--player-version", type=int, default=2100)
    parser.add_argument("--app-version", type=int, default=5100)
    args = parser.parse_args()
    args.out.parent.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        fill(folder, args.programs, args.megabytes, (args.player_version, args.app_version))
        write_list(folder)
        partial = args.out.resolve().with_suffix(".part")
        partial.unlink(missing_ok=True)
        # The x86 filter for programs and libraries, LZMA2 for all.
        subprocess.run(["7z", "a", "-t7z", "-bd", "-bso0", "-mx=3", "-m0=LZMA2:d=4m", "-mf=BCJ", "-ms=on",
                        partial, "."], cwd=folder, check=True)
        partial.rename(args.out)


if __name__ == "__main__":
    main()
