"""The files of both programs: hardening, relocations, libraries and functions, version, manifest."""

import os
import pathlib
import re
import struct
from itertools import zip_longest
from xml.etree import ElementTree

import pefile
import pytest

ROOT = pathlib.Path(__file__).parents[2]
PRODUCT_DIR, MOVED_DIR = (pathlib.Path(os.environ[name]) for name in ("PRODUCT_DIR", "MOVED_DIR"))
PROGRAM_FOLDERS = "alerts app downloader options runtime search settings stations tray win".split()
NAME = re.compile(rb"[\w.-]{2,}(?=\0)|([\w.-]\0){2,}(?=\0)")  # in bytes or UTF-16
ADDRESS = 3  # type of a relocation: a 32-bit address
EXECUTABLE, WRITABLE = 0x20000000, 0x80000000

# Each library costs start time and idle memory.
LOADED_AT_START = {
    "SVAlerts.exe": {"advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "shell32.dll", "user32.dll"},
    "dl.exe": {"advapi32.dll", "kernel32.dll", "msvcrt.dll", "ntdll.dll", "user32.dll", "winhttp.dll"},
}
# The thread library of mingw-w64 looks for kernelbase.dll, which every Windows has loaded already.
LOADED_LATER = {"atl.dll", "comctl32.dll", "comdlg32.dll", "kernelbase.dll", "ole32.dll", "oleaut32.dll",
                "shcore.dll", "uxtheme.dll", "winmm.dll"}
PROBED = "libgcc_s_dw2-1.dll"  # by the compiler's start-up code


class Image:
    def __init__(self, path):
        self.name = path.name
        self.file = pefile.PE(path)
        self.header = self.file.OPTIONAL_HEADER
        self.memory = bytearray(self.file.get_memory_mapped_image())  # without relocation

    def relocations(self):
        """Returns the positions in memory of all addresses that the loader adjusts."""
        entries = [entry for block in self.file.DIRECTORY_ENTRY_BASERELOC for entry in block.entries]
        return [entry.rva for entry in entries if entry.type == ADDRESS]

    def address(self, position):
        return struct.unpack_from("<I", self.memory, position)[0]

    def text_at(self, address):
        """Returns the name at the address, or ""."""
        start = address - self.header.ImageBase
        found = NAME.match(self.memory, start) if start > 0 else None
        return found[0].replace(b"\0", b"").decode("ascii") if found else ""

    def imports(self):
        """Returns the functions that the loader looks up, as pairs of library and name."""
        libraries = self.file.DIRECTORY_ENTRY_IMPORT + getattr(self.file, "DIRECTORY_ENTRY_DELAY_IMPORT", [])
        return {(library.dll.decode().lower(), function.name and function.name.decode())
                for library in libraries for function in library.imports}

    def late_functions(self):
        """Returns the functions that win/LateFunctions.h looks up: pairs of pointers in the data."""
        pairs = {(self.text_at(self.address(position)), self.text_at(self.address(position + 4)))
                 for position in self.relocations()}
        return {(library, name) for library, name in pairs if library.endswith(".dll") and name}

    def named_libraries(self):
        """Returns all named libraries, including those that are loaded on demand."""
        names = (found[0].replace(b"\0", b"").decode("ascii").lower() for found in NAME.finditer(self.memory))
        return {name for name in names if name.endswith(".dll")} - {PROBED}


@pytest.fixture(scope="module", params=["SVAlerts.exe", "dl.exe"])
def image(request):
    return Image(PRODUCT_DIR / request.param)


def test_hardened_and_reproducible(image):
    header = image.header
    assert image.file.FILE_HEADER.Machine == pefile.MACHINE_TYPE["IMAGE_FILE_MACHINE_I386"]
    assert header.Subsystem == pefile.SUBSYSTEM_TYPE["IMAGE_SUBSYSTEM_WINDOWS_GUI"]
    assert header.IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE and header.IMAGE_DLLCHARACTERISTICS_NX_COMPAT
    assert header.IMAGE_DLLCHARACTERISTICS_TERMINAL_SERVER_AWARE
    assert not image.file.FILE_HEADER.IMAGE_FILE_RELOCS_STRIPPED and not hasattr(image.file, "DIRECTORY_ENTRY_DEBUG")
    assert image.file.FILE_HEADER.TimeDateStamp == 0
    assert (header.MajorSubsystemVersion, header.MinorSubsystemVersion) <= (6, 1)


def test_no_section_is_both_writable_and_executable(image):
    flags = [section.Characteristics for section in image.file.sections]
    assert any(flag & EXECUTABLE for flag in flags)
    assert not any(flag & EXECUTABLE and flag & WRITABLE for flag in flags)


def test_every_address_is_relocated(image):
    moved = Image(MOVED_DIR / image.name)
    distance = moved.header.ImageBase - image.header.ImageBase
    positions = image.relocations()
    assert distance and len(positions) > 1000
    relocated = image.memory.copy()
    for position in positions:
        struct.pack_into("<I", relocated, position, image.address(position) + distance)
    start = image.file.sections[0].VirtualAddress
    pairs = enumerate(zip_longest(relocated, moved.memory))
    assert [hex(place) for place, (here, there) in pairs if place >= start and here != there] == []


def test_loads_only_required_libraries_at_start(image):
    assert {library for library, _ in image.imports()} == LOADED_AT_START[image.name]
    assert image.named_libraries() <= LOADED_AT_START[image.name] | LOADED_LATER


def test_uses_only_functions_of_windows_10(image):
    """Windows does not start a program that imports an unknown function."""
    lines = pathlib.Path(__file__).with_name("windows10.txt").read_text().splitlines()
    allowed = {tuple(line.split()) for line in lines if not line.startswith("#")}
    assert sorted((image.imports() | image.late_functions()) - allowed) == []
    sources = [file for folder in PROGRAM_FOLDERS for file in (ROOT / folder).rglob("*.[ch]*")]
    assert [file.name for file in sources if "GetProcAddress" in file.read_text()] == ["LateFunctions.h"]


def test_version(image):
    version = re.search(r'VERSION "(.*)"', (ROOT / "settings/Product.h").read_text())[1]
    [[texts, languages]] = image.file.FileInfo
    [table], [language] = texts.StringTable, languages.Var
    title = {"SVAlerts.exe": b"Skyvane Alerts", "dl.exe": b"Skyvane Alerts downloader"}[image.name]
    expected = {b"CompanyName": b"Quillmark Software", b"FileDescription": title, b"ProductName": b"Skyvane Alerts",
                b"OriginalFilename": image.name.encode(), b"FileVersion": version.encode(),
                b"ProductVersion": version.encode()}
    assert table.entries.items() >= expected.items()
    # Windows shows the texts of the table that the translation names.
    assert language.entry == {b"Translation": "0x0409 0x04b0"} and table.LangID == b"040904b0"
    [fixed] = image.file.VS_FIXEDFILEINFO
    major, minor, revision = map(int, version.split("."))
    assert (fixed.FileVersionMS, fixed.FileVersionLS) == (major << 16 | minor, revision << 16)


def test_manifest(image):
    [manifest] = [entry.directory.entries[0].directory.entries[0] for entry in image.file.DIRECTORY_ENTRY_RESOURCE.entries
                  if entry.id == pefile.RESOURCE_TYPE["RT_MANIFEST"]]
    tree = ElementTree.fromstring(image.file.get_data(manifest.data.struct.OffsetToData, manifest.data.struct.Size))
    texts = {element.tag.partition("}")[2]: element.text for element in tree.iter()}
    assert texts["activeCodePage"] == "UTF-8" and texts["dpiAwareness"].startswith("PerMonitorV2")
    attributes = {name: value for element in tree.iter() for name, value in element.attrib.items()}
    assert attributes["level"] == "asInvoker" and attributes["uiAccess"] == "false"
    assert "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}" in ElementTree.tostring(tree, "unicode")  # Windows 10 and later
