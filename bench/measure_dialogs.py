"""Opening and filling the dialogs."""

from report import compare
from stopwatch import run_bench


def measure_options(stopwatch, feed):
    """Opening the Options dialog with 500 stations and 200 filter words; the baseline has none of either."""
    times = run_bench("optionsBench")
    compare("Options with 500 stations, 200 words", times["500"], times["0"], "ms", 2)


def measure_search(stopwatch, feed):
    """Filling the list from an answer with 500 stations; the baseline only loads and reads the XML."""
    times = run_bench("searchBench")
    compare("list of 500 stations found", times["search"], times["xml"], "ms", 2)
