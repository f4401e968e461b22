"""Opening and filling the dialogs."""

from report import compare
from stopwatch import run_bench


def measure_options(stopwatch, feed):
    """Opening the Options dialog with 500 stations and 200 filter words, against none of either."""
    times = run_bench("optionsBench")
    compare("Options with 500 stations, 200 words", times["500"], times["0"], "ms", 2)


def measure_search(stopwatch, feed):
    """From an answer of 500 stations to the filled list, against the XML library's loading and walking."""
    times = run_bench("searchBench")
    compare("list of 500 stations found", times["search"], times["xml"], "ms", 2)
