"""What lies in the package, as the tools of the desktop and of Debian judge it."""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

PACKAGE = pathlib.Path(os.environ['PACKAGE']).resolve()
# An option, or a variable that is the program's own.
NAME = re.compile(r'--[a-z]+|\b(?:VANTROY|XDG)_[A-Z_]+|\b[a-z]+_proxy\b')


class Contents(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix='vantroy-package-')))
        subprocess.run(['dpkg-deb', '--extract', PACKAGE, self.folder], check=True)

    def files(self, pattern):
        found = sorted(self.folder.glob(pattern))
        self.assertTrue(found, pattern)
        return found

    def assert_silent(self, *command, **options):
        done = subprocess.run(command, capture_output=True, text=True, **options)
        self.assertEqual((0, ''), (done.returncode, done.stdout + done.stderr))

    def test_policy(self):
        # Judged by root as by anyone else.
        self.assert_silent('lintian', '--allow-root', '--fail-on', 'error,warning', PACKAGE)

    def test_desktop_entries(self):
        entries = self.files('usr/share/applications/*.desktop')
        self.assert_silent('desktop-file-validate', *entries)
        for entry in entries:
            text = entry.read_text()
            for program in re.findall(r'^(?:Try)?Exec=(\S+)', text, re.MULTILINE):
                self.assertTrue(os.access(self.folder / 'usr/bin' / program, os.X_OK), program)
            for icon in set(re.findall(r'^Icon=(\S+)', text, re.MULTILINE)):
                self.assertEqual(9, len(list(self.folder.glob(f'usr/share/icons/hicolor/*/apps/{icon}.*'))))

    def test_metadata(self):
        for file in self.files('usr/share/metainfo/*'):
            done = subprocess.run(['appstreamcli', 'validate', '--no-net', file], capture_output=True, text=True)
            self.assertEqual(0, done.returncode, done.stdout + done.stderr)

    def test_manual_pages_tell_what_the_help_tells(self):
        for page in self.files('usr/share/man/man1/*'):
            # A width keeps words whole, and the encoding keeps man from warning that it has none.
            environment = os.environ | {'LC_ALL': 'C.UTF-8', 'MANWIDTH': '200'}
            shown = subprocess.run(['man', '--warnings', '-l', page], env=environment, capture_output=True, text=True)
            self.assertEqual((0, ''), (shown.returncode, shown.stderr))
            program = self.folder / 'usr/bin' / page.name.removesuffix('.1.gz')
            told = subprocess.run([program, '--help'], capture_output=True, text=True, check=True).stdout
            names = set(NAME.findall(told)) - {'--help'}
            self.assertTrue(names)
            self.assertEqual(set(), names - set(NAME.findall(shown.stdout)), page.name)


if __name__ == '__main__':
    unittest.main()
