"""Makes a copy of a program that runs in the system's code page, as on Windows before version 10 1903:

    code_page.py PROGRAM COPY
"""

import pathlib
import re
import sys

SETTING = re.compile(rb"<activeCodePage[^>]*>UTF-8</activeCodePage>")


def without_utf8(program):
    """Returns the bytes of the program, whose manifest no longer asks for UTF-8."""
    changed, count = SETTING.subn(lambda found: b" " * len(found[0]), program)
    assert count == 1, "the manifest asks for UTF-8"
    return changed


if __name__ == "__main__":
    pathlib.Path(sys.argv[2]).write_bytes(without_utf8(pathlib.Path(sys.argv[1]).read_bytes()))
