"""The packages: reproducible, signed, small; the portable archive, used."""

import os
import shutil
import subprocess
import zipfile

import stores
from feed import LAWRENCE, TORNADO
from harness import wait_until
from packages import answer_box, close, contents, make_package, only
from prefix import snapshot
from tray_menu import choose

LIMIT = 1_500_000  # bytes of the installer without the gazetteer


def test_packages_are_reproducible(package, tmp_path):
    product_copy = tmp_path / "another place"
    shutil.copytree(os.environ["PRODUCT_DIR"], product_copy, copy_function=shutil.copy)
    for number, path in enumerate(sorted(product_copy.rglob("*"), reverse=True)):
        os.utime(path, (1_000_000_000 + 86_400 * number,) * 2)
        path.chmod(0o700)
    old_mask = os.umask(0o077)
    try:
        again = make_package(product_copy, tmp_path / "out", TZ="Asia/Kathmandu", LC_ALL="C.UTF-8")
    finally:
        os.umask(old_mask)
    assert sorted(again) == sorted(package) and len(again) == 3
    for name, file in package.items():
        assert again[name].read_bytes() == file.read_bytes(), name
    subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS"], check=True,
                   cwd=package["SHA256SUMS"].parent)
    later = make_package(product_copy, tmp_path / "later", SOURCE_DATE_EPOCH="1700000000")
    assert only(later, ".exe").read_bytes() != only(package, ".exe").read_bytes()


def test_packages_are_signed(tmp_path):
    certificate, key = tmp_path / "maker.pem", tmp_path / "key.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=Test maker", "-addext",
                    "extendedKeyUsage=codeSigning", "-keyout", key, "-out", certificate], check=True, stderr=subprocess.DEVNULL)
    (tmp_path / "password").write_text("secret")
    subprocess.run(["openssl", "pkcs12", "-export", "-inkey", key, "-in", certificate, "-out", tmp_path / "maker.p12",
                    "-passout", "pass:secret"], check=True)
    signed = make_package(os.environ["PRODUCT_DIR"], tmp_path / "out", SKYVANE_CERTIFICATE=str(tmp_path / "maker.p12"),
                          SKYVANE_CERTIFICATE_PASSWORD=str(tmp_path / "password"))
    subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS"], check=True, cwd=tmp_path / "out")
    with zipfile.ZipFile(only(signed, ".zip")) as archive:
        programs = [archive.extract(name, tmp_path) for name in archive.namelist() if name.endswith(".exe")]
    assert len(programs) == 2
    for program in (only(signed, "-setup.exe"), *programs):
        subprocess.run(["osslsigncode", "verify", "-CAfile", certificate, "-in", program], check=True,
                       stdout=subprocess.DEVNULL)


def test_installer_is_small(package):
    with zipfile.ZipFile(only(package, ".zip")) as archive:
        gazetteer = sum(file.compress_size for file in archive.infolist() if file.filename.endswith("places.dat"))
    assert only(package, "-setup.exe").stat().st_size - gazetteer < LIMIT


def start_portable(program, name="Start Skyvane Alerts.cmd"):
    subprocess.run(["wine", "cmd", "/c", stores.windows_path(program.folder / name)], cwd=program.folder, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_until(program.icon, "the icon")


def test_portable_in_a_read_only_and_a_writable_folder(package, tmp_path, make_program, feed, app_data_folder):
    with zipfile.ZipFile(only(package, ".zip")) as archive:
        archive.extractall(tmp_path / "stick")
    [folder] = (tmp_path / "stick").iterdir()
    program = make_program(folder=folder)
    unpacked, before = contents(folder), snapshot()

    for path in [folder, *folder.rglob("*")]:
        path.chmod(0o555)
    start_portable(program)
    answer_box("first time", "No")
    close(program)
    for path in [folder, *folder.rglob("*")]:
        path.chmod(0o755)
    # Also fails if such a folder can be written after all.
    assert contents(folder) == unpacked and not (folder / "Users").exists()

    feed.serve("66044", TORNADO)
    program.write_stations(LAWRENCE)
    program.store.write({"Hosts": {"Feed": feed.address}, "Options": {"RetrieveAlertsOnStartup": "True"}})
    start_portable(program)
    program.wait_for_picture("new alerts")
    assert [alert[0] for alert in program.store.alerts()] == ["101"]
    close(program)
    assert snapshot() == before and not app_data_folder.exists()
    assert (folder / "Users" / "Default" / "Sounds" / "Bell.wav").exists()


def test_drill(package, tmp_path, make_program, browser):
    with zipfile.ZipFile(only(package, ".zip")) as archive:
        archive.extractall(tmp_path / "stick")
    [folder] = (tmp_path / "stick").iterdir()
    program = make_program(folder=folder)
    program.store = stores.IniStore(folder / "Drill.ini")
    start_portable(program, "Start Drill.cmd")
    program.wait_for_picture("new alerts")
    assert [(title, code) for _, title, code, _ in program.store.alerts()] == [("TEST: Tornado Warning", "66044")]
    wait_until(program.balloons, "the balloon")
    assert (folder / "Sounds" / program.store.read("Options", "TrayAlertSound")).exists()
    choose(program, "TEST", alerts=["TEST"], stations=["Lawrence"])
    page = folder / "Users" / "Drill" / "Alerts.html"
    browser.wait_for(stores.windows_path(page))
    assert "THIS IS ONLY A TEST." in page.read_text(encoding="utf-8")
    close(program)
