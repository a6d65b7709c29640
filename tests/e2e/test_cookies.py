"""A page behind a login: a real browser that is logged in, and what the program sends of its cookies, and where."""
import contextlib
import http.server
import os
import pathlib
import secrets
import subprocess
import tempfile
import threading
import unittest

from demo import stage

HERE, THERE = '127.0.0.1', '127.0.0.2'
SONG = secrets.token_bytes(100_000)


class Server(contextlib.AbstractContextManager):
    """Two hosts on one port. `asked` gets host, path and Cookie header of what is no browser's request."""

    def __init__(self):
        self.asked = []
        self.secret = secrets.token_hex(16)
        self.cookies = {
            (HERE, '/members/'): [f'sid={self.secret}; HttpOnly', f'brief={self.secret}; Max-Age=1',
                                  f'strict={self.secret}; SameSite=Strict', f'elsewhere={self.secret}; Path=/other'],
            (THERE, '/'): [f'secured={self.secret}; Secure']}
        here = http.server.ThreadingHTTPServer((HERE, 0), self.handler())
        self.port = here.server_port
        self.servers = [here, http.server.ThreadingHTTPServer((THERE, self.port), self.handler())]
        self.redirects = {'/members/moved.mp3': f'http://{THERE}:{self.port}/away.mp3',
                          '/away.mp3': f'http://{HERE}:{self.port}/members/back.mp3'}
        self.pages = {'/': b'Welcome', '/members/': ''.join(f'<a href="{link}">x</a>' for link in (
            'song.mp3', 'moved.mp3', '/free/open.mp3', f'http://{THERE}:{self.port}/other.mp3')).encode()}
        for server in self.servers:
            threading.Thread(target=server.serve_forever, daemon=True).start()

    def handler(self):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(handler):
                host = handler.server.server_address[0]
                if 'Mozilla' not in handler.headers['User-Agent']:
                    self.asked.append((host, handler.path, handler.headers['Cookie']))
                cookie = handler.headers['Cookie'] or ''
                is_barred = handler.path == '/members/song.mp3' and self.secret not in cookie
                moved = self.redirects.get(handler.path)
                body = self.pages.get(handler.path) or (b'log in first' if is_barred else SONG)
                handler.send_response(302 if moved else 200)
                for cookie in self.cookies.get((host, handler.path), []):
                    handler.send_header('Set-Cookie', cookie)
                if moved:
                    handler.send_header('Location', moved)
                handler.send_header('Content-Type', 'text/html' if handler.path in self.pages else 'audio/mpeg')
                handler.send_header('Content-Length', str(len(body)))
                handler.end_headers()
                handler.wfile.write(body)

            def log_message(handler, *_):
                pass
        return Handler

    def __exit__(self, *_):
        for server in self.servers:
            server.shutdown()
            server.server_close()


class Cookies(unittest.TestCase):
    def setUp(self):
        self.base = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix='vantroy-e2e-')))
        self.server = self.enterContext(Server())
        pages = [f'http://{host}:{self.server.port}{path}' for host, path in self.server.cookies]
        self.browser = self.enterContext(stage.Browser(pages))
        folders = {name: self.base / name for name in ('home', 'data', 'config', 'cache', 'state', 'runtime', 'tmp')}
        for folder in folders.values():
            folder.mkdir(mode=0o700)
        self.home = folders['home']
        self.environment = {name: value for name, value in os.environ.items()
                            if name not in ('DISPLAY', 'WAYLAND_DISPLAY', 'QT_QPA_PLATFORM')}
        self.environment.update({f'XDG_{name.upper()}_HOME': str(folders[name])
                                 for name in ('data', 'config', 'cache', 'state')})
        self.environment.update(
            XDG_RUNTIME_DIR=str(folders['runtime']), TMPDIR=str(folders['tmp']), HOME=str(self.home),
            VANTROY_HOME=str(self.home), VANTROY_BROWSER=self.browser.endpoint,
            VANTROY_HTTP_PORT=str(self.server.port))
        # The short-lived cookie has ended when the page of its path no longer sees it.
        with stage.urllib.request.urlopen(f'{self.browser.endpoint}/json/list', timeout=10) as answer:
            member = next(page for page in stage.json.load(answer) if page['url'] == pages[0])
        stage.wait_for(lambda: 'brief' not in stage.evaluate(member['webSocketDebuggerUrl'], 'document.cookie'),
                       'the end of the short-lived cookie')

    def run_program(self, name):
        """Its downloads, and the places that its secret was seen in."""
        folder = self.base / name
        folder.mkdir()
        self.server.asked.clear()
        (self.home / 'config.xml').write_text(
            f'<CONFIG><SAVEFOLDER>{folder}</SAVEFOLDER><LIMITFILETYPE>7</LIMITFILETYPE></CONFIG>')
        output = self.base / 'output'
        seen = set()
        with output.open('wb') as out, stage.process([stage.PROGRAM, '--all'], env=self.environment, stdout=out,
                                                     stderr=subprocess.STDOUT) as program:
            process = pathlib.Path('/proc') / str(program.pid)
            stage.wait_for(lambda: seen.update(self.leaks([process / 'cmdline', process / 'environ'])) or
                           program.poll() is not None, 'the end of the run', 120)
        self.assertEqual(0, program.returncode, output.read_text())
        self.assertEqual(set(), seen | set(self.leaks([])))
        return {file.name: file.read_bytes() for file in folder.iterdir()}

    def leaks(self, others):
        for file in [*self.base.rglob('*'), *others]:
            with contextlib.suppress(OSError):
                if file.is_file() and self.server.secret.encode() in file.read_bytes():
                    yield file

    def test_go_to_their_own_address_alone_and_nowhere_else(self):
        saved = self.run_program('with')
        sid = f'sid={self.server.secret}'
        self.assertEqual(
            {(HERE, '/members/song.mp3', sid), (HERE, '/members/moved.mp3', sid), (THERE, '/away.mp3', None),
             (HERE, '/members/back.mp3', sid), (HERE, '/free/open.mp3', None), (THERE, '/other.mp3', None)},
            set(self.server.asked))
        self.assertEqual(dict.fromkeys(('song.mp3', 'moved.mp3', 'open.mp3', 'other.mp3'), SONG), saved)

        (self.home / 'registry-user.ini').write_text('[SOFTWARE\\Orlenta\\Vantroy]\nSendCookies=0\n')
        saved = self.run_program('without')
        self.assertEqual({None}, {cookie for _, _, cookie in self.server.asked})
        self.assertEqual(b'log in first', saved['song.mp3'])


if __name__ == '__main__':
    unittest.main()
