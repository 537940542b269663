"""Pictures of small scenes, compared with the pixels that the scene says."""

import numpy

from frame import BACKGROUND, assert_covers, depth_in, draw


def test_cleared_frame_is_one_colour(talq):
    assert (draw(talq, "") == BACKGROUND).all()


def test_triangle_covers_exactly_its_pixels(talq):
    picture = draw(talq, "gl->SetColor(1, 0, 0, 1);\ngl->Triangles([10, 10, 0, 70, 15, 0, 20, 50, 0]);")
    assert_covers(picture, depth_in([(10, 10), (70, 15), (20, 50)]), (255, 0, 0))


def test_nearer_triangle_hides_the_other_in_either_order(talq):
    near = "gl->SetColor(0, 1, 0, 1);\ngl->Triangles([10, 10, 1, 70, 10, 1, 10, 50, 1]);\n"
    far = "gl->SetColor(1, 0, 0, 1);\ngl->Triangles([0, 0, 0, 80, 0, 0, 0, 60, 0]);\n"
    first, second = draw(talq, near + far), draw(talq, far + near)
    assert (first == second).all()
    assert tuple(first[12, 12]) == (0, 255, 0)
    assert tuple(first[0, 40]) == (255, 0, 0)


def test_face_turned_to_the_light_has_the_computed_colour(talq):
    # The material's ambient 0.5 times the light's 0.1 and OpenGL's own 0.2, and its diffuse colour times the cosine of
    # the 60 degrees by which the given normal is off the light.
    picture = draw(
        talq,
        """
        gl->SetAmbientLightColor(0.1, 0.1, 0.1);
        gl->SetDiffuseLightColor(1, 1, 1);
        gl->EnableLight(true);
        gl->SetLightPosition(0, 0, 100000);
        material = new OglMaterial();
        material->SetAmbient(0.5, 0.5, 0.5, 1);
        material->SetDiffuse(0.8, 0.4, 0.2, 1);
        material->SetSpecular(0, 0, 0, 1);
        gl->SetMaterial(material);
        gl->Triangles([0, 0, 0, 80, 0, 0, 0, 60, 0], [0.8660254, 0, 0.5]);
        """,
    )
    expected = 255 * (0.15 + 0.5 * numpy.array([0.8, 0.4, 0.2]))
    assert numpy.abs(picture[9, 10] - expected).max() <= 2


def test_frame_read_from_a_corner_lies_bottom_up(talq):
    # The script's own bitmap of the read bytes is upright: the triangle in the lower left corner stays there.
    picture = draw(talq, "gl->SetColor(1, 1, 1, 1);\ngl->Triangles([0, 0, 0, 20, 0, 0, 0, 15, 0]);")
    assert tuple(picture[1, 1]) == (255, 255, 255)
    assert tuple(picture[58, 1]) == BACKGROUND
