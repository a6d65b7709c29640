"""A home, the demo server and a real browser on its pages: what the end-to-end tests stand on."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / 'scripts'))
import stage

SITE = stage.ROOT / 'demo/site'
PICTURE_KINDS = ('.jpg', '.png', '.gif', '.svg')
SOUND_KINDS = ('.mp3', '.MP3', '.swf')


def media(pages, kinds):
    """Path at the server to content, of all files of these kinds beside the pages."""
    return {f'/{file.relative_to(SITE).as_posix()}': file.read_bytes()
            for page in pages for file in sorted((SITE / page).iterdir()) if file.suffix in kinds}


def by_name(files):
    """The names that the files get in the save folder."""
    return {path.split('/')[-1]: content for path, content in files.items()}


MEDIA = media(('coast', 'patterns', 'sounds'), PICTURE_KINDS + SOUND_KINDS)
# Two pages name their cover the same.
SAVED = by_name(MEDIA) | {'cover.jpg': MEDIA['/coast/cover.jpg'], 'cover1.jpg': MEDIA['/patterns/cover.jpg']}


class HomeTest(unittest.TestCase):
    def setUp(self):
        self.base = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix='vantroy-e2e-')))
        self.home = self.base / 'home'
        self.home.mkdir()


class DemoTest(HomeTest):
    shown = slice(None)  # the pages that the browser shows

    def setUp(self):
        super().setUp()
        self.log = self.base / 'requests'
        self.folder = self.home / 'Download'
        self.server = self.enterContext(stage.DemoServer(self.log))
        self.browser = self.enterContext(stage.Browser(self.server.pages[self.shown]))
        self.variables = {'VANTROY_HOME': str(self.home), 'VANTROY_BROWSER': self.browser.endpoint,
                          'VANTROY_HTTP_PORT': str(self.server.port)}

    def saved(self):
        return {file.name: file.read_bytes() for file in self.folder.iterdir()}

    def assert_same_files(self, wanted, found):
        self.assertEqual(sorted(wanted), sorted(found))
        self.assertEqual([], [name for name in wanted if wanted[name] != found[name]])


class BatchTest(DemoTest):
    """Without a display."""

    def setUp(self):
        super().setUp()
        (self.home / 'config.xml').write_text(
            f'<CONFIG><SAVEFOLDER>{self.folder}</SAVEFOLDER><LIMITFILETYPE>7</LIMITFILETYPE></CONFIG>')
        self.folder.mkdir()
        screens = ('DISPLAY', 'WAYLAND_DISPLAY', 'QT_QPA_PLATFORM')
        self.environment = {name: value for name, value in os.environ.items() if name not in screens} | self.variables

    def run_program(self, *arguments, status=0):
        done = subprocess.run([stage.PROGRAM, *arguments], env=self.environment, capture_output=True, text=True,
                              timeout=120, stdin=subprocess.DEVNULL)
        self.assertEqual(status, done.returncode, done.stdout + done.stderr)
        return done
