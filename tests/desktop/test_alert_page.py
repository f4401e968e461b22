"""The page with the alerts of all places, which the program writes and opens for a live source."""

import pytest
import stores
from feed import LAWRENCE
from harness import user_name, wait_until
from tray_menu import MAP, choose, station_page
from weather_service import alert, collection, vtec

MARKUP = "</style><script>document.title = 'hacked'</script><img src=x onerror=\"document.title = 'hacked'\">"
ODD = ("<b>Odd</b> & \"Co\"", "00000")  # no such ZIP code
PLACES = (LAWRENCE, ODD)
NAMES = [name for name, _ in PLACES]
HOSTILE = alert("urn:1", f"Tornado Warning {MARKUP}", description=f"* {MARKUP}\n* Second\n\nLast.\n" + "Long. " * 300)
NOT_COVERED = ["Place not covered"]


def start(program, service):
    program.store.write({"Hosts": {"Feed": service.feed}})
    program.start()
    program.wait_for_start()


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_the_chosen_place_comes_first_with_the_whole_text(make_watcher, service, opened, registry):
    service.alerts = collection(HOSTILE)
    program = make_watcher(*PLACES, registry=registry,
                           options={"RetrieveAlertsOnStartup": "True", "DisplayTrayAlert": "True"})
    user = user_name() if registry else "Default"
    start(program, service)
    program.wait_for_picture("new alerts")
    wait_until(program.balloons, "the balloon")
    alerts = ["Tornado", *NOT_COVERED]
    choose(program, "Tornado", alerts=alerts, stations=NAMES)
    page = opened(program, user, save_as="one-alert")
    assert page.index("<h2>Lawrence") < page.index("<h2>&lt;b&gt;Odd")
    assert "1 alert, the worst: Severe" in page and page.count("Long.") == 300 and "<li>Second</li>" in page
    choose(program, "View Weather", NAMES[1], alerts=alerts, stations=NAMES)
    page = opened(program, user)
    assert page.index("<h2>&lt;b&gt;Odd") < page.index("<h2>Lawrence")
    assert "No alerts" not in page and "Not known whether" in page


def test_page_says_no_alerts_only_after_a_successful_retrieval(make_watcher, service, opened):
    program = make_watcher(LAWRENCE)
    start(program, service)

    def view(save_as=None):
        choose(program, "View Weather", NAMES[0], stations=NAMES[:1])
        return opened(program, save_as=save_as)

    def retrieve():
        requests = len(service.alert_requests())
        program.tick(5)
        wait_until(lambda: len(service.alert_requests()) > requests, "the request")
        wait_until(lambda: not program.downloaders(), "the end of the download")
        assert program.answers()

    page = view()
    assert "No alerts" not in page and "Nothing was retrieved yet" in page
    retrieve()
    page = view(save_as="no-alerts")
    assert ">No alerts</span>" in page
    service.alerts = b"{}"
    retrieve()
    page = view()
    assert "No alerts" not in page and "The last retrieval failed." in page


def test_web_site_opens_when_the_page_cannot_be_written_or_a_site_is_set(make_watcher, service, browser):
    program = make_watcher(LAWRENCE)
    (program.data_folder() / "Alerts.html").mkdir()
    start(program, service)
    choose(program, "View Weather", NAMES[0], stations=NAMES[:1])
    browser.wait_for("https://forecast.weather.gov/zipcity.php?inputstring=66044")
    choose(program, "View National Severe Alerts", stations=NAMES[:1])
    browser.wait_for("https://alerts.weather.gov/")
    program.store.write({"Hosts": {"Weather": "https://www.weatherbug.com"}})
    choose(program, "View Weather", NAMES[0], stations=NAMES[:1])
    browser.wait_for(station_page("66044"))
    choose(program, "View National Severe Alerts", stations=NAMES[:1])
    browser.wait_for(MAP + "&zip=66044")


@pytest.fixture
def no_page_program(browser):
    """No program is registered for web pages in files."""
    key = r"HKEY_LOCAL_MACHINE\Software\Classes\.html"
    before = stores.export_registry(key)
    stores.delete_registry(key)
    yield
    stores.import_registry(before)


def test_web_site_opens_when_no_program_opens_the_page(make_watcher, service, browser, no_page_program):
    program = make_watcher(LAWRENCE)
    start(program, service)
    choose(program, "View Weather", NAMES[0], stations=NAMES[:1])
    browser.wait_for("https://forecast.weather.gov/zipcity.php?inputstring=66044")
    assert program.answers() and (program.data_folder() / "Alerts.html").exists()


def test_sixty_alerts(make_watcher, service, opened):
    severities = ("Minor", "Extreme", "Moderate", "Severe", "Unknown")
    service.alerts = collection(*(alert(f"urn:{n}", "Wind Warning", severity=severities[n % 5],
                                        vtec=vtec("NEW", f"KTOP.HW.W.{n:04}"),
                                        description="* WHAT...Rain.\n* WHERE...Here.\n\n" + "Text. " * 300)
                                  for n in range(60)))
    program = make_watcher(LAWRENCE, options={"RetrieveAlertsOnStartup": "True"})
    start(program, service)
    program.wait_for_picture("new alerts")
    choose(program, "View Weather", NAMES[0], alerts=["Wind"], stations=NAMES[:1])
    page = opened(program, save_as="sixty-alerts")
    assert "60 alerts, the worst: Extreme" in page and page.count("<article") == 60
