"""A growth curve as SVG, on two logarithmic axes, in the colours of a light or a dark page."""
import math

WIDTH, HEIGHT = 560, 340
LEFT, RIGHT, TOP, BOTTOM = 76, 44, 44, 56

STYLE = '''
  text { font: 12px sans-serif; fill: #333 }
  .title { font-size: 14px; font-weight: bold }
  .grid { stroke: #ccc; fill: none }
  .curve { stroke: #0b62c4; stroke-width: 2; fill: none }
  .point { fill: #0b62c4 }
  .linear { stroke: #777; stroke-dasharray: 5 4; fill: none }
  @media (prefers-color-scheme: dark) {
    text { fill: #ddd }
    .grid { stroke: #444 }
    .curve { stroke: #6cb0ff }
    .point { fill: #6cb0ff }
    .linear { stroke: #aaa }
  }
'''


class Axis:
    """Values between whole powers of ten, as places between two pixels."""

    def __init__(self, values, start, end):
        self.low = math.floor(math.log10(min(values)))
        self.high = max(math.ceil(math.log10(max(values))), self.low + 1)
        self._start, self._end = start, end

    def place(self, value):
        part = (math.log10(value) - self.low) / (self.high - self.low)
        return round(self._start + part * (self._end - self._start), 1)

    def ticks(self):
        return [10.0 ** power for power in range(self.low, self.high + 1)]


def _time(seconds):
    unit, scale = next((unit for unit in (('s', 1), ('ms', 1e3)) if seconds * unit[1] >= 0.999), ('µs', 1e6))
    return f'{seconds * scale:,.0f} {unit}'


def _grid(x, y):
    parts = []
    for tick in x.ticks():
        at = x.place(tick)
        parts += [f'<path class="grid" d="M{at},{TOP}V{HEIGHT - BOTTOM}"/>',
                  f'<text x="{at}" y="{HEIGHT - BOTTOM + 18}" text-anchor="middle">{tick:,.0f}</text>']
    for tick in y.ticks():
        at = y.place(tick)
        parts += [f'<path class="grid" d="M{LEFT},{at}H{WIDTH - RIGHT}"/>',
                  f'<text x="{LEFT - 8}" y="{at + 4}" text-anchor="end">{_time(tick)}</text>']
    return parts


def growth(title, things, points):
    """`points`: (size, median, least, most) by size, times in seconds. The dashed line is linear growth from the first."""
    first_size, first_time = points[0][:2]
    linear = [(size, first_time * size / first_size) for size, *_ in points]
    x = Axis([point[0] for point in points], LEFT, WIDTH - RIGHT)
    y = Axis([time for point in points for time in point[1:]] + [time for _, time in linear], HEIGHT - BOTTOM, TOP)

    def path(pairs):
        return 'M' + 'L'.join(f'{x.place(size)},{y.place(time)}' for size, time in pairs)

    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" height="{HEIGHT}">',
             f'<style>{STYLE}</style>', f'<title>{title}</title>',
             f'<text class="title" x="{LEFT}" y="24">{title}</text>', *_grid(x, y),
             f'<path class="linear" d="{path(linear)}"/>',
             f'<path class="curve" d="{path([point[:2] for point in points])}"/>']
    for size, median, least, most in points:
        parts += [f'<path class="curve" d="M{x.place(size)},{y.place(least)}V{y.place(most)}"/>',
                  f'<circle class="point" cx="{x.place(size)}" cy="{y.place(median)}" r="4"/>']
    parts += [f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 14}" text-anchor="middle">{things}</text>',
              f'<text transform="translate(16,{(TOP + HEIGHT - BOTTOM) / 2}) rotate(-90)" text-anchor="middle">time, '
              'median and spread; dashed: linear</text>', '</svg>']
    return '\n'.join(parts) + '\n'
