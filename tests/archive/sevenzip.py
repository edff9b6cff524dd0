"""Writes 7z archives byte by byte, also such as no archiver would make."""
import lzma
import struct
import zlib

COPY = bytes([0])
LZMA = bytes([3, 1, 1])
LZMA2 = bytes([0x21])
X86 = bytes([3, 3, 1, 3])


def number(value):
    """The format's integer: the first byte's leading ones count the bytes that follow."""
    for extra in range(8):
        if value < 1 << (7 * (extra + 1)):
            first = (0xFF00 >> extra) & 0xFF
            return bytes([first | value >> (8 * extra)]) + (value & ((1 << 8 * extra) - 1)).to_bytes(extra, "little")
    return b"\xff" + value.to_bytes(8, "little")


def bits(flags):
    flags = list(flags)
    flags += [False] * (-len(flags) % 8)
    return bytes(sum(flag << (7 - i) for i, flag in enumerate(flags[at:at + 8])) for at in range(0, len(flags), 8))


def coder(method, properties=b""):
    return bytes([len(method) | (0x20 if properties else 0)]) + method + \
        (number(len(properties)) + properties if properties else b"")


def chain(*coders):
    """A folder's description: the main coder first, each next one reads the one before."""
    bonds = b"".join(number(i + 1) + number(i) for i in range(len(coders) - 1))
    return number(len(coders)) + b"".join(coders) + bonds


class Block:
    """A solid block of entries: what the header says of it can differ from what is so."""

    def __init__(self, files, description=None, packed=None, unpack_sizes=None, crc=None):
        data = b"".join(content for _, content in files)
        self.files = files
        self.description = description or chain(coder(COPY))
        self.packed = data if packed is None else packed
        self.unpack_sizes = unpack_sizes or [len(data)]
        self.crc = crc


def lzma1_block(files):
    """With an end mark, as Python's raw LZMA always is."""
    data = b"".join(content for _, content in files)
    filters = [{"id": lzma.FILTER_LZMA1, "dict_size": 1 << 16}]
    packed = lzma.compress(data, format=lzma.FORMAT_RAW, filters=filters)
    return Block(files, chain(coder(LZMA, b"\x5d" + struct.pack("<I", 1 << 16))), packed)


def lzma2_block(files, x86=False):
    data = b"".join(content for _, content in files)
    filters = [{"id": lzma.FILTER_X86}] if x86 else []
    filters += [{"id": lzma.FILTER_LZMA2, "dict_size": 1 << 16}]
    packed = lzma.compress(data, format=lzma.FORMAT_RAW, filters=filters)
    coders = [coder(LZMA2, bytes([8]))] + ([coder(X86)] if x86 else [])
    return Block(files, chain(*coders), packed, [len(data)] * len(coders))


def streams_info(blocks, with_crc, gap):
    info = b"\x06" + number(gap) + number(len(blocks)) + b"\x09" + b"".join(number(len(b.packed)) for b in blocks) + b"\0"
    info += b"\x07\x0b" + number(len(blocks)) + b"\0" + b"".join(b.description for b in blocks)
    info += b"\x0c" + b"".join(number(size) for b in blocks for size in b.unpack_sizes)
    crcs = [b.crc for b in blocks]
    if any(crc is not None for crc in crcs):
        info += b"\x0a\0" + bits(crc is not None for crc in crcs)
        info += b"".join(struct.pack("<I", crc) for crc in crcs if crc is not None)
    info += b"\0\x08\x0d" + b"".join(number(len(b.files)) for b in blocks)
    if any(len(b.files) > 1 for b in blocks):
        info += b"\x09" + b"".join(number(len(content)) for b in blocks for _, content in b.files[:-1])
    # A block of one entry that has a CRC of its own gives it to the entry.
    owed = [content for b in blocks for _, content in b.files if len(b.files) != 1 or b.crc is None]
    if with_crc and owed:
        info += b"\x0a\x01" + b"".join(struct.pack("<I", zlib.crc32(content)) for content in owed)
    return info + b"\0\0"


def files_info(entries, names=True):
    """entries: (name, content); content None is a folder, b"" an empty file."""
    empty = [not content for _, content in entries]
    info = b"\x05" + number(len(entries))
    if any(empty):
        vector = bits(empty)
        info += b"\x0e" + number(len(vector)) + vector
        vector = bits(content is not None for _, content in entries if not content)
        info += b"\x0f" + number(len(vector)) + vector
    if names:
        text = b"\0" + b"".join(name.encode("utf-16-le", "surrogatepass") + b"\0\0" for name, _ in entries)
        info += b"\x11" + number(len(text)) + text
    return info + b"\0"


def wrap(packed, header, gap):
    start = struct.pack("<QQI", gap + len(packed), len(header), zlib.crc32(header))
    return b"7z\xbc\xaf\x27\x1c\0\x04" + struct.pack("<I", zlib.crc32(start)) + start + packed + header


def archive(blocks=(), entries=None, with_crc=True, names=True, gap=0):
    """entries: the whole table in its order, where it is not just the blocks' files. gap: the bytes that belong
    between the start header, of 32 bytes, and what follows it here."""
    blocks = list(blocks)
    if entries is None:
        entries = [file for block in blocks for file in block.files]
    header = b"\x01"
    if blocks:
        header += b"\x04" + streams_info(blocks, with_crc, gap)
    header += files_info(entries, names) + b"\0"
    return wrap(b"".join(block.packed for block in blocks), header, gap)
