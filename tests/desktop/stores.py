"""The two settings stores, read and written from outside the program."""

import pathlib
import re
import subprocess
import tempfile

from inside import probe, unescape

REGISTRY_KEY = r"HKEY_CURRENT_USER\Software\VB and VBA Program Settings\Skyvane Alerts"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def unix_path(windows_path):
    return subprocess.run(["winepath", "-u", windows_path], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL).stdout.decode().strip()


def import_registry(text):
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "import.reg"
        file.write_bytes(text.encode("utf-16"))
        subprocess.run(["wine", "regedit", "/S", windows_path(file)], check=True,
                       stderr=subprocess.DEVNULL)


def export_registry(key):
    """Returns the key as the text of a registry file, or "" if there is no such key."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "export.reg"
        subprocess.run(["wine", "reg", "export", key, windows_path(file), "/y"],
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return file.read_bytes().decode("utf-16") if file.exists() else ""


def registry_values(key):
    """Returns the key's values by name: strings, and other types as in a registry file."""
    pairs = re.findall(r'^"(.*?)"=(.*)$', export_registry(key).replace("\r", ""), re.M)
    return {name: unescape(value[1:-1]) if value.startswith('"') else value for name, value in pairs}


def delete_registry(key, *value):
    """Deletes the key, or only the value."""
    subprocess.run(["wine", "reg", "delete", key, *(["/v", *value] if value else []), "/f"],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Store:
    """`sections()` returns {section: {lower-case key: value}}."""

    def read(self, section, key):
        """Returns the value, or None if there is none."""
        return self.sections().get(section, {}).get(key.lower())

    def alerts(self):
        """Returns the stored alerts as (id, title, zipcode, body), up to the stored count; None for a gap."""
        section = self.sections().get("Alerts", {})
        numbers = range(1, int(section.get("count", "0")) + 1)
        return [tuple(section.get(f"{key}{n}") for key in ("id", "title", "zipcode", "body"))
                if f"id{n}" in section else None for n in numbers]


class IniStore(Store):
    def __init__(self, path):
        self.path = path
        self.parsed = None, {}  # the last contents read: tests poll files of several megabytes

    def write(self, settings):
        sections = self.sections()
        for section, values in settings.items():
            sections.setdefault(section, {}).update({key.lower(): value for key, value in values.items()})
        self.path.write_text("".join(
            f"[{section}]\r\n" + "".join(f"{key.upper()}={value}\r\n" for key, value in values.items())
            for section, values in sections.items()), encoding="utf-8", newline="")

    def sections(self):
        if not self.path.is_file():
            return {}
        state = self.path.stat()
        version = state.st_mtime_ns, state.st_ino, state.st_size
        if self.parsed[0] != version:
            self.parsed = version, self.parse(self.path.read_bytes().decode("utf-8", "replace"))
        return {section: dict(values) for section, values in self.parsed[1].items()}

    @staticmethod
    def parse(text):
        result, current = {}, None
        for line in text.split("\n"):
            line = line.rstrip("\r")
            if line.startswith("["):
                current = result.setdefault(line[1:].rpartition("]")[0], {})
            elif "=" in line:
                key, value = line.split("=", 1)
                current[key.lower()] = value
        return result


class RegistryStore(Store):
    def __init__(self):
        delete_registry(REGISTRY_KEY)

    def write(self, settings):
        lines = ["Windows Registry Editor Version 5.00", ""]
        for section, values in settings.items():
            lines.append(f"[{REGISTRY_KEY}\\{section}]")
            for key, value in values.items():
                escaped = value.replace("\\", "\\\\").replace('"', '\\"')
                lines.append(f'"{key}"="{escaped}"')
        import_registry("\r\n".join(lines + [""]))

    def sections(self):
        result = {}
        for section, key, value in probe("texts", REGISTRY_KEY.partition("\\")[2]):
            result.setdefault(section, {})[key.lower()] = value
        return result
