"""The lines of the table: what is measured, by which program, and what is aimed at."""
import dataclasses

from aims import AtMost, Beside, Difference, Linear, PlusLimit, Under

BIN = 'build/release/bin'


@dataclasses.dataclass
class Line:
    name: str
    title: str
    program: str
    how: str  # what the figures are
    aims: list
    targets: tuple = ()  # of the build, beside the program itself
    note: str = ''  # on an aim that is missed: what was measured and tried
    times: int = 1  # as many rounds as another line

    def __post_init__(self):
        if not self.targets:
            self.targets = (self.program,)

    def command(self, rounds):
        program = f'{BIN}/{self.program}' if self.program in self.targets else f'bench/{self.program}'
        return [program, str(rounds * self.times), self.name]


LINES = [
    Line('small', '1,000 files of 30 KB over HTTP', 'bench_fetch',
         'A run of the main dialog with its progress window, from the press of Download Now to its end. The peers: '
         '`wget -q --no-proxy -i LIST -P FOLDER`, `curl -s --http1.0 --noproxy "*" --create-dirs -K LIST`, '
         '`aria2c -q --no-conf -j1 -x1 -i LIST -d FOLDER`, from the same server. Without a window it is the fetch loop alone.',
         [Beside(('wget', 'curl', 'aria2c'), 1.0), Beside(('wget', 'curl', 'aria2c'), None, 'without a window')],
         note='An item makes fewer system calls than with `wget`, and without a window the run takes as long. With one, the '
              'worker waits in each item until the window has its texts, behind a paint that may be going on: that is the '
              'difference. Profiles showed the window painting for each posted percent, 3,400 times in a run; it paints '
              '30 times a second at most now. The walk over the page and the history, which no peer has, are not seen in them. '
              'Four whole runs of `bench/run` on this machine gave 1.11, 1.21, 1.02 and 1.11.',
         times=2),
    Line('copies', '2,000 images that the browser holds', 'bench_browser',
         'The fetch loop over images of 10 KB, each from the browser into a file. The peer calls '
         '`Page.getResourceContent` for one after the other over a blocking socket, and drops the replies. The loop asks for '
         'up to 8 images ahead, in the order of its list. A peer changed to do so took 0.34 of its time (3 rounds), with 4 '
         'requests on their way 0.51, with 2 0.93, with 32 0.30.',
         [Beside(('bare loop',), 1.1), AtMost('requests at the server', 0)],
         note='An image becomes two files, the private copy and the one in the save folder, and the peer makes none.'),
    Line('big', 'one file of 500 MB over HTTP', 'bench_fetch',
         'The same run and the same `curl`. The memory is that of the whole process, which may hold the body and 64 MB.',
         [Beside(('curl',), 1.1), AtMost('peak memory', 500 + 64, ' MB')],
         times=2),
    Line('harvest', 'a page with 20,000 images and 20,000 links', 'bench_browser',
         'The walk of a run over the page, as far as the list of addresses. The peer is one `Runtime.evaluate` of both '
         'collections over a blocking socket, whose reply is dropped.',
         [Beside(('bare evaluate',), 1.5)]),
    Line('sleepers', '100 open pages, 5 of them asleep', 'bench_browser',
         'The list of the pages and the walk over all of them, over a new connection and over the same one again. The '
         'peer is the same without the 5. They are put to sleep by the browser itself, on its page chrome://discards.',
         [PlusLimit('asleep, first', 'awake, first', 1.2, 5), Beside(('awake, again',), 1.2, 'asleep, again')]),
    Line('xml', '20 MB of XML, parsed and walked', 'bench_xml',
         'A history as one document; every reader copies the same values.',
         [Beside(('tinyxml2',), 1.0), Beside(('pugixml',), None)]),
    Line('xml-building', 'XML, built in order', 'bench_xml', 'Elements in records of ten.', [Linear('elements', None)]),
    Line('history', '`LoadAll` of a history', 'bench_history', 'Pages with 3 files each, in 365 day files.',
         [Linear('pages', 1.3)]),
    Line('marks', '`MarkFileDone` in a history', 'bench_history', 'The marking of every file of 100 pages.',
         [Linear('files', None)]),
    Line('history-window', 'opening the history window', 'bench_history_window',
         'From the making of the window to a list that answers; pages with 3 files each, in 365 days.',
         [Linear('pages', 1.3, to='smallest'), Under('pages', 1)]),
    Line('page-of-files', 'a page in the history window', 'bench_history_window',
         'From the key that goes to the page to the list of its files, all of which are on the disk.',
         [Linear('files', 1.3, to='smallest'), Under('files', 1)]),
    Line('start', 'start to the first painted window', 'start',
         'From the start of the process to the end of the first painting, off-screen; with a browser, it shows 10 pages. '
         'The peer, `bench_bare_window`, shows an empty window.',
         [Difference('vantroy', 'bare window', 0.06), Difference('with a browser', 'bare window', 0.06)],
         note='The start takes 33 ms of processor time, the bare window 12 ms; the difference is fonts, which the bare '
              'window does not draw, the libraries, and with a browser the look at its pages, which the list waits for.',
         targets=('vantroy', 'bench_bare_window', 'bench_first_paint'), times=2),
    Line('progress', 'progress on and off, one file of 300 MB', 'bench_fetch',
         'The fetch loop with the progress window on show, and without one. Four whole runs of `bench/run` on this machine '
         'gave 1.13, 1.12, 1.04 and 1.12: single rounds differ by more than the aim allows, in both directions.',
         [Beside(('off',), 1.05, 'on')], times=4,
         note='The window costs a stored word for each block of 4 KB and a posted message for each percent, and paints 30 '
              'times a second at most; on few processors it paints in the time of worker and server. Profiles show 1.3 % of '
              'the worker in telling the position; the rest is the thread of the window, which has 20 ms of processor time '
              'in such a run for its paints and for the texts of each percent.'),
]
