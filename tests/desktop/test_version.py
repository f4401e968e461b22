"""The menu's check for a new version, with a local server as the maker's web site."""

import pytest

from dialog import message_boxes, wait_for_message_box
from harness import stays
from loopback import Held, Server, answer
from tray_menu import choose

FILE, PAGE = "/SVAlerts.txt", "/Skyvane-Alerts.asp"
LATEST = "You are using the latest version of Skyvane Alerts."


@pytest.fixture
def maker():
    """The maker's web site."""
    maker = Server({})
    yield maker
    maker.close()


@pytest.fixture
def checker(make_watcher, maker):
    """A running program that uses this web site."""
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


def test_offers_a_newer_version(checker, maker, browser):
    announced = None
    for body, version in [
        (b"1.0.2", None),
        (b"1.0.1\r\n", None),
        (b"not a number", None),
        (b"1.0.2222222222222222", None),
        (b"1.0.3", "1.0.3"),
        (b" 1.1.0\r\n", "1.1.0"),
        (b"9", None),  # the digits form one number: 9 < 102
        (b"1.0.10\n", "1.0.10"),
    ]:
        maker.answers[FILE] = answer(200, body)
        box = check(checker)
        expected = (offer_text(version), ["No", "Yes"]) if version else (LATEST, ["OK"])
        assert (box.text, sorted(box.buttons)) == expected, body
        announced = version or announced
        assert (checker.store.read("Options", "CheckVersion") or None) == announced
        assert left_files(checker) == []
        box.answer("No" if version else "OK")
    assert browser.opened() == []
    box = check(checker)  # the menu offers an announced version again
    assert box.text == offer_text("1.0.10")
    box.answer("Yes")
    browser.wait_for(maker.url("") + PAGE)
    assert set(maker.targets()) == {FILE}
    maker.close()
    assert check(checker).text == failure_text(maker)


@pytest.mark.parametrize("answers", [
    answer(200, b"1" * 21),
    answer(404, b"1.0.3"),
    answer(200, b"1.0.3", "Content-Length: 50"),
], ids=["21 characters", "404", "truncated"])
def test_reports_a_failure_and_recovers(checker, maker, answers):
    maker.answers[FILE] = answers
    box = check(checker)
    assert (box.text, sorted(box.buttons)) == (failure_text(maker), ["OK"])
    assert "chet.sk" in left_files(checker)
    box.answer("OK")
    assert not checker.store.read("Options", "CheckVersion")
    # The next checks may read the files of the failed one before the downloader replaces them.
    maker.answers[FILE] = answer(200, b"1.0.3")
    for _ in range(3):
        box = check(checker)
        if box.text != failure_text(maker):
            break
        box.answer("OK")
    assert box.text == offer_text("1.0.3")
    box.answer("No")


def test_second_check_while_one_is_running_does_nothing(checker, maker):
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
