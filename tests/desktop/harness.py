"""Operates SVAlerts.exe as a user does and observes what a user sees.

tools/desktop.sh provides the screen with its taskbar and the Wine prefix. PRODUCT_DIR is the built program
folder, PROBE the helper program inside Wine.
"""

import contextlib
import os
import pathlib
import re
import shutil
import subprocess
import time
from dataclasses import make_dataclass

import stores
from inside import probe

TRAY_CLASS = "SkyvaneAlertsTray"
# The two timers of the minute clock, which run alternately, in this order.
MINUTE_TIMERS = (3, 2)
WM_CLOSE, WM_TIMER = 0x10, 0x113
ICON_CALLBACK, LEFT_DOWN, LEFT_DOUBLE, RIGHT_DOWN = 0x200, 0x201, 0x203, 0x204
RETRIEVER_DELAY_TIMER = 1

LEFT, RIGHT = 1, 3
DOUBLE_CLICK_SECONDS = 0.5


def wait_until(condition, what, seconds=15):
    """Returns the first true result of `condition`."""
    deadline = time.monotonic() + seconds
    while True:
        if result := condition():
            return result
        assert time.monotonic() < deadline, f"not within {seconds} s: {what}"
        time.sleep(0.02)


def stays(condition, seconds):
    """Whether `condition` remains true. Only for what must not happen."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if not condition():
            return False
        time.sleep(0.05)
    return True


def hold(file, seconds):
    """Starts a process that locks the file."""
    holder = subprocess.Popen(["wine", os.environ["PROBE"], "hold", stores.windows_path(file), str(seconds)],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    assert holder.stdout.readline().strip() == b"held"
    return holder


class Window(make_dataclass("Window", ["parent", "left", "top", "right", "bottom", "enabled", "ticked",
                                       "is_icon", "control", "class_name", "text", "children"])):
    """A window as listed by the probe: numbers up to `control`, then texts."""

    def center(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2


def visible_windows():
    """Returns the visible top-level windows, each with its visible descendants in `children`."""
    top_level = []
    for fields in probe("windows"):
        window = Window(*map(int, fields[:9]), *fields[9:], [])
        (top_level[-1].children if window.parent else top_level).append(window)
    return top_level


def find_windows(class_name, text=None):
    return [window for window in visible_windows()
            if window.class_name == class_name and text in (None, window.text)]


def settled(find):
    """Returns the result of `find` if it does not change within 0.1 s: the window manager moves new windows,
    and a click must not come before that."""
    found = find()
    if not found:
        return None
    time.sleep(0.1)
    return found if find() == found else None


def point_at(x, y):
    subprocess.run(["xdotool", "mousemove", str(x), str(y)], check=True)


def click(x, y, button=LEFT, times=1):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times),
                    "--delay", "60", str(button)], check=True)


def pixels(left, top, width, height):
    raw = subprocess.run(["import", "-silent", "-window", "root", "-crop",
                          f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-"],
                         check=True, stdout=subprocess.PIPE).stdout
    return [tuple(raw[i:i + 3]) for i in range(0, len(raw), 3)]


class Program:
    """A program folder with its settings and stations. If the folder does not exist, the built one is copied."""

    def __init__(self, folder, registry=False):
        self.folder = folder
        if not folder.exists():
            shutil.copytree(os.environ["PRODUCT_DIR"], folder)
        self.store = stores.RegistryStore() if registry else stores.IniStore(folder / "Default.ini")
        self.arguments = [] if registry else ["-id"]
        self.process = None
        self.launched = []
        self.ticks = 0
        self.last_click = 0

    def data_folder(self, user="Default"):
        """Returns the data folder in the program folder."""
        return self.folder / "Users" / user

    def write_stations(self, *stations, user="Default"):
        """Each station is a pair of display text and code, or a whole line as bytes."""
        self.data_folder(user).mkdir(parents=True, exist_ok=True)
        lines = [station if isinstance(station, bytes) else station_line(*station) for station in stations]
        (self.data_folder(user) / "CityCode.cmb").write_bytes(b"".join(line + b"\r\n" for line in lines))

    def launch(self, *arguments, **environment):
        with open(self.folder.parent / "stderr.txt", "ab") as stderr:
            process = subprocess.Popen(["wine", str(self.folder / "SVAlerts.exe"), *arguments],
                                       cwd=self.folder, stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL, stderr=stderr,
                                       env={**os.environ, **environment})
        self.launched.append(process)
        return process

    def start(self, **environment):
        """Starts the program and waits for its icon."""
        self.ticks = 0
        wait_until(lambda: not self.icon(), "an earlier program's icon disappears")
        self.runs = self.store.read("Misc", "Runs")
        self.process = self.launch(*self.arguments, **environment)
        wait_until(self.icon, "the icon")

    def wait_for_start(self, seconds=15):
        """Waits until the run is counted, which is the last step of the start."""
        wait_until(lambda: self.store.read("Misc", "Runs") != self.runs, "the start is complete", seconds)

    def icon(self):
        """Returns the icon's window: a child of the taskbar's or, in newer versions of Wine, a top-level one."""
        def find():
            return [window for top in visible_windows() for window in (top, *top.children)
                    if window.is_icon and window.right > window.left > 0]
        # While the taskbar embeds a new icon, the icon is at 0,0 or is listed in both places.
        found = wait_until(lambda: len(icons := find()) <= 1 and (icons or [None]), "one icon")
        return found[0]

    def icon_picture(self):
        """Returns "normal", "new alerts" or "none"."""
        icon = self.icon()
        if not icon:
            return "none"
        colors = pixels(icon.left, icon.top, icon.right - icon.left, icon.bottom - icon.top)
        red = sum(r > 180 and g < 110 and b < 90 for r, g, b in colors)
        blue = sum(r < 90 and g < 160 and b > 150 for r, g, b in colors)
        if max(red, blue) < 30:
            return "none"
        return "new alerts" if red > blue else "normal"

    def wait_for_picture(self, picture):
        wait_until(lambda: self.icon_picture() == picture, f"the icon's picture: {picture}")

    def click_icon(self, button=LEFT, times=1):
        place = wait_until(lambda: settled(self.icon), "the icon").center()
        # Two clicks in quick succession would be a double-click.
        time.sleep(max(0, self.last_click + 1.2 * DOUBLE_CLICK_SECONDS - time.monotonic()))
        click(*place, button, times)
        self.last_click = time.monotonic()

    def tooltip(self):
        """Returns the text that appears when the mouse rests on the icon."""
        point_at(600, 300)
        before = self.balloons()
        x, y = wait_until(lambda: settled(self.icon), "the icon").center()
        # Moving directly to the previous position is not always noticed.
        point_at(x - 2, y)
        point_at(x, y)
        text = wait_until(lambda: [tip for tip in self.balloons() if tip not in before], "the tooltip")[0]
        point_at(600, 300)
        return text

    def balloons(self):
        """Returns the texts of the visible tooltips and balloons."""
        return [window.text for window in find_windows("tooltips_class32")]

    def icon_message(self, *numbers):
        """Posts the messages that the taskbar sends for mouse events on the icon."""
        probe("post", TRAY_CLASS, *(field for number in numbers for field in (ICON_CALLBACK, 0, number)))

    def post(self, message, w_param=0, l_param=0):
        probe("post", TRAY_CLASS, message, w_param, l_param)

    def tick(self, minutes=1):
        """Simulates that minutes pass."""
        if not self.ticks:
            self.wait_for_start()
        for _ in range(minutes):
            self.post(WM_TIMER, MINUTE_TIMERS[self.ticks % 2])
            self.ticks += 1

    def run_quiet_cycle(self, **sections):
        """Changes settings and lets the minute pass that starts a cycle, which must not find new alerts."""
        if not self.ticks:
            self.wait_for_start()  # the start also writes settings
        self.store.write({"Misc": {"LastUpdated": ""}, "Alerts": {"Count": "0"}, **sections})
        self.tick()
        wait_until(self.last_updated, "the cycle's end")
        # After LastUpdated the program still updates the icon; it must keep responding.
        assert stays(self.answers, 0.3)

    def last_updated(self):
        return self.store.read("Misc", "LastUpdated")

    def downloaders(self):
        """Returns the process numbers of the dl.exe that run in this folder."""
        return [number for number in processes_in(self.folder) if number != self.process.pid]

    def errors(self):
        """Returns the messages of Wine."""
        return (self.folder.parent / "stderr.txt").read_text(encoding="utf-8", errors="replace")

    def wait_for_end(self, seconds=15):
        return self.process.wait(seconds)

    def sounds_played(self):
        """Only for a program that was started with WINEDEBUG="+winmm"."""
        return [name.replace("\\\\", "\\") for name in re.findall(r'SoundName=L"(.*?)"', self.errors())]

    def answers(self):
        """Whether the program still handles messages."""
        return self.process.poll() is None and probe("send", TRAY_CLASS, 0, 0, 0) == [["0"]]

    def kill(self):
        for process in self.launched:
            process.kill()
            process.wait()
        for number in processes_in(self.folder):
            with contextlib.suppress(ProcessLookupError):
                os.kill(number, 9)
        wait_until(lambda: not self.icon(), "the icon disappears")


def processor_seconds(process):
    """Returns the processor time that the process has used."""
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def processes(matches):
    """Returns the numbers of the processes for whose folders in /proc `matches` is true."""
    found = []
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit():
            with contextlib.suppress(OSError):
                if matches(entry):
                    found.append(int(entry.name))
    return found


def processes_in(folder):
    """Returns the numbers of the processes whose current folder is `folder`."""
    return processes(lambda entry: os.readlink(entry / "cwd") == str(folder))


def station_line(display, code):
    return f"{display}{' ' * 100}ID{code}***{code}***38.97***-95.23".encode()


def user_name():
    return pathlib.Path(stores.unix_path(probe("folders")[0][1])).parents[1].name
