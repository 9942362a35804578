#!/usr/bin/env python3
"""bench/make_drawings.py FOLDER [--most-mb N]: large drawings for the benchmarks, always the same.

Files that exist are kept. The families, each in growing sizes:
  shapes_1m 10m 100m      basic shapes and short paths with presentation attributes
  map_1m 10m 100m         few elements with very long path data
  css_1m 10m              shapes styled by class names alone
  nested_10 100 1000      towers of groups inside groups, about 2 MB each
  groups_1k 10k 100k      groups side by side, each with a transform, a rect and a line
  refs_1k 10k 100k        as many gradients, shapes that are filled with them, and uses of the shapes
"""
import argparse
import pathlib
import random

HEAD = """<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"
 width="1000" height="1000" viewBox="0 0 1000 1000">
"""
TAIL = "</svg>\n"
MEGABYTE = 1000000
PAINTS = ["none", "crimson", "seagreen", "rgb(40,90,200)", "#fa3"] + [
    f"#{(7919 * i * i) % 0x1000000:06x}" for i in range(1, 30)]


class Maker:
    """Random pieces of markup, from one seed for each drawing."""

    def __init__(self, seed):
        self.random = random.Random(seed)

    def number(self, low, high, digits=2):
        return f"{self.random.uniform(low, high):.{digits}f}"

    def numbers(self, count, low=0, high=1000):
        return [self.number(low, high) for _ in range(count)]

    def paint(self):
        return self.random.choice(PAINTS)

    def rect(self):
        x, y = self.numbers(2, 0, 900)
        width, height = self.numbers(2, 1, 100)
        return (f'<rect x="{x}" y="{y}" width="{width}" height="{height}" fill="{self.paint()}" '
                f'stroke="{self.paint()}" stroke-width="{self.number(0.2, 5)}"/>\n')

    def circle(self):
        x, y = self.numbers(2)
        return (f'<circle cx="{x}" cy="{y}" r="{self.number(1, 60)}" fill="{self.paint()}" '
                f'opacity="0.{self.random.randint(1, 9)}"/>\n')

    def ellipse(self):
        x, y = self.numbers(2)
        rx, ry = self.numbers(2, 1, 60)
        return f'<ellipse cx="{x}" cy="{y}" rx="{rx}" ry="{ry}" fill="{self.paint()}"/>\n'

    def line(self):
        x1, y1, x2, y2 = self.numbers(4)
        return (f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" stroke="{self.paint()}" '
                f'stroke-width="{self.number(0.2, 5)}" stroke-linecap="square"/>\n')

    def polygon(self):
        points = " ".join(",".join(self.numbers(2)) for _ in range(9))
        return f'<polygon points="{points}" fill="{self.paint()}" stroke="{self.paint()}"/>\n'

    def path(self):
        steps = [f"M{','.join(self.numbers(2))}"]
        for _ in range(3):
            steps.append(f"L{','.join(self.numbers(2))}")
            steps.append(f"C{' '.join(self.numbers(6))}")
        return f'<path d="{" ".join(steps)}z" fill="{self.paint()}" stroke="{self.paint()}"/>\n'

    def shape(self):
        kinds = (self.rect, self.circle, self.ellipse, self.line, self.polygon, self.path)
        return self.random.choice(kinds)()

    def long_path(self):
        """Path data of a coast line: absolute and relative, lines and curves."""
        command, count, spread = self.random.choice(
            [("L", 2, 1000), ("l", 2, 4), ("C", 6, 1000), ("c", 6, 4)])
        low = 0 if spread == 1000 else -spread
        steps = " ".join(command + " ".join(self.numbers(count, low, spread))
                         for _ in range(self.random.randint(20, 5000)))
        return f'<path d="M{self.number(0, 1000)} {self.number(0, 1000)}{steps}Z" stroke="#345"/>\n'


def repeat_to_size(file, size, pieces, rng):
    """Writes pieces in changing order until the file has the size."""
    written = 0
    while written < size:
        rng.shuffle(pieces)
        for piece in pieces:
            written += file.write(piece)
            if written >= size:
                break


def write_shapes(file, size):
    maker = Maker(11)
    repeat_to_size(file, size, [maker.shape() for _ in range(15000)], maker.random)


def write_map(file, size):
    maker = Maker(12)
    repeat_to_size(file, size, [maker.long_path() for _ in range(150)], maker.random)


def write_css(file, size):
    maker = Maker(13)
    rules = 250
    file.write('<style type="text/css">\n')
    for i in range(rules):
        file.write(f".k{i}{{fill:{maker.paint()};stroke:{maker.paint()};"
                   f"stroke-width:{maker.number(0.2, 5)}}}\n")
    file.write("</style>\n")
    pieces = []
    for _ in range(8000):
        names = " ".join(f"k{maker.random.randrange(rules)}"
                         for _ in range(maker.random.choice([1, 1, 1, 2])))
        pieces.append(f'<rect class="{names}" x="{maker.number(0, 900)}" '
                      f'y="{maker.number(0, 900)}" width="12" height="7.5"/>\n')
    repeat_to_size(file, size, pieces, maker.random)


def write_nested(file, depth):
    maker = Maker(14)
    for _ in range(max(1, 60000 // depth)):
        for level in range(depth):
            file.write(f'<g id="level{level}" stroke="{maker.paint()}">\n')
        file.write(maker.rect())
        file.write("</g>\n" * depth)


def write_groups(file, count):
    maker = Maker(15)
    for i in range(count):
        file.write(f'<g id="group{i}" transform="translate({maker.number(0, 900)} '
                   f'{maker.number(0, 900)}) rotate({maker.number(0, 90)})">\n'
                   f'{maker.rect()}{maker.line()}</g>\n')


def write_rules(file, count):
    """Half as many rules as elements, all of them of one class."""
    maker = Maker(17)
    file.write('<style type="text/css">\n')
    for _ in range(count // 2):
        file.write(f".k{{fill:{maker.paint()};stroke-width:{maker.number(0.2, 5)}}}\n")
    file.write("</style>\n")
    for _ in range(count):
        file.write(f'<rect class="k" x="{maker.number(0, 900)}" y="{maker.number(0, 900)}" '
                   f'width="9" height="7"/>\n')


def write_refs(file, count):
    maker = Maker(16)
    file.write("<defs>\n")
    for i in range(count):
        file.write(f'<linearGradient id="fade{i}" x1="0" y1="0" x2="1" y2="1">'
                   f'<stop offset="0" stop-color="{maker.paint()}"/>'
                   f'<stop offset="1" stop-color="{maker.paint()}"/></linearGradient>\n')
    file.write("</defs>\n")
    for i in range(count):
        file.write(f'<rect id="tile{i}" x="{maker.number(0, 900)}" y="{maker.number(0, 900)}" '
                   f'width="9" height="7" fill="url(#fade{maker.random.randrange(count)})"/>\n')
    for _ in range(count):
        file.write(f'<use xlink:href="#tile{maker.random.randrange(count)}" '
                   f'x="{maker.number(0, 90)}" y="{maker.number(0, 90)}"/>\n')


# Family, size for the writer, name of the size, megabytes of the file.
DRAWINGS = [
    *[(family, write, mb * MEGABYTE, f"{mb}m", mb)
      for family, write, most in (("shapes", write_shapes, 100), ("map", write_map, 100),
                                  ("css", write_css, 10))
      for mb in (1, 10, 100) if mb <= most],
    *[("nested", write_nested, depth, str(depth), 2) for depth in (10, 100, 1000)],
    *[(family, write, count, f"{count // 1000}k", count // 3000)
      for family, write in (("groups", write_groups), ("refs", write_refs),
                            ("rules", write_rules))
      for count in (1000, 10000, 100000)],
]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--most-mb", type=int, default=100, help="leave out larger drawings")
    options = parser.parse_args()
    options.folder.mkdir(parents=True, exist_ok=True)
    for family, write, size, name, megabytes in DRAWINGS:
        target = options.folder / f"{family}_{name}.svg"
        if megabytes > options.most_mb or target.exists():
            continue
        unfinished = target.with_suffix(".part")
        with unfinished.open("w", newline="\n") as file:
            file.write(HEAD)
            write(file, size)
            file.write(TAIL)
        unfinished.rename(target)
        print(target)


if __name__ == "__main__":
    main()
