"""Draws the comparison as an SVG file: the plugin's share of what the other side takes."""

from xml.sax.saxutils import escape

ROW = 52
LEFT = 16
WIDTH = 640
BAR = 440

HEAD = '''<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" \
viewBox="0 0 {width} {height}" font-family="sans-serif" font-size="13">
<rect width="100%" height="100%" fill="#ffffff"/>
'''


def number(value):
    return f'{value:.0f}' if value >= 100 else f'{value:.1f}'


def row(top, name, own, other, unit, ratio, goal):
    y = top + 22
    texts = escape(f'{name}: {number(own)} {unit} of {number(other)} {unit}')
    return f'''<text x="{LEFT}" y="{top + 14}" fill="#222222">{texts}</text>
<rect x="{LEFT}" y="{y}" width="{BAR}" height="14" fill="#d9dde3"/>
<rect x="{LEFT}" y="{y}" width="{min(BAR, ratio * BAR):.1f}" height="14" fill="#2060c0"/>
<line x1="{LEFT + goal * BAR:.1f}" y1="{y - 3}" x2="{LEFT + goal * BAR:.1f}" y2="{y + 17}" \
stroke="#c03020" stroke-width="2"/>
<text x="{LEFT + BAR + 12}" y="{y + 12}" fill="#222222">{100 * ratio:.1f} %, goal {100 * goal:.1f} %</text>
'''


def write_plot(path, rows):
    """Draws the rows whose goal is a share of the other side."""
    shares = [each for each in rows if each[5] < 1]
    height = ROW * len(shares) + 36
    with open(path, 'w', encoding='utf-8') as file:
        file.write(HEAD.format(width=WIDTH, height=height))
        for index, each in enumerate(shares):
            file.write(row(8 + ROW * index, *each))
        file.write(f'<text x="{LEFT}" y="{height - 12}" fill="#666666">'
                   'Blue: the plugin. Grey: the other side. Red: the goal.</text>\n</svg>\n')
