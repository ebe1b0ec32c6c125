"""Checks that all words of an .odt document and of its pictures are in the text of its pages:
compare_document.py REPORT.odt PAGES.txt"""

import sys
import xml.etree.ElementTree as ElementTree
import zipfile

TEXT = '{urn:oasis:names:tc:opendocument:xmlns:text:1.0}'
SVG = '{http://www.w3.org/2000/svg}'


def words_of(package):
    """The words of paragraphs, headings and pictures."""
    content = ElementTree.fromstring(package.read('content.xml'))
    for element in content.iter():
        if element.tag in (TEXT + 'p', TEXT + 'h'):
            yield from ''.join(element.itertext()).split()
    for name in package.namelist():
        if name.endswith('.svg'):
            for element in ElementTree.fromstring(package.read(name)).iter(SVG + 'text'):
                yield from (element.text or '').split()


def main(report, pages):
    with open(pages, encoding='utf-8') as file:
        # A long word may be broken at the end of a line, or at a hyphen.
        shown = ''.join(file.read().split())
    with zipfile.ZipFile(report) as package:
        words = list(words_of(package))
    missing = [word for word in words if word not in shown]
    if missing:
        sys.exit('not on the pages: ' + ', '.join(missing[:20]))
    print(f'{len(words)} words are on the pages')


main(*sys.argv[1:])
