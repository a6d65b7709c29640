"""What the programs print, "line<tab>series<tab>size<tab>value", and what follows from it. The rounds of a series stand in
the order in which they were measured, and so the rounds of two series beside each other.
"""
import statistics


class Records:
    def __init__(self, values):
        self._values = values

    def __bool__(self):
        return bool(self._values)

    def rounds(self, series, size=0):
        return self._values[series, size]

    def sizes(self, series):
        return sorted(size for name, size in self._values if name == series)

    def median(self, series, size=0):
        return statistics.median(self.rounds(series, size))

    def fastest(self, names):
        return min(names, key=self.median)


def parse(text):
    values = {}
    for row in text.splitlines():
        _, series, size, value = row.split('\t')
        values.setdefault((series, int(size)), []).append(float(value))
    return Records(values)


class Ratio:
    """Of two series, round by round: noise that slows a whole round down falls out."""

    def __init__(self, ours, theirs, scale=1.0):
        self._each = [scale * own / peer for own, peer in zip(ours, theirs)]

    @property
    def median(self):
        return statistics.median(self._each)

    def __str__(self):
        return f'{self.median:.2f} ({min(self._each):.2f}–{max(self._each):.2f})'


def seconds(value):
    if value < 0.001:
        return f'{value * 1e6:.0f} µs'
    if value < 1:
        return f'{value * 1000:.3g} ms'
    return f'{value:.2f} s'
