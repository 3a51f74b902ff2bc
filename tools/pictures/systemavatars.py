#!/usr/bin/env python3
"""Draws the system pictures' SVG sources: twelve animals and twelve people, each a
row of a table over a few shared shapes. Usage: systemavatars.py SVG-FOLDER XML-FILE
"""
import pathlib
import sys

SIDE = 200
DARK = "#3A2E2B"


def circle(x, y, r, fill):
    return f'<circle cx="{x:g}" cy="{y:g}" r="{r:g}" fill="{fill}"/>'


def ellipse(x, y, rx, ry, fill):
    return f'<ellipse cx="{x:g}" cy="{y:g}" rx="{rx:g}" ry="{ry:g}" fill="{fill}"/>'


def path(d, fill):
    return f'<path d="{d}" fill="{fill}"/>'


def stroke(d, color, width=2.6):
    return (f'<path d="{d}" fill="none" stroke="{color}" stroke-width="{width:g}"'
            ' stroke-linecap="round" stroke-linejoin="round"/>')


def mirrored(shape):
    """The shape and its mirror image about the vertical middle."""
    return shape + f'\n<g transform="translate(120 0) scale(-1 1)">{shape}</g>'


EARS = {
    "round": lambda fur, inner: circle(35, 38, 14, fur) + circle(35, 38, 7.5, inner),
    "big": lambda fur, inner: circle(27, 52, 19, fur) + circle(28, 53, 11.5, inner),
    "pointed": lambda fur, inner: path("M28 58L31 22 58 40z", fur) + path("M34 47L36 31 48 39z", inner),
    "floppy": lambda fur, inner: path("M42 34C24 30 16 48 20 70c2 8 12 8 14 0 2-12 4-20 12-26z", inner),
    "long": lambda fur, inner: ellipse(44, 26, 10, 25, fur) + ellipse(44, 28, 5, 18, inner),
    "tuft": lambda fur, inner: path("M30 44L28 22 50 34z", fur),
    "none": lambda fur, inner: "",
}

# What an animal has besides ears, head, eyes and nose; drawn over the head.
EXTRAS = {
    "muzzle": lambda light: ellipse(60, 76, 19, 15, light),
    "mask": lambda light: path("M28 62c8 2 22 2 32 14 10-12 24-12 32-14-1 22-14 38-32 38S29 84 28 62z", light),
    "patches": lambda light: mirrored(ellipse(46, 60, 9.5, 11.5, DARK)) + ellipse(60, 77, 14, 10, light),
    "stripes": lambda light: ellipse(60, 78, 18, 13, light) + mirrored(
        stroke("M30 62l9 2M31 72l8-1", DARK, 3.4)) + stroke("M60 34v10M51 36l2 7M69 36l-2 7", DARK, 3.4),
    "belly": lambda light: path("M60 50c-8-12-30-6-27 15 2 18 14 32 27 32s25-14 27-32c3-21-19-27-27-15z", light),
    "discs": lambda light: mirrored(circle(46, 62, 16.5, light)),
    "snout": lambda light: ellipse(60, 76, 16, 11.5, light) + mirrored(ellipse(54.5, 76, 2.6, 4, DARK)),
    "wide": lambda light: ellipse(60, 80, 30, 17, light),
}

NOSES = {
    "nose": path("M53.5 69.5h13L60 77z", DARK) + stroke("M60 77v4M52 82c3 4 6 4 8-1 2 5 5 5 8 1", DARK, 2.2),
    "koala": ellipse(60, 70, 7.5, 11, DARK) + stroke("M53 87c4 4 10 4 14 0", DARK, 2.2),
    "beak": path("M50 70h20L60 84z", "#F5A623"),
    "smile": stroke("M48 80c6 8 18 8 24 0", DARK, 2.6),
    "grin": stroke("M40 78c10 12 30 12 40 0", DARK, 2.8),
}

ANIMALS = [
    # ground, ears, fur, inner ear, extra, light, nose
    ("#FFD98E", "pointed", "#F2994A", "#FFE3C7", "muzzle", "#FFF3E4", "nose"),     # cat
    ("#A8D8F0", "floppy", "#E7C08D", "#A9713F", "muzzle", "#FBEBD5", "nose"),      # dog
    ("#CDE7B0", "round", "#9C6B45", "#D9A679", "muzzle", "#E8C9A4", "nose"),       # bear
    ("#F7C6D9", "long", "#FFFFFF", "#F6A9C4", "muzzle", "#FDEDF3", "nose"),        # rabbit
    ("#BFE3D6", "pointed", "#E8743B", "#5A3324", "mask", "#FFF1E3", "nose"),       # fox
    ("#B9E4C9", "round", "#3A3A44", "#3A3A44", "patches", "#F0F0F0", "nose"),      # panda
    ("#D9CCF2", "big", "#9AA5B8", "#E9C9D6", "muzzle", "#B9C2D1", "koala"),        # koala
    ("#9CC7F5", "none", "#34405C", "#34405C", "belly", "#FFFFFF", "beak"),         # penguin
    ("#F3D9B8", "tuft", "#8C6A4F", "#8C6A4F", "discs", "#F8E7CF", "beak"),         # owl
    ("#FFE7A0", "none", "#6CBF5A", "#6CBF5A", "wide", "#A6DE92", "grin"),          # frog
    ("#BFE8EE", "tuft", "#F6A5B5", "#F6A5B5", "snout", "#FBC6D0", "smile"),        # pig
    ("#C5E0B4", "round", "#F5A742", "#FFE1B0", "stripes", "#FFF3DF", "nose"),      # tiger
]


def animal(ground, ears, fur, inner, extra, light, nose):
    head = "#FFFFFF" if extra == "patches" else fur
    shapes = [f'<rect width="120" height="120" fill="{ground}"/>', ellipse(60, 122, 40, 24, fur),
              mirrored(EARS[ears](fur, inner)) if EARS[ears](fur, inner) else "",
              ellipse(60, 66, 36, 34, head)]
    eye = circle(46, 61, 4.4, DARK) + circle(47.4, 59.4, 1.4, "#FFFFFF")
    if extra == "wide":  # a frog's eyes stand on its head
        eye = circle(40, 38, 12.5, fur) + circle(40, 38, 8, "#FFFFFF") + circle(41, 38, 4.4, DARK)
    elif extra == "patches":
        eye = circle(48, 58.6, 2.4, "#FFFFFF")
    shapes += [EXTRAS[extra](light), mirrored(eye), "" if extra == "snout" else NOSES[nose]]
    if extra == "snout":
        shapes.append(stroke("M51 92c5 4 13 4 18 0", DARK, 2.4))
    return shapes


HAIR_BACK = {
    "long": lambda c: path("M33 56a27 27 0 0 1 54 0v36H33z", c),
    "bob": lambda c: path("M33 54a27 27 0 0 1 54 0v20a7 7 0 0 1-7 7H40a7 7 0 0 1-7-7z", c),
    "bun": lambda c: circle(60, 22, 11, c),
    "tails": lambda c: mirrored(ellipse(29, 62, 9, 17, c)),
    "curls": lambda c: "".join(circle(x, y, 12, c) for x, y in
                               ((38, 54), (38, 40), (48, 30), (60, 27), (72, 30), (82, 40), (82, 54))),
}
FRINGE = "M36 56c-2-18 9-29 24-29s26 11 24 29c-4-3-6-8-8-13-10 4-24 4-32-1-2 6-4 11-8 14z"
SHORT = "M36.5 55c-1-17 8-28 23.5-28S84.5 38 83.5 55c-2-6-4-10-7-12H43.5c-3 2-5 6-7 12z"
SWEPT = "M36 55c-3-19 10-29 26-28 15 0 24 11 22 28-3-4-6-8-7-12-14 2-24-1-31-5-3 6-6 11-10 17z"
HAIR_FRONT = {
    "long": lambda c: path(SWEPT, c),
    "bob": lambda c: path(FRINGE, c),
    "bun": lambda c: path(SHORT, c),
    "tails": lambda c: path(FRINGE, c),
    "curls": lambda c: path("M36.5 54c0-18 10-26 23.5-26s23.5 8 23.5 26c-6-13-41-13-47 0z", c),
    "short": lambda c: path(SHORT, c),
    "swept": lambda c: path(SWEPT, c),
    "cap": lambda c: path("M36 48a24 23 0 0 1 48 0z", c) + path("M34 46h38a26 8 0 0 1 20 6H34z", "#FFFFFF"),
    "beanie": lambda c: path("M36 44a24 22 0 0 1 48 0z", c) + circle(60, 19, 6, "#FFFFFF")
    + '<rect x="33" y="41" width="54" height="9" rx="4.5" fill="#FFFFFF"/>',
    "scarf": lambda c: path("M60 24c-19 0-29 14-29 32 0 20 8 34 16 42h26c8-8 16-22 16-42 0-18-10-32-29-32z"
                            "M60 36c12 0 19 8 19 20 0 13-8 22-19 22s-19-9-19-22c0-12 7-20 19-20z", c),
    "grey": lambda c: path("M36 58c-3-8-2-14 2-18 1 6 1 10-2 18zM84 58c3-8 2-14-2-18-1 6-1 10 2 18z", c),
}
FACE = {
    "plain": "",
    "glasses": mirrored('<circle cx="50.5" cy="57" r="7.4" fill="none" stroke="#33415C" stroke-width="2.4"/>')
    + stroke("M58 56.5c1-1 3-1 4 0", "#33415C", 2.4),
    "beard": path("M38 60c0 4 1 5 3 6 6-3 12-1 19-1s13-2 19 1c2-1 3-2 3-6 1 18-9 28-22 28S37 78 38 60z", "#5B3A26"),
    "freckles": mirrored(circle(45, 65, 1.2, "#C98A5E") + circle(48.5, 67, 1.2, "#C98A5E")),
}

PEOPLE = [
    # ground, skin, hair, its colour, face, clothes
    ("#BFD7FF", "#F6CDA8", "short", "#3B2B26", "plain", "#2F6FED"),
    ("#FFD6C2", "#FBD9BD", "long", "#6B3F2A", "plain", "#E5637D"),
    ("#C9EBD9", "#D79B6D", "curls", "#2E2320", "plain", "#F0A63A"),
    ("#E6D8FA", "#FBD9BD", "bob", "#2B2430", "glasses", "#7B61D9"),
    ("#FFE7AE", "#E8B48A", "swept", "#7A4A25", "beard", "#3E7C6B"),
    ("#BFE8EE", "#8D5A3C", "bun", "#1F1A1A", "plain", "#F4C542"),
    ("#FBD0DA", "#F6CDA8", "tails", "#C9803C", "freckles", "#47A6C9"),
    ("#D2E4C4", "#C98A5E", "cap", "#E5534B", "plain", "#40516B"),
    ("#C7D3E6", "#F6CDA8", "grey", "#E4E7EC", "glasses", "#5C6F8F"),
    ("#F7DFC3", "#B97A50", "scarf", "#2FA59A", "plain", "#237F77"),
    ("#CFE3FF", "#FBD9BD", "beanie", "#F08A3C", "freckles", "#4B6CB7"),
    ("#E3F1C8", "#96633F", "short", "#1B1716", "glasses", "#D95C4A"),
]


def person(ground, skin, hair, color, face, clothes):
    eye = circle(50.5, 57, 2.9, DARK)
    shapes = [f'<rect width="120" height="120" fill="{ground}"/>',
              HAIR_BACK[hair](color) if hair in HAIR_BACK else "",
              path("M16 122c0-22 18-32 44-32s44 10 44 32z", clothes),
              f'<rect x="51" y="74" width="18" height="22" rx="9" fill="{skin}"/>',
              "" if hair == "scarf" else mirrored(circle(37, 58, 5, skin)),
              ellipse(60, 55, 24, 26.5, skin)]
    cheek = circle(44.5, 65, 3.6, "#FF8F8F").replace("/>", ' fill-opacity="0.35"/>')
    shapes += [mirrored(cheek), FACE[face], mirrored(eye),
               stroke("M53 69.5c4 4.5 10 4.5 14 0",
                      "#FFFFFF" if face == "beard" else DARK, 2.4)]
    shapes += [HAIR_FRONT[hair](color)]
    return shapes


def main():
    folder, listing = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    folder.mkdir(parents=True, exist_ok=True)
    pictures = [person(*row) for row in PEOPLE] + [animal(*row) for row in ANIMALS]
    for number, shapes in enumerate(pictures, 1):
        lines = "\n".join(line for shape in shapes if shape for line in
                          ("    " + shape.replace("/><", "/>\n<").replace("\n", "\n    ")).split("\n"))
        (folder / f"{number}.svg").write_text(
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{SIDE}" height="{SIDE}"'
            f' viewBox="0 0 120 120">\n{lines}\n</svg>\n', encoding="utf-8")
    names = "".join(f"    <avatar>{n}.png</avatar>\n" for n in range(1, len(pictures) + 1))
    listing.parent.mkdir(parents=True, exist_ok=True)
    listing.write_text(f'<?xml version="1.0" encoding="utf-8"?>\n<avatars>\n{names}</avatars>\n',
                       encoding="utf-8")


if __name__ == "__main__":
    main()
