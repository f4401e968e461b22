"""The executable headers of both programs: hardening, reproducibility, libraries."""

import os
import pathlib
import re
import struct
import subprocess

import pytest

# Each library costs start time and idle memory.
LOADED_AT_START = {
    "SVAlerts.exe": {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "shell32.dll", "user32.dll"},
    "dl.exe": {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ntdll.dll", "user32.dll", "winhttp.dll"},
}
# The thread library of mingw-w64 looks for kernelbase.dll, which every Windows has loaded already.
LOADED_LATER = {"atl.dll", "comctl32.dll", "comdlg32.dll", "kernelbase.dll", "ole32.dll", "oleaut32.dll",
                "uxtheme.dll", "winmm.dll"}


class Image:
    def __init__(self, path):
        self.name = path.name
        self.bytes = path.read_bytes()
        self.headers = subprocess.run(["i686-w64-mingw32-objdump", "-p", "-h", path], check=True, text=True,
                                      stdout=subprocess.PIPE).stdout

    def numbers(self, pattern):
        return [int(number) for number in re.findall(pattern + r"\s+(\d+)\n", self.headers)]

    def time(self):
        header, = struct.unpack_from("<I", self.bytes, 0x3C)
        return struct.unpack_from("<I", self.bytes, header + 8)[0]

    def named_libraries(self):
        """Returns also the libraries that are loaded on demand."""
        names = {name.decode("ascii").lower() for name in re.findall(rb"[\w.-]+\.dll(?=\0)", self.bytes, re.I)}
        return names - {"libgcc_s_dw2-1.dll"}  # probed by the compiler's start-up code

    def section_flags(self):
        """Returns the attributes of each section, from the line after its name."""
        return [line.strip().split(", ") for line in re.findall(r"^ +(?:CONTENTS, )?ALLOC, .*", self.headers, re.M)]


@pytest.fixture(params=["SVAlerts.exe", "dl.exe"])
def image(request):
    return Image(pathlib.Path(os.environ["PRODUCT_DIR"]) / request.param)


def test_hardened_and_reproducible(image):
    for fact in ("pei-i386\n", "(PE32)\n", "(Windows GUI)\n", "DYNAMIC_BASE\n", "NX_COMPAT\n",
                 "TERMINAL_SERVICE_AWARE\n", "\nEntry 6 00000000 00000000 Debug Directory"):
        assert fact in image.headers, fact
    assert "relocations stripped" not in image.headers and sum(image.numbers("Number of fixups")) > 1000
    assert image.time() == 0
    assert [0] < image.numbers("M..orSubsystemVersion") <= [6, 1]


def test_no_section_is_both_writable_and_executable(image):
    code = [flags for flags in image.section_flags() if "CODE" in flags]
    assert code and all("READONLY" in flags for flags in code)


def test_loads_only_required_libraries_at_start(image):
    imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", image.headers)}
    assert imported == LOADED_AT_START[image.name]
    assert image.named_libraries() <= LOADED_AT_START[image.name] | LOADED_LATER
