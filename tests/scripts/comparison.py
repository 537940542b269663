"""When two pictures are the same, and what a comparison has to see."""

import numpy


class Difference:
    """How far two pictures of one size lie apart, in levels of 0 to 255: on average, by the channel of each pixel that
    differs most, and by the mean colour of the square of pixels that differs most."""

    # Another driver may round colours and edges differently. It does not draw something else, nor elsewhere.
    MEAN = 0.4
    SQUARE = 3
    SIDE = 20  # of a square, which divides all sizes

    def __init__(self, picture, expected):
        difference = picture.astype(numpy.int16) - expected
        rows, columns = (size // self.SIDE for size in expected.shape[:2])
        squares = difference.reshape(rows, self.SIDE, columns, self.SIDE, 3)
        self.mean = numpy.abs(difference).max(axis=2).mean()
        self.square = numpy.abs(squares.mean(axis=(1, 3))).max()

    def is_small(self):
        return self.mean < self.MEAN and self.square < self.SQUARE

    def __str__(self):
        return f"{self.mean:.2f} levels on average, {self.square:.2f} in one square"


def without_a_part(picture):
    """Of an eighth of the width and height where most happens, only one colour is left."""
    rows, columns = (size // 8 for size in picture.shape[:2])
    places = [(slice(row, row + rows), slice(column, column + columns))
              for row in range(0, 8 * rows, rows) for column in range(0, 8 * columns, columns)]
    place = max(places, key=lambda place: picture[place].std())
    broken = picture.copy()
    broken[place] = broken[place][0, 0]
    return broken


def in_another_tint(picture):
    return (picture * [1, 0.98, 1]).astype(numpy.uint8)


def moved_by_a_pixel(picture):
    return numpy.roll(picture, 1, axis=1)


CHANGES = [without_a_part, in_another_tint, moved_by_a_pixel]
