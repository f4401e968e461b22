"""What the two programs say of themselves to Windows: how they may be loaded, and what they need."""

import os
import pathlib
import re
import struct

import pytest

DYNAMIC_BASE, NX_COMPATIBLE, TERMINAL_SERVER_AWARE = 0x40, 0x100, 0x8000
RELOCATIONS_STRIPPED = 0x1
GUI, I386, PE32 = 2, 0x14C, 0x10B
IMPORTS, BASE_RELOCATIONS, DEBUG = 1, 5, 6

# Part of every Windows since 7.
LIBRARIES = {"advapi32.dll", "atl.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll",
             "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll", "user32.dll", "uxtheme.dll", "winhttp.dll", "winmm.dll"}


class Image:
    def __init__(self, path):
        self.bytes = path.read_bytes()
        header = self.unpack("<I", 0x3C)[0]
        assert self.bytes[header:header + 4] == b"PE\0\0"
        (self.machine, sections, self.time, _, _, optional_size,
         self.characteristics) = self.unpack("<HHIIIHH", header + 4)
        optional = header + 24
        self.magic, = self.unpack("<H", optional)
        self.system = self.unpack("<HH", optional + 48)
        self.subsystem, self.dll_characteristics = self.unpack("<HH", optional + 68)
        count, = self.unpack("<I", optional + 92)
        self.directories = [self.unpack("<II", optional + 96 + 8 * i) for i in range(count)]
        self.sections = [self.unpack("<IIII", optional + optional_size + 40 * i + 8) for i in range(sections)]

    def unpack(self, form, offset):
        return struct.unpack_from(form, self.bytes, offset)

    def offset(self, address):
        for size, start, raw_size, raw in self.sections:
            if start <= address < start + max(size, raw_size):
                return raw + address - start
        raise ValueError(hex(address))

    def text(self, address):
        start = self.offset(address)
        return self.bytes[start:self.bytes.index(b"\0", start)].decode("ascii")

    def imported_libraries(self):
        found, place = set(), self.offset(self.directories[IMPORTS][0])
        while name := self.unpack("<IIIII", place)[3]:
            found.add(self.text(name).lower())
            place += 20
        return found

    def named_libraries(self):
        """Also those that are loaded only when they are needed."""
        names = {name.decode("ascii").lower() for name in re.findall(rb"[\w.-]+\.dll(?=\0)", self.bytes, re.I)}
        return names - {"libgcc_s_dw2-1.dll"}  # the compiler's start-up asks whether it is there

    def relocations(self):
        """How many addresses the loader can move."""
        address, size = self.directories[BASE_RELOCATIONS]
        place, count = self.offset(address), 0
        end = place + size
        while place < end:
            _, block = self.unpack("<II", place)
            count += (block - 8) // 2
            place += block
        return count


@pytest.fixture(params=["SVAlerts.exe", "dl.exe"])
def image(request):
    return Image(pathlib.Path(os.environ["PRODUCT_DIR"]) / request.param)


def test_hardened_and_reproducible(image):
    assert (image.machine, image.magic, image.subsystem) == (I386, PE32, GUI)
    wanted = DYNAMIC_BASE | NX_COMPATIBLE | TERMINAL_SERVER_AWARE
    assert image.dll_characteristics & wanted == wanted
    assert not image.characteristics & RELOCATIONS_STRIPPED and image.relocations() > 1000
    assert image.time == 0 and image.directories[DEBUG] == (0, 0)
    assert image.system <= (6, 1)


def test_needs_only_what_every_windows_has(image):
    assert "kernel32.dll" in image.imported_libraries()
    assert image.imported_libraries() | image.named_libraries() <= LIBRARIES
