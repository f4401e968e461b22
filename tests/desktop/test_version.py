"""The menu's check for a new version, against a maker's web site of the test's."""

import pytest

from dialog import message_boxes, wait_for_message_box
from harness import stays
from loopback import Held, Server, answer, redirect
from tray_menu import choose

FILE, PAGE = "/SVAlerts.txt", "/Skyvane-Alerts.asp"
LATEST = "You are using the latest version of Skyvane Alerts."


class Maker(Server):
    """The maker's web site."""

    def offer(self, body):
        self.answers[FILE] = answer(200, body)


@pytest.fixture
def maker():
    maker = Maker({})
    yield maker
    maker.close()


@pytest.fixture
def checker(make_watcher, maker):
    """A running program that asks this maker."""
    program = make_watcher()
    program.store.write({"Hosts": {"Maker": maker.url("")}})
    program.start()
    return program


def check(program):
    choose(program, "Check for New Version")
    return wait_for_message_box()


def offer_text(version):
    return f"Skyvane Alerts v{version} is available!  Would you like to download it now?"


def failure_text(maker):
    return ("The attempt to check for an updated version of Skyvane Alerts failed!\r\n\r\n"
            f"Please visit {maker.url('')} to check for a new version.")


def left_files(program):
    return sorted(file.name for file in program.folder.glob("che*.sk"))


def test_offers_what_is_newer(checker, maker, browser):
    announced = None
    for body, version in [
        (b"1.0.2", None),
        (b"1.0.1\r\n", None),
        (b"not a number", None),
        (b"1.0.2222222222222222", None),
        (b"1.0.3", "1.0.3"),
        (b" 1.1.0\r\n", "1.1.0"),
        (b"9", None),  # one digit is less than three, whatever it says
        (b"1.0.10\n", "1.0.10"),
    ]:
        maker.offer(body)
        box = check(checker)
        expected = (offer_text(version), ["No", "Yes"]) if version else (LATEST, ["OK"])
        assert (box.text, sorted(box.buttons)) == expected, body
        announced = version or announced
        assert (checker.store.read("Options", "CheckVersion") or None) == announced
        assert left_files(checker) == []
        box.answer("No" if version else "OK")
    assert browser.opened() == []
    box = check(checker)  # what was announced is offered again to a person who asks
    assert box.text == offer_text("1.0.10")
    box.answer("Yes")
    browser.wait_for(maker.url("") + PAGE)
    assert set(maker.targets()) == {FILE}
    maker.close()
    assert check(checker).text == failure_text(maker)


@pytest.mark.parametrize("answers", [
    answer(200, b"1" * 21),
    answer(200, b"<html><body>Our site is being mended.</body></html>"),
    answer(404, b"1.0.3"),
    answer(200),
    answer(200, b"1.0.3", "Content-Length: 50"),
    redirect("/elsewhere"),
], ids=["21 characters", "page", "404", "empty", "cut off", "redirected to nothing"])
def test_tells_of_a_failure_and_recovers(checker, maker, answers):
    maker.answers.update({FILE: answers, "/elsewhere": answer(404)})
    box = check(checker)
    assert (box.text, sorted(box.buttons)) == (failure_text(maker), ["OK"])
    assert "chet.sk" in left_files(checker)
    box.answer("OK")
    assert not checker.store.read("Options", "CheckVersion")
    # The next check may find what the failure has left before the downloader has renewed it. That
    # wears off.
    maker.offer(b"1.0.3")
    for _ in range(3):
        box = check(checker)
        if box.text != failure_text(maker):
            break
        box.answer("OK")
    assert box.text == offer_text("1.0.3")
    box.answer("No")


def test_program_folder_that_cannot_be_written(checker, maker):
    maker.offer(b"1.0.3")
    checker.folder.chmod(0o555)
    try:
        for _ in range(2):
            box = check(checker)
            assert box.text == failure_text(maker)
            box.answer("OK")
    finally:
        checker.folder.chmod(0o755)
    assert left_files(checker) == []


def test_another_check_waits_for_nothing(checker, maker):
    """While the answer is on its way a second wish does nothing, and the program lives on."""
    held = maker.answers[FILE] = Held(answer(200, b"1.0.3"))
    choose(checker, "Check for New Version")
    assert held.asked.wait(15)
    choose(checker, "Check for New Version")
    assert stays(lambda: not message_boxes() and checker.answers(), 0.5)
    assert maker.targets() == [FILE]
    held.gate.set()
    box = wait_for_message_box()
    assert box.text == offer_text("1.0.3")
    box.answer("No")
    assert stays(lambda: not message_boxes(), 0.5)
