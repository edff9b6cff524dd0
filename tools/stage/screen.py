"""The pixels of an X display, read through the display's own library: a program for each
look would cost more than what it looks at."""
import ctypes
import ctypes.util
import struct
import zlib

from .basics import StageError

ALL_PLANES, Z_PIXMAP = ctypes.c_ulong(-1).value, 2


class Image(ctypes.Structure):
    """The beginning of Xlib's XImage."""
    _fields_ = [("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int), ("format", ctypes.c_int),
                ("data", ctypes.POINTER(ctypes.c_char)), ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int),
                ("bitmap_bit_order", ctypes.c_int), ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int),
                ("bytes_per_line", ctypes.c_int), ("bits_per_pixel", ctypes.c_int)]


def load_library():
    library = ctypes.CDLL(ctypes.util.find_library("X11") or "libX11.so.6")
    library.XOpenDisplay.restype = ctypes.c_void_p
    library.XGetImage.restype = ctypes.POINTER(Image)
    library.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, *[ctypes.c_int] * 2, *[ctypes.c_uint] * 2,
                                  ctypes.c_ulong, ctypes.c_int]
    library.XDefaultRootWindow.restype = ctypes.c_ulong
    library.XDestroyImage.argtypes = [ctypes.POINTER(Image)]
    for function in (library.XDefaultRootWindow, library.XCloseDisplay, library.XDefaultScreen):
        function.argtypes = [ctypes.c_void_p]
    for function in (library.XDisplayWidth, library.XDisplayHeight):
        function.argtypes = [ctypes.c_void_p, ctypes.c_int]
    return library


class Screen:
    def __init__(self, display):
        self.library = load_library()
        self.display = self.library.XOpenDisplay(display.encode())
        if not self.display:
            raise StageError(f"the display {display} cannot be opened")
        self.root = self.library.XDefaultRootWindow(self.display)
        number = self.library.XDefaultScreen(self.display)
        self.size = (self.library.XDisplayWidth(self.display, number),
                     self.library.XDisplayHeight(self.display, number))

    def close(self):
        self.library.XCloseDisplay(self.display)

    def pixels(self, x, y, width, height):
        """Three bytes a pixel, row by row: red, green, blue. What lies beside the screen is cut off."""
        right, bottom = min(x + width, self.size[0]), min(y + height, self.size[1])
        x, y = max(x, 0), max(y, 0)
        if x >= right or y >= bottom:
            return b""
        image = self.library.XGetImage(self.display, self.root, x, y, right - x, bottom - y, ALL_PLANES, Z_PIXMAP)
        if not image:
            raise StageError("the display gives no picture")
        raw = ctypes.string_at(image.contents.data, image.contents.bytes_per_line * (bottom - y))
        self.library.XDestroyImage(image)
        picture = bytearray((right - x) * (bottom - y) * 3)
        for channel in range(3):  # 32 bits a pixel, blue first
            picture[channel::3] = raw[2 - channel::4]
        return bytes(picture)

    def save(self, path):
        """The whole screen as a PNG file."""
        width, height = self.size
        picture = self.pixels(0, 0, width, height)
        rows = b"".join(b"\0" + picture[y * width * 3:(y + 1) * width * 3] for y in range(height))

        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                         chunk(b"IDAT", zlib.compress(rows, 1)) + chunk(b"IEND", b""))
