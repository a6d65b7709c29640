"""The life of an install: in a fresh system, by a user without rights, on a browser that the package starts."""
import os
import pathlib
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / 'e2e'))
import demo
from demo import stage

USER, NUMBER = 'ada', '61234'
PICTURES = demo.media(('coast', 'patterns', 'sounds'), demo.PICTURE_KINDS)
SAVED = demo.by_name(PICTURES) | {
    'cover.jpg': PICTURES['/coast/cover.jpg'], 'cover1.jpg': PICTURES['/patterns/cover.jpg']}


@unittest.skipUnless(os.environ.get('PACKAGE_SYSTEM'), 'needs root, who may mount, to make a system to install into')
class Install(unittest.TestCase):
    system = pathlib.Path(os.environ.get('PACKAGE_SYSTEM', ''))

    def root(self, *command, user=()):
        """A command in the system, with processes and a /proc of its own, which end with it."""
        return ['unshare', '--mount', '--pid', '--fork', '--kill-child', '--mount-proc', f'--root={self.system}', *user,
                'env', '-i', 'PATH=/usr/sbin:/usr/bin:/sbin:/bin', *command]

    def user(self, *command, **variables):
        user = ['--setuid', NUMBER, '--setgid', NUMBER, '--wd', f'/home/{USER}']
        settings = {'HOME': f'/home/{USER}', 'no_proxy': '127.0.0.1'} | variables
        return self.root(*(f'{name}={value}' for name, value in settings.items()), *command, user=user)

    def output(self, command, status=0):
        done = subprocess.run(command, capture_output=True, text=True, timeout=120)
        self.assertEqual(status, done.returncode, done.stdout + done.stderr)
        return done.stdout

    def files_of_the_package(self):
        listed = self.output(self.root('dpkg-query', '--listfiles', 'vantroy')).split()
        return [self.system / name[1:] for name in listed if not (self.system / name[1:]).is_dir()]

    def open_browser(self, screen, pages):
        """The browser of vantroy-browser, with its own sandbox, when the pages are on show."""
        data = self.system / f'home/{USER}/.local/share/vantroy/browser'
        self.enterContext(stage.process(self.user('vantroy-browser', *pages, DISPLAY=screen.environment['DISPLAY']),
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        port = stage.wait_for(lambda: stage.active_port(data), 'the browser to start')
        stage.wait_for(lambda: stage.loaded(port, pages), 'the pages to load', 60)

    def test_install_use_and_remove(self):
        self.output(self.root('useradd', '--create-home', '--uid', NUMBER, USER))
        self.assertIn(os.environ['PACKAGE'].split('_')[1].split('-')[0], self.output(self.user('vantroy', '--version')))
        programs = set((self.system / 'usr/bin').iterdir())

        server, screen = self.enterContext(stage.DemoServer()), self.enterContext(stage.Screen())
        self.open_browser(screen, server.pages)
        self.assertIn('open; pages: 3', self.output(self.user('vantroy', '--browsers')))
        self.output(self.user('vantroy', '--all', VANTROY_HTTP_PORT=server.port))
        with stage.process(self.user('vantroy', DISPLAY=screen.environment['DISPLAY'])) as program:
            self.assertEqual(0, stage.leave_program(screen, program))
        self.output(self.root('HOME=/root', 'vantroy', '--current'), status=1)
        self.assertEqual(programs, set((self.system / 'usr/bin').iterdir()), 'root has got files beside the program')

        installed = self.files_of_the_package()
        self.assertIn(self.system / 'usr/bin/vantroy', installed)
        self.output(self.root('dpkg', '--purge', 'vantroy'))
        self.assertEqual([], [file for file in installed if file.exists()])
        folder = self.system / f'home/{USER}/.local/share/vantroy/Download'
        self.assertEqual(SAVED, {file.name: file.read_bytes() for file in folder.iterdir()})


if __name__ == '__main__':
    unittest.main()
