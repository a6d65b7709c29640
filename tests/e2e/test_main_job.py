"""The main job as a user does it: the real program on a screen, a real browser on the demo pages, and the keyboard."""
import collections
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / 'scripts'))
import stage

SITE = stage.ROOT / 'demo/site'
KINDS = ('.jpg', '.png', '.gif', '.svg')
PICTURES = {f'/{file.relative_to(SITE).as_posix()}': file.read_bytes()
            for page in ('coast', 'patterns', 'sounds') for file in (SITE / page).iterdir() if file.suffix in KINDS}
# Both pages name their cover the same; the page that is walked second yields.
SAVED = {path.split('/')[-1]: content for path, content in PICTURES.items()} | {
    'cover.jpg': PICTURES['/coast/cover.jpg'], 'cover1.jpg': PICTURES['/patterns/cover.jpg']}


class MainJob(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix='vantroy-e2e-')))
        self.log = self.home / 'requests'
        self.folder = self.home / 'home/Download'
        (self.home / 'home').mkdir()
        server = self.enterContext(stage.DemoServer(self.log))
        browser = self.enterContext(stage.Browser(server.pages))
        self.screen = self.enterContext(stage.Screen())
        self.environment = self.screen.environment | {
            'VANTROY_HOME': str(self.home / 'home'), 'VANTROY_BROWSER': browser.endpoint,
            'VANTROY_HTTP_PORT': str(server.port)}

    def run_program(self):
        with stage.process([stage.PROGRAM], env=self.environment) as program:
            self.assertEqual(0, stage.download_all(self.screen, program))

    def saved(self):
        return {file.name: file.read_bytes() for file in self.folder.iterdir()}

    def assert_same_files(self, wanted, found):
        self.assertEqual(sorted(wanted), sorted(found))
        self.assertEqual([], [name for name in wanted if wanted[name] != found[name]])

    def test_every_picture_arrives_and_is_asked_for_once(self):
        self.run_program()
        self.assert_same_files(SAVED, self.saved())
        asked = collections.Counter(line.split()[1] for line in self.log.read_text().splitlines())
        self.assertEqual({path: 1 for path in PICTURES}, {path: asked[path] for path in PICTURES})

    def test_a_second_run_overwrites_nothing(self):
        self.run_program()
        (self.folder / 'dunes.jpg').write_bytes(b'of another size')
        stood = {file.name: file.stat().st_mtime_ns for file in self.folder.iterdir()}
        self.run_program()
        self.assert_same_files(SAVED | {'dunes.jpg': b'of another size', 'dunes1.jpg': PICTURES['/coast/dunes.jpg']},
                               self.saved())
        self.assertEqual(stood, {name: (self.folder / name).stat().st_mtime_ns for name in stood})


if __name__ == '__main__':
    unittest.main()
