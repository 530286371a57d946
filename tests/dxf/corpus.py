# SPDX-License-Identifier: MIT
"""Small drawings of another program: every kind of entity, in every release, as text and binary.

Run as: corpus.py FOLDER. Each file is KINDS-RELEASE-FORM.dxf.
"""
import sys
from pathlib import Path

import ezdxf

RELEASES = ('R12', 'R2000', 'R2004', 'R2007', 'R2010', 'R2013', 'R2018')


def curves(doc, space):
    space.add_line((0, 0), (10, 5.5), dxfattribs={'layer': 'Eixos', 'color': 1, 'lineweight': 35})
    space.add_point((1, 2, 3))
    space.add_circle((5, 5), 2.5, dxfattribs={'linetype': 'CENTER', 'ltscale': 0.5})
    space.add_arc((5, 5), 3, 350, 20, dxfattribs={'extrusion': (0, 0, -1)})
    if doc.dxfversion == 'AC1009':
        return
    space.add_ellipse((1, 1), (4, 0), 0.5, 0.5, 4)
    space.add_xline((0, 0), (1, 1))
    space.add_ray((0, 0), (0, 1))
    space.add_spline([(0, 0), (3, 4), (6, 0), (9, 5)])
    space.add_open_spline([(0, 0), (3, 4), (6, 0), (9, 5), (12, 1)])
    space.add_rational_spline([(0, 0), (3, 4), (6, 0), (9, 5)], [1, 2, 0.5, 1])
    space.add_spline(degree=2).set_closed([(0, 0, 0), (3, 4, 0), (6, 0, 0), (3, -4, 0)], degree=2)


def polylines(doc, space):
    space.add_polyline2d([(0, 0, 0, 0, 0.5), (5, 0, 1, 2, 0), (5, 5)], format='xyseb', close=True)
    space.add_polyline3d([(0, 0, 0), (1, 2, 3), (4, 5, 6)])
    mesh = space.add_polymesh((3, 2))
    for i in range(3):
        for j in range(2):
            mesh.set_mesh_vertex((i, j), (i, j, i * j))
    space.add_polyface().append_face([(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 1)])
    if doc.dxfversion != 'AC1009':
        space.add_lwpolyline([(0, 0, 0, 0, 1), (5, 0, 0.5, 0.25, 0), (5, 5)], close=True)
        space.add_lwpolyline([(0, 0), (5, 0)], dxfattribs={'const_width': 1, 'elevation': 3})


def texts(doc, space):
    doc.styles.add('Nota', font='arial.ttf').dxf.width = 0.8
    space.add_text('Ação 45%%d', dxfattribs={'style': 'Nota', 'height': 3, 'rotation': 30, 'oblique': 15})
    space.add_text('espelhado', dxfattribs={'text_generation_flag': 2, 'halign': 2, 'align_point': (9, 9)})
    if doc.dxfversion == 'AC1009':
        return
    space.add_mtext('{\\fArial|b1;linha} um\\P\\H2x;\\S1^2; dois\\C1;' + 'x' * 300,
                    {'char_height': 3, 'width': 40, 'attachment_point': 5, 'rotation': 30,
                     'line_spacing_factor': 1.5})
    filled = space.add_mtext('fundo', dxfattribs={'char_height': 2, 'defined_height': 20})
    if doc.dxfversion >= 'AC1018':
        filled.set_bg_color(2, 1.5)


def blocks(doc, space):
    block = doc.blocks.new('FURO', base_point=(1, 1))
    block.add_circle((0, 0), 2, dxfattribs={'color': 0})
    block.add_attdef('NOME', (0, 3), 'sem nome', dxfattribs={'prompt': 'Nome?', 'height': 2})
    block.add_attdef('FIXO', (0, 6), 'sempre', dxfattribs={'flags': 2})
    outer = doc.blocks.new('CHAPA')
    outer.add_blockref('FURO', (5, 5))
    space.add_blockref('FURO', (3, 3)).add_auto_attribs({'NOME': 'F1'})
    space.add_blockref('CHAPA', (0, 9), dxfattribs={'xscale': -2, 'yscale': 2, 'zscale': 2, 'rotation': 30})
    space.add_blockref('CHAPA', (0, 0), dxfattribs={'row_count': 2, 'column_count': 3, 'row_spacing': 10,
                                         'column_spacing': 20})


def hatches(doc, space):
    if doc.dxfversion == 'AC1009':
        return
    space.add_hatch(2).paths.add_polyline_path([(0, 0), (5, 0, 0.5), (5, 5)], is_closed=True)
    pattern = space.add_hatch(dxfattribs={'layer': 'Eixos'})
    pattern.set_pattern_fill('ANSI31', scale=2, angle=30)
    pattern.paths.add_polyline_path([(0, 0), (9, 0), (9, 9), (0, 9)], flags=1)
    pattern.paths.add_polyline_path([(2, 2), (4, 2), (4, 4)], flags=16)
    edges = space.add_hatch(3).paths.add_edge_path()
    edges.add_arc((5, 5), 3, 0, 180)
    edges.add_line((2, 5), (8, 5))
    round_ = space.add_hatch(4).paths.add_edge_path()
    round_.add_ellipse((0, 0), (5, 0), 0.5, 0, 360)
    if doc.dxfversion >= 'AC1018':
        shaded = space.add_hatch()
        shaded.set_gradient((255, 0, 0), (0, 0, 255), rotation=30, name='LINEAR')
        shaded.paths.add_polyline_path([(0, 0), (5, 0), (5, 5)], is_closed=True)


def dimensions(doc, space):
    space.add_linear_dim((0, 8), (0, 0), (6, 3), dimstyle='EZDXF').render()
    space.add_linear_dim((9, 0), (0, 0), (6, 3), angle=90, text='<> mm').render()
    space.add_aligned_dim((0, 0), (6, 6), 2, override={'dimtxt': 3}).render()
    space.add_radius_dim((0, 0), radius=5, angle=45).render()
    space.add_diameter_dim((0, 0), radius=5, angle=45).render()
    space.add_angular_dim_3p((5, 5), (0, 0), (9, 0), (0, 9)).render()
    space.add_angular_dim_2l((5, 5), ((1, 0), (9, 0)), ((0, 1), (0, 9))).render()
    space.add_ordinate_x_dim((3, 4), (0, 5)).render()


def notes(doc, space):
    if doc.dxfversion == 'AC1009':
        return
    space.add_leader([(0, 0), (5, 5), (9, 5)])
    space.add_mline([(0, 0), (9, 0), (9, 9)])
    space.new_entity('TOLERANCE', {'insert': (0, 0), 'content': '{\\Fgdt;j}%%v0,1', 'dimstyle':
                                   'Standard'})
    image = doc.add_image_def('foto.png', (640, 480))
    space.add_image(image, (1, 1), (6.4, 4.8), 30)
    space.add_wipeout([(0, 0), (5, 0), (5, 5)])


def solids(doc, space):
    space.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 0)])
    space.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)])
    space.add_trace([(0, 0), (1, 0), (0, 1), (1, 1)])
    if doc.dxfversion == 'AC1009':
        return
    with space.add_mesh().edit_data() as mesh:
        mesh.add_face([(0, 0, 0), (1, 0, 0), (1, 1, 1), (0, 1, 0)])
    space.add_helix(2, 1, 3)


def records(doc, space):
    line = space.add_line((0, 0), (1, 1), dxfattribs={'color': 5})
    doc.appids.add('TESTE')
    line.set_xdata('TESTE', [(1000, 'texto'), (1010, (1, 2, 3)), (1040, 2.5), (1071, 7)])
    doc.ucs.add('UCS1').dxf.origin = (1, 2, 3)
    doc.views.add('VISTA').dxf.height = 20
    if doc.dxfversion == 'AC1009':
        return
    doc.groups.new('GRUPO').extend([line])
    doc.layers.add('Plotada', color=3, plot=False).dxf.lineweight = 50
    record = line.new_extension_dict().dictionary.add_xrecord('DADOS')
    record.reset([(1, 'valor'), (40, 2.5), (90, 7)])
    paper = doc.layouts.new('Prancha 2')
    paper.add_text('no papel')
    paper.add_viewport((5, 5), (4, 3), (0, 0), 30)
    if doc.dxfversion >= 'AC1018':
        line.rgb = (12, 34, 56)
        line.transparency = 0.5
        doc.layers.add('Cor', true_color=0x123456)


KINDS = (curves, polylines, texts, blocks, hatches, dimensions, notes, solids, records)


def main(folder):
    for kind in KINDS:
        for release in RELEASES:
            doc = ezdxf.new(release, setup=kind is dimensions)
            doc.layers.add('Eixos', color=1)
            if 'CENTER' not in doc.linetypes:
                doc.linetypes.add('CENTER', [50.8, 31.75, -6.35, 6.35, -6.35])
            kind(doc, doc.modelspace())
            for form in ('asc', 'bin'):
                doc.saveas(Path(folder) / f'{kind.__name__}-{release}-{form}.dxf', fmt=form)


main(sys.argv[1])
