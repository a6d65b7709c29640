"""The stage that the program is shown on: the demo pages, a browser of its own on them, a virtual screen, and the hands
of a user. Shared by ./run, scripts/pictures and tests/e2e. Everything that is started here is a context manager and
goes away with its block.
"""
import base64
import contextlib
import importlib.machinery
import importlib.util
import json
import os
import pathlib
import shutil
import signal
import socket
import struct
import subprocess
import tempfile
import threading
import time
import urllib.error
import urllib.request

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = ROOT / 'build/release/bin/vantroy'

# Nothing here is for a proxy to see: all that is started and asked listens on this machine.
os.environ['no_proxy'] = os.environ['NO_PROXY'] = ','.join(
    filter(None, [os.environ.get('no_proxy') or os.environ.get('NO_PROXY'), '127.0.0.1']))


class StageError(Exception):
    """What should have come on show and did not."""


def wait_for(condition, what, seconds=30):
    """The first true value of condition(), polled."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise StageError(f'waited {seconds} s in vain for {what}')
        time.sleep(0.05)


@contextlib.contextmanager
def process(command, **options):
    """A process in a group of its own, which is ended whole."""
    child = subprocess.Popen(command, start_new_session=True, stdin=subprocess.DEVNULL, **options)
    try:
        yield child
    finally:
        for sign, patience in ((signal.SIGTERM, 5), (signal.SIGKILL, 5)):
            with contextlib.suppress(ProcessLookupError):
                os.killpg(child.pid, sign)
            with contextlib.suppress(subprocess.TimeoutExpired):
                child.wait(patience)
                break


# The demo's pages

def demo_module():
    loader = importlib.machinery.SourceFileLoader('serve', str(ROOT / 'demo/serve'))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader('serve', loader))
    loader.exec_module(module)
    return module


class DemoServer(contextlib.AbstractContextManager):
    """The demo pages, on a free port unless one is named; `log` is the file that gets a line for each request."""

    def __init__(self, log=None, port=0):
        serve = demo_module()
        self._server = serve.server(port, log, self.handler(serve))
        self.port = self._server.server_port
        self.pages = [f'http://127.0.0.1:{self.port}{page}' for page in serve.PAGES]
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def handler(self, serve):
        return serve.Handler

    def __exit__(self, *_):
        self._server.shutdown()
        self._server.server_close()


# The browser

KNOWN_BROWSERS = ['chromium', 'google-chrome', 'BraveSoftware/Brave-Browser', 'vivaldi', 'microsoft-edge']


def active_port(folder):
    """The port that the browser of a data folder says it listens on; None if it has said nothing."""
    try:
        return int((pathlib.Path(folder) / 'DevToolsActivePort').read_text().split('\n')[0])
    except (OSError, ValueError):
        return None


def answers(port):
    try:
        urllib.request.urlopen(f'http://127.0.0.1:{port}/json/version', timeout=3).close()
        return True
    except urllib.error.HTTPError as error:
        return error.code == 404  # open after the user's approval
    except OSError:
        return False


def browser_reachable():
    """Whether Vantroy will find a browser without help. The port's file outlives its browser, so the port is tried."""
    if os.environ.get('VANTROY_BROWSER'):
        return True
    home = pathlib.Path.home()
    parents = [pathlib.Path(os.environ.get('XDG_CONFIG_HOME') or home / '.config'), *home.glob('.var/app/*/config')]
    folders = [parent / name for parent in parents for name in KNOWN_BROWSERS] + [home / 'snap/chromium/common/chromium']
    ports = filter(None, map(active_port, folders))
    return any(map(answers, ports)) or any(map(listens, firefox_ports(home)))


def firefox_ports(home):
    """The ports that the profiles of Firefox tell of, be it open still or not."""
    data = pathlib.Path(os.environ.get('XDG_DATA_HOME') or home / '.local/share')
    roots = [data / 'vantroy', *(home / root / '.mozilla/firefox'
                                 for root in ('', 'snap/firefox/common', '.var/app/org.mozilla.firefox'))]
    for file in (file for root in roots for file in root.glob('*/WebDriverBiDiServer.json')):
        with contextlib.suppress(OSError, ValueError, KeyError, TypeError):
            yield int(json.loads(file.read_text())['ws_port'])


def listens(port):
    with contextlib.suppress(OSError, OverflowError):
        socket.create_connection(('127.0.0.1', port), timeout=3).close()
        return True
    return False


class DevTools(contextlib.AbstractContextManager):
    """A WebSocket to a browser or to one of its pages."""

    def __init__(self, socket_url):
        host, port = socket_url.split('/')[2].split(':')
        self._link = socket.create_connection((host, int(port)), timeout=10)
        self._stream = self._link.makefile('rwb')
        key = base64.b64encode(os.urandom(16)).decode()
        path = '/' + socket_url.split('/', 3)[3]
        self._stream.write(f'GET {path} HTTP/1.1\r\nHost: {host}:{port}\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n'
                           f'Sec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n\r\n'.encode())
        self._stream.flush()
        while self._stream.readline() not in (b'\r\n', b''):
            pass

    def __exit__(self, *_):
        self._stream.close()
        self._link.close()

    def send(self, method, **parameters):
        """Sends a request, whether or not an answer will come."""
        message = json.dumps({'id': 1, 'method': method, 'params': parameters}).encode()
        # The mask of a client's frame may be anything, zero too, which leaves the payload as it is.
        self._stream.write(struct.pack('>BBH', 0x81, 0x80 | 126, len(message)) + bytes(4) + message)
        self._stream.flush()

    def call(self, method, **parameters):
        """The result of a request."""
        self.send(method, **parameters)
        while True:
            reply = json.loads(self._frame())
            if 'error' in reply:
                raise StageError(f'{method}: {reply["error"]}')
            if 'result' in reply:
                return reply['result']

    def _frame(self):
        size = self._stream.read(2)[1]
        for code, kind in ((126, '>H'), (127, '>Q')):
            if size == code:
                size, = struct.unpack(kind, self._stream.read(struct.calcsize(kind)))
                break
        return self._stream.read(size)


def evaluate(socket_url, expression):
    """The value of a short expression in a page."""
    with DevTools(socket_url) as page:
        return page.call('Runtime.evaluate', expression=expression)['result'].get('value')


def targets(port):
    """What a browser lists as its pages, and more."""
    with urllib.request.urlopen(f'http://127.0.0.1:{port}/json/list', timeout=10) as answer:
        return json.load(answer)


def loaded(port, wanted):
    """Whether a browser shows all these pages, complete."""
    pages = [page for page in targets(port) if page['type'] == 'page' and page['url'] in wanted]
    # A new tab is listed with its address while it still shows its first, empty document.
    return len(pages) == len(wanted) and all(
        evaluate(page['webSocketDebuggerUrl'], 'document.readyState == "complete" && location.href') == page['url']
        for page in pages)


class Browser(contextlib.AbstractContextManager):
    """A Chromium with a random port, on the given pages; its data folder is a fresh one unless it is named."""

    def __init__(self, pages, headless=True, environment=None, folder=None):
        self._stack = contextlib.ExitStack()
        with self._stack:
            self.folder = folder or self._stack.enter_context(tempfile.TemporaryDirectory(
                prefix='vantroy-demo-browser-', ignore_cleanup_errors=True))
            command = [shutil.which('chromium') or shutil.which('google-chrome-stable') or 'chromium',
                       f'--user-data-dir={self.folder}', '--remote-debugging-port=0', '--no-first-run',
                       '--no-default-browser-check', '--password-store=basic', '--disable-quic', '--disable-sync',
                       '--disable-background-networking', '--disable-component-update']
            command += ['--headless', '--disable-gpu'] if headless else ['--window-size=1100,860']
            command += ['--no-sandbox'] if os.geteuid() == 0 else []
            browser = self._stack.enter_context(process([*command, pages[0]], env=environment,
                                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
            self.process = browser
            self.port = wait_for(lambda: browser.poll() is not None or active_port(self.folder), 'the browser to start')
            if browser.poll() is not None:
                raise StageError(f'the browser left at once with status {browser.returncode}: {" ".join(command)}')
            self.endpoint = f'http://127.0.0.1:{self.port}'
            for page in pages[1:]:
                self.open(page)
            wait_for(lambda: loaded(self.port, pages), 'the pages to load', 60)
            self._stack = self._stack.pop_all()

    def __exit__(self, *_):
        self._stack.close()

    def open(self, page):
        """A new tab in front of the others."""
        request = urllib.request.Request(f'{self.endpoint}/json/new?{page}', method='PUT')
        urllib.request.urlopen(request, timeout=10).close()


class Firefox(contextlib.AbstractContextManager):
    """A headless Firefox, as vantroy-browser starts it for a home of its own, on the given pages."""

    def __init__(self, pages):
        self._stack = contextlib.ExitStack()
        with self._stack:
            home = self._stack.enter_context(tempfile.TemporaryDirectory(
                prefix='vantroy-demo-firefox-', ignore_cleanup_errors=True))
            self.folder = f'{home}/vantroy/firefox'
            environment = os.environ | {'HOME': home, 'XDG_DATA_HOME': home, 'MOZ_HEADLESS': '1'}
            browser = self._stack.enter_context(process(
                [ROOT / 'scripts/vantroy-browser', '--firefox', *pages], env=environment, stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL))
            server = pathlib.Path(self.folder, 'WebDriverBiDiServer.json')
            wait_for(lambda: browser.poll() is not None or server.exists() and server.read_text().endswith('}'),
                     'Firefox to start')
            if browser.poll() is not None:
                raise StageError(f'Firefox left at once with status {browser.returncode}')
            self._stack = self._stack.pop_all()

    def __exit__(self, *_):
        self._stack.close()


# The screen and the user before it

class Screen(contextlib.AbstractContextManager):
    """A virtual screen with a window manager; `environment` puts a program on it."""

    def __init__(self, size='1280x900'):
        self._stack = contextlib.ExitStack()
        with self._stack:
            reader, writer = os.pipe()
            self._stack.enter_context(process(
                ['Xvfb', '-displayfd', str(writer), '-screen', '0', f'{size}x24', '-nolisten', 'tcp', '-noreset'],
                pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
            os.close(writer)
            with open(reader) as number:
                display = number.readline().strip()
            if not display:
                raise StageError('the virtual screen did not start')
            runtime = self._stack.enter_context(tempfile.TemporaryDirectory(prefix='vantroy-screen-'))
            self.environment = {name: value for name, value in os.environ.items()
                                if name not in ('WAYLAND_DISPLAY', 'QT_QPA_PLATFORM', 'VANTROY_DESKTOP')}
            self.environment.update(DISPLAY=f':{display}', XDG_RUNTIME_DIR=runtime)
            self._stack.enter_context(process(['openbox'], env=self.environment, stdout=subprocess.DEVNULL,
                                              stderr=subprocess.DEVNULL))
            wait_for(lambda: self.xdotool('get_num_desktops'), 'the window manager')
            self._stack = self._stack.pop_all()

    def __exit__(self, *_):
        self._stack.close()

    def xdotool(self, *arguments):
        """What the command prints; nothing if it fails."""
        done = subprocess.run(['xdotool', *arguments], env=self.environment, capture_output=True, text=True)
        return done.stdout.strip() if done.returncode == 0 else ''

    def windows(self):
        """(number, title) of the windows on show."""
        numbers = self.xdotool('search', '--onlyvisible', '--name', '.').split()
        return [(number, self.xdotool('getwindowname', number)) for number in numbers]

    def find(self, title):
        return next((number for number, name in self.windows() if name == title), None)

    def window(self, title, seconds=30):
        try:
            return wait_for(lambda: self.find(title), f'a window "{title}"', seconds)
        except StageError as error:
            raise StageError(f'{error}; on show: {[name for _, name in self.windows()]}') from None

    def activate(self, title):
        self.xdotool('windowactivate', '--sync', self.window(title))

    def wait_until_active(self, title, besides=None):
        """Leaves the choice to the window manager; `besides` is the number of a window that does not count."""
        def active():
            number = self.xdotool('getactivewindow')
            return number != besides and self.xdotool('getwindowname', number) == title
        wait_for(active, f'the window "{title}" to be the active one')

    def press(self, title, keys):
        """Keys as xdotool names them, to the window with a title."""
        self.activate(title)
        self.xdotool('key', '--clearmodifiers', keys)

    def leave(self, title, keys, seconds=30):
        """Keys that close the window."""
        self.press(title, keys)
        wait_for(lambda: not self.find(title), f'the window "{title}" to close', seconds)


MAIN_WINDOW = 'Vantroy'
RUN_ENDED = 'Download complete!'


def leave_program(screen, program):
    """Exit from the main window; the program's status."""
    screen.press(MAIN_WINDOW, 'alt+e')
    wait_for(lambda: program.poll() is not None, 'the program to leave')
    return program.returncode


def download_all(screen, program, seconds=300):
    """Does a run by the keyboard, from the main window on show to its exit."""
    screen.press(MAIN_WINDOW, 'alt+d')

    def ended():
        if program.poll() is not None:
            raise StageError(f'the program left with status {program.returncode}')
        titles = [name for _, name in screen.windows()]
        if titles.count(MAIN_WINDOW) > 1:
            raise StageError('the program has put up a message instead of downloading')
        return RUN_ENDED in titles

    wait_for(ended, 'the end of the run', seconds)
    screen.leave(RUN_ENDED, 'Escape')
    return leave_program(screen, program)
