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
    def test_every_picture_arrives_and_is_asked_for_once(self):
        screen = self.enterContext(stage.Screen())
        with stage.process([stage.PROGRAM], env=screen.environment | self.variables) as program:
            self.assertEqual(0, stage.download_all(screen, program))
        self.assert_same_files(SAVED, self.saved())
        asked = collections.Counter(line.split()[1] for line in self.log.read_text().splitlines())
        self.assertEqual({path: 1 for path in PICTURES}, {path: asked[path] for path in PICTURES})
        day, = (self.home / 'History').iterdir()
        text = day.read_bytes().decode()
        self.assertRegex(day.name, r'^\d{4}-\d\d-\d\d$')
        item = (r'<DOWNLOAD_ITEM>\r\n<DOWNLOAD_FILE>http://[^<]*</DOWNLOAD_FILE>\r\n'
                r'<LOCAL_FILE>' + str(self.folder) + r'/[^<]*</LOCAL_FILE>\r\n</DOWNLOAD_ITEM>\r\n')
        self.assertRegex(text, r'\A(<DOWNLOAD>\r\n<DOWNLOAD_TIME>\d+</DOWNLOAD_TIME>\r\n'
                               r'<REFERRER_URL>http://[^<]*</REFERRER_URL>\r\n(' + item + r')+</DOWNLOAD>\r\n){3}\Z')
        self.assertEqual(len(SAVED), text.count('<LOCAL_FILE>'))


if __name__ == '__main__':
    unittest.main()
