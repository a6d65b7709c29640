"""Guards the picture of the folders in ARCHITECTURE.md by the includes of the sources."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent

# What a folder may include beside itself, the standard library, platform/ and resources/.
PRODUCT = {
    'app': {'harvest', 'historyview', 'settings', 'tools', 'download', 'persist', 'controls', 'base'},
    'harvest': {'download', 'settings', 'persist', 'base'},
    'download': {'persist', 'base'},
    'historyview': {'persist', 'base'},
    'settings': {'persist', 'controls', 'base'},
    'tools': {'controls', 'base'},
    'controls': {'base'},
    'persist': {'base'},
    'base': set(),
    'demo': {'controls', 'base'},
}
ALLOWED = {folder: below | {folder, 'platform', 'resources'} for folder, below in PRODUCT.items()}
ALLOWED |= {'resources': {'resources', 'platform'}, 'platform': {'platform'}}

INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
COMMENT = re.compile(r'//[^\n]*|/\*.*?\*/', re.DOTALL)
STANDARD = re.compile(r'[a-z_0-9]+')
FOREIGN_TYPE = re.compile(r'\bQ(?:[A-Z]+[a-z]\w*|t::\w+)|\bCURL\w*')


def include_fault(path, folder, quote, name):
    if quote == '<':
        return folder != 'platform' and not STANDARD.fullmatch(name) and 'only platform/ sees other libraries'
    target = name.split('/')[0]
    if target not in ALLOWED[folder]:
        return f'{folder}/ may not include {target}/'
    if folder != 'platform' and name.startswith('platform/testing/'):
        return 'stand-ins are for tests'
    if folder != 'platform' and name.startswith('platform/') and name.endswith('_p.h'):
        return 'a private header of platform/'
    if is_public_platform_header(path) and name.endswith('_p.h'):
        return 'a public header includes a private one'
    return None


def is_public_platform_header(path):
    return path.startswith('platform/') and path.endswith('.h') and not path.endswith('_p.h')


def faults(path, text):
    """What is wrong with a source, one line a fault. The path is relative to the root."""
    code = COMMENT.sub('', text)
    folder = path.split('/')[0]
    if folder not in ALLOWED:
        return [f'{path}: {folder}/ is not in the picture']
    found = [(name, include_fault(path, folder, quote, name)) for quote, name in INCLUDE.findall(code)]
    lines = [f'{path}: {name}: {fault}' for name, fault in found if fault]
    if is_public_platform_header(path):
        lines += [f'{path}: {kind}: a type of another library in a public header' for kind in FOREIGN_TYPE.findall(code)]
    return lines


def sources():
    for path in sorted(ROOT.rglob('*')):
        name = path.relative_to(ROOT).as_posix()
        if path.suffix in ('.h', '.cpp') and name.split('/')[0] not in ('build', 'tests', 'bench'):
            yield name, path.read_text(errors='replace')


class Layering(unittest.TestCase):
    def test_arrows_of_the_picture_alone(self):
        seen = list(sources())
        self.assertGreater(len(seen), 50)
        self.assertEqual([], [fault for name, text in seen for fault in faults(name, text)])

    def test_a_planted_violation_is_found(self):
        for path, text in [
                ('download/Planted.cpp', '#include "harvest/CUrlList.h"'),
                ('persist/Planted.h', '#include "download/DownloadRun.h"'),
                ('resources/Planted.cpp', '#include "base/UrlList.h"'),
                ('platform/window/Planted.cpp', '#include "app/MainDlg.h"'),
                ('settings/Planted.cpp', '#include "Neighbour.h"'),
                ('app/Planted.cpp', '#include <QWidget>'),
                ('app/Planted.cpp', '#  include <curl/curl.h>'),
                ('app/Planted.cpp', '#include <unistd.h>'),
                ('app/Planted.cpp', '#include "platform/system/TaskQueue_p.h"'),
                ('app/Planted.cpp', '#include "platform/testing/TempHome.h"'),
                ('platform/window/Planted.h', '#include "platform/window/Wnd_p.h"'),
                ('platform/window/Planted.h', 'class QWidget;'),
                ('platform/window/Planted.h', 'Qt::Key key;'),
                ('platform/internet/Planted.h', 'CURL* handle;'),
                ('extras/Planted.cpp', ''),
        ]:
            with self.subTest(path=path, text=text):
                self.assertEqual(1, len(faults(path, text)))

    def test_what_is_allowed_is_not_blamed(self):
        for path, text in [
                ('app/Fine.cpp', '#include "harvest/CUrlList.h"\n#include <string_view>\n#include "platform/Types.h"'),
                ('platform/window/Fine_p.h', '#include <QWidget>\nclass QTimer;'),
                ('platform/com/Fine.h', '// A QWidget stands behind it.\nHRESULT QueryInterface(REFIID, void**);'),
        ]:
            with self.subTest(path=path):
                self.assertEqual([], faults(path, text))


if __name__ == '__main__':
    unittest.main()
