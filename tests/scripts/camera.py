"""The camera of the examples: where in the picture the points of a scene lie."""

import numpy


def project(points, eye, centre, view):
    """Pixel coordinates from the upper left corner, and how many pixels a unit length has there."""
    field, width, height = view
    back = numpy.subtract(eye, centre) / numpy.linalg.norm(numpy.subtract(eye, centre))
    side = numpy.cross([0, 1, 0], back)
    side /= numpy.linalg.norm(side)
    seen = numpy.subtract(points, eye) @ numpy.array([side, numpy.cross(back, side), back]).T
    scale = height / 2 / numpy.tan(numpy.radians(field) / 2) / -seen[:, 2]
    return width / 2 + seen[:, 0] * scale, height / 2 - seen[:, 1] * scale, scale


def orbit_eye(centre, distance, turn, rise):
    """Where the eye of examples/orbit.talq stands; angles in degrees."""
    turn, rise = numpy.radians([turn, rise])
    direction = numpy.array([numpy.sin(turn) * numpy.cos(rise), numpy.sin(rise), numpy.cos(turn) * numpy.cos(rise)])
    return centre + distance * direction
