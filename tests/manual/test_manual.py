"""Guards the manual: what its pages name is there, and every page can be reached."""
import html.parser
import pathlib
import re
import unittest

MANUAL = pathlib.Path(__file__).resolve().parent.parent.parent / 'docs' / 'manual'
VOID = {'meta', 'link', 'img', 'br'}


class Page(html.parser.HTMLParser):
    """The addresses that a page names, the places that it has, and what is wrong with its elements."""

    def __init__(self, text):
        super().__init__()
        self.addresses, self.places, self.faults, self.open = [], [], [], []
        self.feed(text)
        self.close()
        self.faults += [f'<{tag}> is not closed' for tag in self.open]

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.addresses += [values[name] for name in ('href', 'src') if name in values]
        self.places += [values['id']] if 'id' in values else []
        if tag == 'img' and not values.get('alt'):
            self.faults.append(f'{values.get("src")} says nothing to who cannot see it')
        if tag in ('script', 'iframe', 'form') or 'style' in values or any(name.startswith('on') for name in values):
            self.faults.append(f'<{tag}> is more than a plain page')
        if tag not in VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f'</{tag}> closes nothing')


def pages():
    return {path.name: Page(path.read_text(encoding='utf-8')) for path in MANUAL.glob('*.html')}


def faults(seen, there):
    """What is wrong with pages by name, one line a fault; `there` tells whether a file of a name is."""
    for name, page in seen.items():
        yield from (f'{name}: {fault}' for fault in page.faults)
        for address in page.addresses:
            file, _, place = address.partition('#')
            target = file or name
            if re.match(r'[a-z]+:|/', address) or not there(target):
                yield f'{name}: {address} is not here'
            elif place and place not in seen[target].places:
                yield f'{name}: {address} has no such place'
    reached, ahead = set(), ['index.html']
    while ahead:
        name = ahead.pop()
        if name in seen and name not in reached:
            reached.add(name)
            ahead += [address.partition('#')[0] for address in seen[name].addresses]
    yield from (f'{name}: no way leads here' for name in seen.keys() - reached)


class Manual(unittest.TestCase):
    def test_all_that_is_named_is_there(self):
        seen = pages()
        self.assertGreater(len(seen), 5)
        self.assertEqual([], list(faults(seen, lambda name: (MANUAL / name).is_file())))

    def test_planted_faults_are_found(self):
        for text in ['<a href="gone.html">', '<a href="#gone">', '<img src="a.png">', '<a href="https://a/"></a>', '<p>',
                     '</p>', '<script></script>', '<img src="b.png" alt="b">', '<p onclick="f()"></p>']:
            with self.subTest(text=text):
                self.assertNotEqual([], list(faults({'index.html': Page(text)}, {'index.html', 'a.png'}.__contains__)))
        lonely = {'index.html': Page(''), 'lonely.html': Page('')}
        self.assertEqual(['lonely.html: no way leads here'], list(faults(lonely, lonely.__contains__)))


if __name__ == '__main__':
    unittest.main()
