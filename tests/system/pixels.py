"""Pictures as rows of pixels: screenshots, bitmaps of skins, and what they should be."""

import subprocess


class Pixels:
    """width x height pixels of three bytes each."""

    def __init__(self, width, height, data):
        self.width, self.height, self.data = width, height, data

    @classmethod
    def of_file(cls, path):
        return cls._of_ppm(subprocess.run(["convert", str(path), "-alpha", "off", "-depth", "8", "ppm:-"],
                                          capture_output=True, check=True, timeout=60).stdout)

    @classmethod
    def of_screen(cls, session):
        path = session.directory / "screen.ppm"
        subprocess.run(["import", "-window", "root", "-depth", "8", f"ppm:{path}"], env=session.env, check=True,
                       timeout=60)
        return cls._of_ppm(path.read_bytes())

    @classmethod
    def _of_ppm(cls, content):
        magic, width, height, most, data = cls._header(content)
        assert (magic, most) == (b"P6", b"255"), (magic, most)
        return cls(int(width), int(height), data)

    @staticmethod
    def _header(content):
        fields, at = [], 0
        while len(fields) < 4:
            end = at
            while not content[end:end + 1].isspace():
                end += 1
            fields.append(content[at:end])
            at = end + 1
        return (*fields, content[at:])

    def at(self, x, y):
        start = 3 * (y * self.width + x)
        return self.data[start:start + 3]

    def scaled(self, factor):
        """Each pixel repeated, for a whole factor."""
        rows = []
        for y in range(self.height):
            row = b"".join(self.at(x, y) * factor for x in range(self.width))
            rows.append(row * factor)
        return Pixels(self.width * factor, self.height * factor, b"".join(rows))

    def cut(self, x, y, width, height):
        rows = [self.data[3 * ((y + row) * self.width + x):3 * ((y + row) * self.width + x + width)]
                for row in range(height)]
        return Pixels(width, height, b"".join(rows))

    def write_bmp(self, path):
        """24 bits a pixel."""
        rows = []
        for y in reversed(range(self.height)):
            row = b"".join(self.at(x, y)[::-1] for x in range(self.width))
            rows.append(row + b"\0" * (-len(row) % 4))
        body = b"".join(rows)
        number = lambda value, size: value.to_bytes(size, "little")
        path.write_bytes(b"BM" + number(54 + len(body), 4) + number(0, 4) + number(54, 4) + number(40, 4) +
                         number(self.width, 4) + number(self.height, 4) + number(1, 2) + number(24, 2) +
                         number(0, 24) + body)


def differences(one, other, inside=lambda x, y: True, most=5):
    """The first places where two pictures of one size differ."""
    assert (one.width, one.height) == (other.width, other.height), \
        f"{one.width} x {one.height} against {other.width} x {other.height}"
    found = []
    if one.data == other.data:
        return found
    for y in range(one.height):
        if one.data[3 * y * one.width:3 * (y + 1) * one.width] == other.data[3 * y * one.width:3 * (y + 1) * one.width]:
            continue
        for x in range(one.width):
            if one.at(x, y) != other.at(x, y) and inside(x, y):
                found.append((x, y, one.at(x, y).hex(), other.at(x, y).hex()))
                if len(found) == most:
                    return found
    return found


def inside_polygons(polygons, x, y):
    """Does a place lie in an odd number of polygons?"""
    odd = False
    for polygon in polygons:
        for (x1, y1), (x2, y2) in zip(polygon, polygon[1:] + polygon[:1]):
            if (y1 <= y) != (y2 <= y) and x < x1 + (y - y1) * (x2 - x1) / (y2 - y1):
                odd = not odd
    return odd
