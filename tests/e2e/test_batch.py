"""The modes that ask nothing, without a display, as a script or a timer starts them."""
import pathlib
import signal
import subprocess
import unittest

import demo
from demo import stage

class TwoBrowsers(demo.BatchTest):
    shown = slice(0, 1)

    def test_the_pages_of_both_are_one_run(self):
        second = self.enterContext(stage.Browser(self.server.pages[1:]))
        self.environment['VANTROY_BROWSER'] = f'{self.browser.folder},{second.folder}'
        states = self.run_program('--browsers').stdout
        self.assertEqual(f'{self.browser.folder}\n    open; pages: 1\n{second.folder}\n    open; pages: 2\n', states)
        self.run_program('--all')
        self.assert_same_files(demo.SAVED, self.saved())


class FirefoxBesideChromium(demo.BatchTest):
    shown = slice(1, None)

    def test_the_pages_of_both_are_one_run(self):
        firefox = self.enterContext(stage.Firefox(self.server.pages[:1]))
        self.assertEqual(0o700, pathlib.Path(firefox.folder).stat().st_mode & 0o777)
        self.environment['VANTROY_BROWSER'] = f'{firefox.folder},{self.browser.folder}'
        stage.wait_for(lambda: '/coast/cover.jpg' in self.log.read_text(), 'the page in Firefox', 60)
        self.run_program('--all')
        self.assert_same_files(demo.SAVED, self.saved())
        states = self.run_program('--browsers').stdout
        self.assertEqual(f'{firefox.folder}\n    open; pages: 1\n{self.browser.folder}\n    open; pages: 2\n', states)


class BatchModes(demo.BatchTest):
    def test_every_file_of_every_open_page_arrives(self):
        done = self.run_program('--all')
        self.assert_same_files(demo.SAVED, self.saved())
        self.assertFalse((self.home / 'History').exists())
        self.assertEqual('', done.stderr)
        lines = done.stdout.splitlines()
        self.assertEqual(['Now getting download files list...', 'Download files now...'], lines[:2])
        self.assertEqual('Download complete!', lines[-1])
        # Each file has its line, with its size.
        self.assertEqual({f'{len(content)} Bytes' for content in demo.MEDIA.values()},
                         {part for line in lines for part in line.split('  ') if part.endswith(' Bytes')})

    def test_the_pages_of_the_file_alone(self):
        pages = [page for page in self.server.pages if not page.endswith('/patterns/')]
        (self.home / 'cacheurl.xml').write_text(
            '<URLCACHE>' + ''.join(f'<URL>{page}</URL>' for page in [*pages, pages[0], 'http://nowhere/']) + '</URLCACHE>')
        self.run_program('/current')
        self.assert_same_files(demo.by_name(demo.media(('coast', 'sounds'), demo.PICTURE_KINDS + demo.SOUND_KINDS)),
                               self.saved())

    def test_a_setting_written_in_another_code_page(self):
        folder = self.base / '乗'  # its second byte is the one of a backslash
        folder.mkdir()
        self.environment['VANTROY_CODEPAGE'] = '936'
        (self.home / 'config.xml').write_bytes(
            f'<CONFIG>\r\n<SAVEFOLDER>{folder}</SAVEFOLDER>\r\n</CONFIG>\r\n'.encode('gbk'))
        self.run_program('--all')
        self.assertEqual(sorted(name for name in demo.SAVED if name.endswith(demo.PICTURE_KINDS)),
                         sorted(file.name for file in folder.iterdir()))

    def test_the_status_says_what_was_wrong(self):
        self.assertIn('Unable to read url cache file: cacheurl.xml', self.run_program('--current', status=1).stderr)
        (self.home / 'cacheurl.xml').write_text('<URLCACHE/>')
        self.assertIn('No files to download.', self.run_program('--current', status=1).stderr)
        self.assertIn('display', self.run_program(status=2).stderr)
        self.environment['VANTROY_BROWSER'] = 'http://127.0.0.1:1'
        self.assertIn('Error creating ie doc window!', self.run_program('--all', status=1).stderr)
        self.assertEqual({}, self.saved())

    def test_ctrl_c_lets_the_item_in_hand_arrive(self):
        slow = self.enterContext(SlowServer())
        self.environment['VANTROY_HTTP_PORT'] = str(slow.port)
        (self.home / 'cacheurl.xml').write_text(f'<URLCACHE><URL>{self.server.pages[2]}</URL></URLCACHE>')
        (self.home / 'config.xml').write_text(
            f'<CONFIG><SAVEFOLDER>{self.folder}</SAVEFOLDER><LIMITFILETYPE>2</LIMITFILETYPE></CONFIG>')
        with stage.process([stage.PROGRAM, '--current'], env=self.environment, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL) as program:
            self.assertTrue(slow.asked.wait(60))
            program.send_signal(signal.SIGINT)
            slow.go_on.set()
            self.assertEqual(130, program.wait(60))
        self.assertEqual({'ten-quiet-seconds.mp3': b'slow'}, self.saved())


class SlowServer(stage.DemoServer):
    """Answers every request, once it may, with the same four bytes."""

    def handler(self, serve):
        self.asked, self.go_on = stage.threading.Event(), stage.threading.Event()

        class Handler(serve.Handler):
            def do_GET(handler):
                handler.send_response(200)
                handler.send_header('Content-Length', '4')
                handler.end_headers()
                self.asked.set()
                self.go_on.wait(60)
                handler.wfile.write(b'slow')
        return Handler


if __name__ == '__main__':
    unittest.main()
