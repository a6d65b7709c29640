"""The table, and bench/RESULTS.md around it."""
import chart
from aims import Linear

VERDICTS = {True: 'yes', False: '**no**', None: ''}
HEAD = ('| Line | | Vantroy | Peer | Ratio, median (spread) | Aim | Met |\n'
        '|---|---|---|---|---|---|---|\n')


def _rows(line, found):
    return [row for aim in line.aims for row in aim.rows(found)]


def table(measured):
    text = HEAD
    for line, found in measured:
        if not found:
            text += f'| {line.title} | | could not be measured | | | | **no** |\n'
            continue
        for row in _rows(line, found):
            text += (f'| {line.title} | {row.what} | {row.own} | {row.peer} | {row.ratio} | {row.aim} | '
                     f'{VERDICTS[row.met]} |\n')
    return text


def _things(line):
    return next((aim.things for aim in line.aims if isinstance(aim, Linear)), None)


def _picture(line, found):
    points = []
    for size in found.sizes('vantroy'):
        rounds = found.rounds('vantroy', size)
        points.append((size, found.median('vantroy', size), min(rounds), max(rounds)))
    return chart.growth(line.title.replace('`', ''), _things(line), points)


def _missed(line, found):
    return not found or any(row.met is False for row in _rows(line, found))


def _section(line, found, rounds):
    text = f'\n### {line.title}\n\n{line.how}\n\n    {" ".join(line.command(rounds))}\n'
    if found and _things(line):
        text += f'\n![{line.title}]({line.name}.svg)\n'
    if _missed(line, found):
        text += f'\nThe aim is missed. {line.note}\n'
    return text


def write(folder, measured, rounds, machine):
    """`machine`: rows of (name, value), what the figures were taken on."""
    text = ('# Results\n\nWritten by `bench/run`. Every figure is the median of several rounds; ours and those of the '
            'peers were taken in turn, and\na ratio is that of two figures of the same round. Times of lines with sizes '
            'are compared for each page, file or element.\n\n| Machine | |\n|---|---|\n')
    text += ''.join(f'| {name} | {value} |\n' for name, value in machine)
    text += f'\n{table(measured)}\n## How each figure is taken\n'
    for line, found in measured:
        text += _section(line, found, rounds)
        if found and _things(line):
            (folder / f'{line.name}.svg').write_text(_picture(line, found))
    (folder / 'RESULTS.md').write_text(text)
