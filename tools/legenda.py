#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the title blocks and the row of revisions in instalacao/Prancheta/folhas/.

    tools/legenda.py [FOLDER]

Lower right corner at the origin, millimetres of paper. A cell has its caption above and an attribute below.
"""

import pathlib
import sys

PRESET = 8  # group 70 of an attribute: filled by the program, never asked for
CAPTION = 1.8
ROW = 6.0

# y, height of the row, then its cells: width (None: what is left), caption, tag, question, text height, modes
ROWS = [
    (0, 10, [(55, 'DESENHO Nº', 'DESENHO', 'Número do desenho', 3.5, 0),
             (20, 'REVISÃO', 'REVISAO', 'Revisão', 3.5, 0),
             (25, 'FOLHA', 'FOLHA', '', 3.5, PRESET),
             (35, 'ESCALA', 'ESCALA', '', 3.5, PRESET),
             (None, 'DATA', 'DATA', '', 3.5, PRESET)]),
    (10, 10, [(75, 'RESPONSÁVEL', 'RESPONSAVEL', 'Responsável', 2.5, 0),
              (45, 'CREA', 'CREA', 'CREA', 2.5, 0),
              (None, 'PESO TOTAL (kg)', 'PESO', '', 2.5, PRESET)]),
    (20, 13, [(None, 'TÍTULO', 'TITULO', 'Título', 5, 0)]),
    (33, 10, [(110, 'CLIENTE', 'CLIENTE', 'Cliente', 2.5, 0),
              (None, 'ARQUIVO', 'ARQUIVO', '', 2.5, PRESET)]),
    (43, 10, [(None, 'OBRA', 'OBRA', 'Obra', 3.5, 0)]),
]
# The values that are offered make the head of the table.
REVISION = [(10, 'REV.', 'REV', '', PRESET), (20, 'DATA', 'DATA', '', PRESET),
            (40, 'DESCRIÇÃO', 'DESCRICAO', 'Descrição da revisão', 0),
            (15, 'POR', 'POR', 'Feita por', 0)]


class Block:
    def __init__(self):
        self.tags = []
        self.handle = 0x100

    def entity(self, kind, subclasses):
        self.handle += 1
        self.tags += [(0, kind), (5, f'{self.handle:X}'), (100, 'AcDbEntity'), (8, '0'),
                      (100, subclasses)]

    def line(self, x1, y1, x2, y2, weight=25):
        self.entity('LINE', 'AcDbLine')
        self.tags[-1:] = [(370, weight), (100, 'AcDbLine')]
        self.tags += [(10, x1), (20, y1), (30, 0), (11, x2), (21, y2), (31, 0)]

    def text(self, x, y, height, words):
        self.entity('TEXT', 'AcDbText')
        self.tags += [(10, x), (20, y), (30, 0), (40, height), (1, words), (100, 'AcDbText')]

    def attribute(self, x, y, height, tag, question, offered, modes):
        self.entity('ATTDEF', 'AcDbText')
        self.tags += [(10, x), (20, y), (30, 0), (40, height), (1, offered),
                      (100, 'AcDbAttributeDefinition'), (3, question), (2, tag), (70, modes)]

    def write(self, path):
        head = [(0, 'SECTION'), (2, 'HEADER'), (9, '$ACADVER'), (1, 'AC1027'), (9, '$INSUNITS'),
                (70, 4), (0, 'ENDSEC'), (0, 'SECTION'), (2, 'ENTITIES')]
        tags = head + self.tags + [(0, 'ENDSEC'), (0, 'EOF')]
        path.write_text(''.join(f'{code:3}\n{value}\n' for code, value in tags), encoding='utf-8')


def box(block, left, right, bottom, top):
    for x in (left, right):
        block.line(x, bottom, x, top, 50)
    for y in (bottom, top):
        block.line(left, y, right, y, 50)


def title_block(width):
    block = Block()
    box(block, -width, 0, 0, ROWS[-1][0] + ROWS[-1][1])
    for y, height, cells in reversed(ROWS):  # asked from the top down
        if y > 0:
            block.line(-width, y, 0, y)
        x = -width
        for cell, caption, tag, question, size, modes in cells:
            if x > -width:
                block.line(x, y, x, y + height)
            block.text(x + 1, y + height - CAPTION - 1, CAPTION, caption)
            block.attribute(x + 2, y + 1.8, size, tag, question, '', modes)
            x += cell or 0
    return block


def revision_row():
    block = Block()
    width = sum(cell[0] for cell in REVISION)
    box(block, -width, 0, 0, ROW)
    x = -width
    for cell, offered, tag, question, modes in REVISION:
        if x > -width:
            block.line(x, 0, x, ROW)
        block.attribute(x + 1, 2, 2, tag, question, offered, modes)
        x += cell
    return block


def main():
    usual = pathlib.Path(__file__).parent.parent / 'instalacao/Prancheta/folhas'
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else usual
    for width in (175, 178):
        title_block(width).write(folder / f'legenda-{width}.dxf')
    revision_row().write(folder / 'revisao.dxf')


main()
