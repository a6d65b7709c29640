"""The kinds of aim. Each makes rows of the table from the records of a line: what is compared, our figure, the peer's,
the ratio, the aim, and whether it is met (None where there is no aim).
"""
import dataclasses
import statistics

from records import Ratio, seconds


@dataclasses.dataclass
class Row:
    what: str
    own: str
    peer: str
    ratio: str
    aim: str
    met: bool | None


@dataclasses.dataclass
class Beside:
    """Our time to that of the fastest of the peers."""
    peers: tuple
    most: float | None
    own: str = 'vantroy'

    def rows(self, found):
        peer = found.fastest(self.peers)
        ratio = Ratio(found.rounds(self.own), found.rounds(peer))
        own = '' if self.own == 'vantroy' else self.own
        if self.most is None:
            return [Row(own, seconds(found.median(self.own)), _named(found, peer), str(ratio), '', None)]
        of = ' of the fastest' if len(self.peers) > 1 else ''
        peers = ', '.join(_named(found, name) for name in sorted(self.peers, key=found.median))
        return [Row(own, seconds(found.median(self.own)), peers, str(ratio), f'≤ {self.most}{of}',
                    ratio.median <= self.most)]


@dataclasses.dataclass
class PlusLimit:
    """Our time to so many times that of the peer and a wait of so many seconds."""
    own: str
    peer: str
    most: float
    wait: float

    def rows(self, found):
        ratio = Ratio([own - self.wait for own in found.rounds(self.own)], found.rounds(self.peer))
        return [Row(self.own, seconds(found.median(self.own)), _named(found, self.peer),
                    f'{ratio} beside the {self.wait:g} s', f'≤ {self.most} plus {self.wait:g} s',
                    ratio.median <= self.most)]


@dataclasses.dataclass
class Difference:
    """So many seconds more than the peer at most."""
    own: str
    peer: str
    most: float

    def rows(self, found):
        each = [own - peer for own, peer in zip(found.rounds(self.own), found.rounds(self.peer))]
        median = statistics.median(each)
        spread = f'{min(each) * 1000:+.0f}–{max(each) * 1000:+.0f}'
        return [Row('' if self.own == 'vantroy' else self.own, seconds(found.median(self.own)), _named(found, self.peer),
                    f'{median * 1000:+.0f} ms ({spread})', f'≤ +{self.most * 1000:.0f} ms', median <= self.most)]


@dataclasses.dataclass
class AtMost:
    """A figure with a limit of its own, in every round."""
    series: str
    most: float
    unit: str = ''

    def rows(self, found):
        worst = max(found.rounds(self.series))
        return [Row(self.series, f'{worst:.0f}{self.unit}', '', '', f'≤ {self.most:g}{self.unit}', worst <= self.most)]


@dataclasses.dataclass
class Linear:
    """The time for each thing, to that at the size before, or that of the largest to that of the smallest."""
    things: str
    most: float | None
    to: str = 'before'

    def rows(self, found):
        sizes = found.sizes('vantroy')
        pairs = [(sizes[-1], sizes[0])] if self.to == 'smallest' else zip(sizes[1:], sizes)
        return [self._row(found, *pair) for pair in pairs]

    def _row(self, found, size, before):
        ratio = Ratio(found.rounds('vantroy', size), found.rounds('vantroy', before), before / size)
        return Row(f'{size:,} {self.things}', seconds(found.median('vantroy', size)),
                   f'{before:,}: {seconds(found.median("vantroy", before))}', f'{ratio} for each',
                   f'linear within {self.most}' if self.most else '', ratio.median <= self.most if self.most else None)


@dataclasses.dataclass
class Under:
    """A time in seconds at the largest size."""
    things: str
    most: float

    def rows(self, found):
        size = found.sizes('vantroy')[-1]
        time = found.median('vantroy', size)
        return [Row(f'{size:,} {self.things}', seconds(time), '', '', f'< {self.most:g} s', time < self.most)]


def _named(found, series):
    return f'{series}: {seconds(found.median(series))}'
