"""The icon's popup menu, opened by a right click; its items are found by position.

Under Wine another process cannot read the items of a menu. Each test therefore passes the items that it
expects; it fails if the menu has another height, or if an item does something else.
"""

from harness import RIGHT, click, find_windows, wait_until

NO_ALERTS = ("(No Alerts Available)",)
FIXED = (None, "Retrieve Severe Alerts", "View National Severe Alerts", "View Weather", None, "Options", None,
         "About", "Help", "Check for New Version", None, "Visit Quillmark Software",
         "Support Quillmark Software", None, "Exit")
HELP = ("Support Forums", "Send Bug Report")
ADD_STATION = "Add New Station..."

# The addresses that the items open.
WEATHER = "https://www.weatherbug.com"
MAKER = "https://www.quillmark.example"
MAP = WEATHER + "/severe-weather/national-alert-map.html?zcode=z4172&country=US&country_name=USA"

# Pixels at 96 dpi. The height of an item depends on the system's fonts.
BORDER, SEPARATOR = 3, 9
ITEM_HEIGHTS = (16, 17)


def alert_page(code):
    return (f"{WEATHER}/Common/SearchResults.html?zcode=z4172&nav_section=45&lang_id=en-us"
            f"&is_search=true&loc={code}")


def station_page(code):
    return (f"{WEATHER}/Common/SearchResults.html?loc={code}&is_search=true&nav_section=1"
            f"&loc_country=WORLD&zcode=z4172")


def place_of(window, entries, caption):
    """Returns the screen position of an entry; None in `entries` is a separator."""
    separators = entries.count(None)
    items = window.bottom - window.top - 2 * BORDER - separators * SEPARATOR
    item, rest = divmod(items, len(entries) - separators)
    assert item in ITEM_HEIGHTS and not rest, "the menu has other items"
    heights = [SEPARATOR if entry is None else item for entry in entries]
    index = entries.index(caption)
    return window.left + 30, window.top + BORDER + sum(heights[:index]) + heights[index] // 2


def open_menus():
    return find_windows("#32768")


def open_menu(program):
    program.click_icon(RIGHT)
    return wait_until(open_menus, "the popup menu")[0]


def close_menu():
    click(600, 300)
    wait_until(lambda: not open_menus(), "the closing of the menu")


def choose(program, *path, alerts=NO_ALERTS, stations=()):
    """Opens the menu and clicks an item, or an item of a submenu. `alerts` and `stations` are the captions
    expected in the menu."""
    entries = tuple(alerts) + FIXED
    menu = open_menu(program)
    click(*place_of(menu, entries, path[0]))
    if len(path) > 1:
        submenu = wait_until(lambda: [other for other in open_menus() if other.top != menu.top or
                                      other.left != menu.left], "the submenu")[0]
        weather = (ADD_STATION, *([None, *stations] if stations else []))
        click(*place_of(submenu, HELP if path[0] == "Help" else weather, path[1]))
    wait_until(lambda: not open_menus(), "the closing of the menu")
