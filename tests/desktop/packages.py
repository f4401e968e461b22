"""The packages' files, and the dialogs of the installer."""

import os
import pathlib
import subprocess

from harness import WM_CLOSE, click, settled, visible_windows, wait_until

ROOT = pathlib.Path(__file__).parents[2]


def make_package(product, out, **environment):
    subprocess.run([ROOT / "packaging" / "make", product, out], check=True, stdout=subprocess.DEVNULL,
                   env={**os.environ, **environment})
    return {file.name: file for file in out.iterdir()}


def only(files, ending):
    [found] = [file for name, file in files.items() if name.endswith(ending)]
    return found


def controls():
    return [child for window in visible_windows() for child in window.children]


def press(caption):
    """Clicks a button of the installer when it is enabled."""
    def find():
        return [child for child in controls()
                if child.class_name == "Button" and child.text.replace("&", "") == caption and child.enabled]
    click(*wait_until(lambda: settled(find), f"the button {caption}")[0].center())


def answer_box(text, button):
    wait_until(lambda: any(text in child.text for child in controls()), f"a message box: {text}")
    press(button)


def contents(folder):
    return {str(file.relative_to(folder)): file.read_bytes() for file in folder.rglob("*") if file.is_file()}


def product():
    return contents(pathlib.Path(os.environ["PRODUCT_DIR"]))


def close(program):
    program.post(WM_CLOSE)
    wait_until(lambda: not program.icon(), "the program exits")
