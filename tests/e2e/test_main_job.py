"""The main job as a user does it: the real program on a screen, a real browser on the demo pages, and the keyboard."""
import collections
import unittest

import demo
from demo import stage

PICTURES = demo.media(('coast', 'patterns', 'sounds'), demo.PICTURE_KINDS)
# Both pages name their cover the same; the page that is walked second yields.
SAVED = demo.by_name(PICTURES) | {
    'cover.jpg': PICTURES['/coast/cover.jpg'], 'cover1.jpg': PICTURES['/patterns/cover.jpg']}


class MainJob(demo.DemoTest):
    def setUp(self):
        super().setUp()
        self.screen = self.enterContext(stage.Screen())

    def run_program(self):
        with stage.process([stage.PROGRAM], env=self.screen.environment | self.variables) as program:
            self.assertEqual(0, stage.download_all(self.screen, program))

    def history(self):
        """The one day of the history, and its text."""
        days = list((self.home / 'History').iterdir())
        self.assertEqual(1, len(days))
        return days[0].name, days[0].read_bytes().decode()

    def test_every_picture_arrives_and_is_asked_for_once(self):
        self.run_program()
        self.assert_same_files(SAVED, self.saved())
        asked = collections.Counter(line.split()[1] for line in self.log.read_text().splitlines())
        self.assertEqual({path: 1 for path in PICTURES}, {path: asked[path] for path in PICTURES})
        day, text = self.history()
        self.assertRegex(day, r'^\d{4}-\d\d-\d\d$')
        item = (r'<DOWNLOAD_ITEM>\r\n<DOWNLOAD_FILE>http://[^<]*</DOWNLOAD_FILE>\r\n'
                r'<LOCAL_FILE>' + str(self.folder) + r'/[^<]*</LOCAL_FILE>\r\n</DOWNLOAD_ITEM>\r\n')
        self.assertRegex(text, r'\A(<DOWNLOAD>\r\n<DOWNLOAD_TIME>\d+</DOWNLOAD_TIME>\r\n'
                               r'<REFERRER_URL>http://[^<]*</REFERRER_URL>\r\n(' + item + r')+</DOWNLOAD>\r\n){3}\Z')
        self.assertEqual(len(SAVED), text.count('<LOCAL_FILE>'))

    def test_a_second_run_overwrites_nothing(self):
        self.run_program()
        (self.folder / 'dunes.jpg').write_bytes(b'of another size')
        stood = {file.name: file.stat().st_mtime_ns for file in self.folder.iterdir()}
        _, first = self.history()
        self.run_program()
        self.assert_same_files(SAVED | {'dunes.jpg': b'of another size', 'dunes1.jpg': PICTURES['/coast/dunes.jpg']},
                               self.saved())
        self.assertEqual(stood, {name: (self.folder / name).stat().st_mtime_ns for name in stood})
        _, both = self.history()
        self.assertTrue(both.startswith(first))
        self.assertEqual(1, both[len(first):].count('<LOCAL_FILE>'))

    def test_a_run_without_its_folder_takes_the_one_of_the_settings(self):
        (self.home / 'config.xml').write_text('<CONFIG><SAVEFOLDER>/nowhere/at all</SAVEFOLDER></CONFIG>')
        self.folder = self.base / 'chosen'
        settings = 'Configuration...'
        with stage.process([stage.PROGRAM], env=self.screen.environment | self.variables) as program:
            main = self.screen.window(stage.MAIN_WINDOW)
            self.screen.press(stage.MAIN_WINDOW, 'alt+d')
            # From here on the keys go to what has the keyboard: the message first, titled as the main window.
            self.screen.wait_until_active(stage.MAIN_WINDOW, besides=main)
            self.screen.xdotool('key', 'Return')
            self.screen.wait_until_active(settings)
            self.screen.xdotool('key', 'Tab')
            self.screen.xdotool('type', str(self.folder))
            self.screen.xdotool('key', 'Return')
            self.screen.leave(stage.RUN_ENDED, 'Escape')
            self.assertEqual(0, stage.leave_program(self.screen, program))
        self.assert_same_files(SAVED, self.saved())


if __name__ == '__main__':
    unittest.main()
