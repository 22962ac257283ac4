# SPDX-License-Identifier: MIT
"""SVG primitives of the program's pictures: one ink, one paper, few accents, one text face.

Ink and paper are exact values that no accent uses: the view puts the palette's text and base colours in their
place, so that a drawing is legible on a light and on a dark ground. Accents and mid-tones stay as they are.
"""

from xml.sax.saxutils import escape

INK = "#000001"
PAPER = "#FFFFFE"
RED = "#D9483B"
BLUE = "#2E86C1"
AMBER = "#B9770E"
GREY = "#7F8C8D"
WHITE = "#FFFFFF"  # only on a drawing's own coloured ground
COLOURS = {INK, PAPER, RED, BLUE, AMBER, GREY, WHITE}


def number(value):
    return f"{value:.2f}".rstrip("0").rstrip(".")


def element(tag, **attributes):
    words = "".join(
        f' {name.replace("_", "-")}="{number(value) if isinstance(value, (int, float)) else value}"'
        for name, value in attributes.items()
    )
    return f"<{tag}{words}/>"


def stroke(colour, width, dash):
    style = {"fill": "none", "stroke": colour, "stroke_width": width}
    style |= {"stroke_linecap": "round", "stroke_linejoin": "round"}
    return style | ({"stroke_dasharray": dash} if dash else {})


def line(points, colour=INK, width=2, dash=None):
    """An open polyline with round ends through (x, y) points."""
    path = "M" + " L".join(f"{number(x)} {number(y)}" for x, y in points)
    return element("path", d=path, **stroke(colour, width, dash))


def curve(path, colour=INK, width=2, dash=None):
    """An open path given in the path language."""
    return element("path", d=path, **stroke(colour, width, dash))


def area(path, fill, colour="none", width=0, opacity=1):
    """A closed path given in the path language."""
    return element("path", d=path, fill=fill, fill_opacity=opacity, stroke=colour, stroke_width=width,
                   stroke_linejoin="round")


def box(x, y, width, height, radius=0, fill=PAPER, colour=INK, border=2, opacity=1):
    return element("rect", x=x, y=y, width=width, height=height, rx=radius, ry=radius, fill=fill,
                   fill_opacity=opacity, stroke=colour, stroke_width=border)


def disc(x, y, radius, fill=PAPER, colour="none", border=0):
    return element("circle", cx=x, cy=y, r=radius, fill=fill, stroke=colour, stroke_width=border)


def text(x, y, words, size=13, colour=INK, anchor="start", weight="normal"):
    """A line of text whose capitals are centred on y."""
    return (
        f'<text x="{number(x)}" y="{number(y + size * 0.36)}" font-family="sans-serif"'
        f' font-size="{number(size)}" font-weight="{weight}" text-anchor="{anchor}"'
        f' fill="{colour}">{escape(words)}</text>'
    )


def document(title, width, height, shapes):
    """A whole drawing; the title is what a reader of the file or a screen reader gets."""
    head = (
        '<?xml version="1.0" encoding="UTF-8"?>\n<!-- SPDX-License-Identifier: MIT -->\n'
        f'<svg xmlns="http://www.w3.org/2000/svg" version="1.2" baseProfile="tiny"'
        f' width="{width}" height="{height}" viewBox="0 0 {width} {height}">\n'
        f"  <title>{escape(title)}</title>\n"
    )
    return head + "".join(f"  {shape}\n" for shape in shapes) + "</svg>\n"
