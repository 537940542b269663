"""talq --trace-gl prints the OpenGL calls of the module, one a line, below the line of the script that they come from,
and changes nothing else."""

import pathlib
import re
import subprocess

import numpy
import pefile

ROOT = pathlib.Path(__file__).resolve().parents[2]
MODULE = ROOT / "build" / "windows-cross" / "TalqOpenGL.dll"
FUNCTIONS = ROOT / "devhost" / "gl_trace" / "functions.def"
TRACED_LIBRARIES = {b"opengl32.dll", b"glu32.dll", b"gdi32.dll"}

OPEN = """
device = new MDC(64, 48);
gl = new TOpenGL();
gl->SetViewPort(0, 0, 64, 48);
gl->SetClipping(-2, 2, -1, 1, 2, 50);
gl->SetViewerPos(0, 3, 8, 0, 0, 0, 0, 1, 0);
gl->SetClearColor(0.25, 0.5, 1);
gl->OpenBitmap(device);
"""
BITMAP_FLAGS = "PFD_DRAW_TO_BITMAP | PFD_SUPPORT_GDI | PFD_SUPPORT_OPENGL | PFD_SWAP_COPY"
PLACE = re.compile(r".+:\d+:|outside of calls:")
TRIANGLE = "gl->Triangles([0,0,0, 1.5,0,0, 0,0.1,0], [0,0,1, 0,1,0, 1,0,0]);\n"


def numbered(lines):
    """The lines with each handle, whose value is chance, replaced by #1, #2, ... in the order of appearance."""
    handles = {}
    number = lambda match: handles.setdefault(match.group(), f"#{len(handles) + 1}")
    return [re.sub(r"\b0x[0-9a-f]+\b", number, line) for line in lines]


def trace(talq, script):
    run = talq(script, options=["--trace-gl"])
    assert run.exit_code == 0, run.shown()
    return [line for line in run.stderr.splitlines() if not PLACE.fullmatch(line)]


def calls_of(talq, statements):
    """The calls that the statements make on an open renderer."""
    before = len(trace(talq, OPEN)) - 2  # the end of the script closes the renderer with two calls
    return numbered(trace(talq, OPEN + statements)[before:-2])


def test_opening_and_closing(talq):
    assert numbered(trace(talq, OPEN + "gl->Close();")) == [
        "wglGetCurrentDC() = null",
        "wglGetCurrentContext() = null",
        f"ChoosePixelFormat(#1, {BITMAP_FLAGS}) = 1",
        f"SetPixelFormat(#1, 1, {BITMAP_FLAGS}) = TRUE",
        "wglCreateContext(#1) = #2",
        "wglMakeCurrent(#1, #2) = TRUE",
        "glViewport(0, 0, 64, 48)",
        "glMatrixMode(GL_MODELVIEW)",
        "glLoadIdentity()",
        "gluLookAt(0, 3, 8, 0, 0, 0, 0, 1, 0)",
        "glShadeModel(GL_FLAT)",
        "glFrontFace(GL_CCW)",
        "glDisable(GL_CULL_FACE)",
        "glDepthFunc(GL_LEQUAL)",
        "glEnable(GL_DEPTH_TEST)",
        "glEnable(GL_NORMALIZE)",
        "glHint(GL_POLYGON_SMOOTH_HINT, GL_FASTEST)",
        "glHint(GL_LINE_SMOOTH_HINT, GL_FASTEST)",
        "glMatrixMode(GL_PROJECTION)",
        "glLoadIdentity()",
        "glFrustum(-2, 2, -1, 1, 2, 50)",
        "glMatrixMode(GL_MODELVIEW)",
        "glClearColor(0.25, 0.5, 1, 0)",
        "glClear(GL_DEPTH_BUFFER_BIT)",
        "glDisable(GL_BLEND)",
        "wglMakeCurrent(null, null) = TRUE",
        "wglDeleteContext(#2) = TRUE",
    ]


def test_perspective(talq):
    lines = calls_of(talq, "gl->SetPerspective(90, 2, 1, 100);")
    assert lines[:2] == ["glMatrixMode(GL_PROJECTION)", "glLoadIdentity()"]
    assert lines[3:] == ["glMatrixMode(GL_MODELVIEW)"]
    name, *frustum = re.split(r"[(,)]", lines[2])[:-1]
    assert name == "glFrustum"
    # A single-precision tangent, handed over as a double, with all its digits.
    t = float(numpy.float32(float(frustum[3])))
    assert abs(t - 1) < 1e-5 and float(frustum[3]) == t
    assert [float(number) for number in frustum] == [-2 * t, 2 * t, -t, t, 1, 100]


def test_triangle_with_normals(talq):
    assert calls_of(talq, TRIANGLE) == [
        "glPolygonMode(GL_FRONT_AND_BACK, GL_FILL)",
        "glBegin(GL_TRIANGLES)",
        "glNormal3f(0, 0, 1)",
        "glVertex3f(0, 0, 0)",
        "glNormal3f(0, 1, 0)",
        "glVertex3f(1.5, 0, 0)",
        "glNormal3f(1, 0, 0)",
        "glVertex3f(0, 0.1, 0)",
        "glEnd()",
    ]


def test_material_and_light(talq):
    light = "gl->EnableLight(true); gl->SetLightPosition(-5, 5, 5);"
    lines = calls_of(talq, light + "gl->SetMaterial(new OglMaterial(1, 0.5, 0.25, 1));")
    assert "glLightfv(GL_LIGHT0, GL_POSITION, {-5, 5, 5, 1})" in lines
    assert "glLightfv(GL_LIGHT0, GL_DIFFUSE, {0.8, 0.8, 0.8, 1})" in lines
    # OpenGL reads three numbers of a direction.
    assert [line.count(",") for line in lines if "GL_SPOT_DIRECTION" in line] == [4]
    assert "glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0)" in lines
    assert "glMaterialfv(GL_FRONT, GL_SPECULAR, {1, 1, 1, 1})" in lines
    assert lines[-2:] == ["glMaterialf(GL_FRONT, GL_SHININESS, 60)", "glMaterialf(GL_BACK, GL_SHININESS, 120)"]


def test_fog(talq):
    assert calls_of(talq, "gl->EnableFog(true);") == [
        "glEnable(GL_FOG)",
        "glFogi(GL_FOG_MODE, GL_LINEAR)",
        "glFogf(GL_FOG_DENSITY, 0.01)",
        "glFogfv(GL_FOG_COLOR, {0.2, 0.2, 0.2, 1})",
        "glFogf(GL_FOG_START, 2)",
        "glFogf(GL_FOG_END, 50)",
    ]


def test_display_lists(talq):
    lines = calls_of(talq, "gl->NewList(3); gl->EndList(); gl->CallLists([3, 4]); gl->GenList(2);")
    assert lines == [
        "glNewList(3, GL_COMPILE)",
        "glEndList()",
        "glCallLists(2, GL_INT, {3, 4})",
        "glGenLists(2) = 4",
    ]


def test_what_opengl_answers(talq):
    lines = calls_of(talq, "gl->EnableLight(true); gl->DrawBitmap(0, 0, 0, new MBmp(1, 1));")
    assert "glIsEnabled(GL_COLOR_MATERIAL) = GL_FALSE" in lines
    lines = calls_of(talq, "gl->BeginSelection(10, 10, 4, 4); gl->EndSelection(); gl->GetVersion();")
    for line in (
        "glSelectBuffer(512, ...)",
        "glRenderMode(GL_SELECT) = 0",
        "glGetIntegerv(GL_VIEWPORT, {0, 0, 64, 48})",
        "gluPickMatrix(8, 36, 4, 4, {0, 0, 64, 48})",
        "glGetPointerv(GL_SELECTION_BUFFER_POINTER, ...)",
    ):
        assert line in lines
    assert any(re.fullmatch(r'glGetString\(GL_VERSION\) = "\d.*"', line) for line in lines)


def test_images(talq):
    lines = calls_of(talq, "gl->GetDIBits(1, 2, 3, 4); gl->PutBitmap(0, 0.5, 0, new MBmp(2, 2));")
    assert lines == [
        "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
        "glReadPixels(1, 2, 3, 4, GL_RGB, GL_UNSIGNED_BYTE, ...)",
        "glRasterPos3f(0, 0.5, 0)",
        "glPixelStorei(GL_UNPACK_ALIGNMENT, 1)",
        "glDrawPixels(2, 2, GL_RGB, GL_UNSIGNED_BYTE, ...)",
    ]


def test_solids_are_told_without_what_glu_calls(talq):
    assert calls_of(talq, "gl->Cylinder(1, 0.5, 2, 8, 4);")[1:] == [
        "gluNewQuadric() = #1",
        "gluQuadricDrawStyle(#1, GLU_FILL)",
        "gluQuadricOrientation(#1, GLU_OUTSIDE)",
        "gluCylinder(#1, 1, 0.5, 2, 8, 4)",
        "gluDeleteQuadric(#1)",
    ]


def test_splines_and_their_errors(talq):
    curve = "gl->SplineCurve2D([5, 20, 60, 75], [1, 2, 3, 4], {});\n"
    good, bad = curve.format("[0,0,0,0, 1,1,1,1]"), curve.format("[0,0,0,3, 9,8,7,6]")
    control = "3, {5, 1, 0, 20, 2, 0, 60, 3, 0, 75, 4, 0}, 4, GL_MAP1_VERTEX_3"
    assert calls_of(talq, good) == [
        "gluNewNurbsRenderer() = #1",
        "gluNurbsCallback(#1, GLU_ERROR, ...)",
        "gluBeginCurve(#1)",
        f"gluNurbsCurve(#1, 8, {{0, 0, 0, 0, 1, 1, 1, 1}}, {control})",
        "gluEndCurve(#1)",
        "gluDeleteNurbsRenderer(#1)",
    ]
    # The error is reported from within the call that is shown before it.
    lines = calls_of(talq, "try { " + bad + "} catch (code, text) { }")
    assert lines[3] == f"gluNurbsCurve(#1, 8, {{0, 0, 0, 3, 9, 8, 7, 6}}, {control})"
    assert lines[4] == 'gluErrorString(100254) = "decreasing knot sequence knot"'


def test_surface(talq):
    lines = calls_of(talq, """
row = [0, 1, 2, 3];
knots = [0, 0, 0, 0, 1, 1, 1, 1];
gl->SplineSurface(row, row, [row, row, row, row], knots, knots);
""")
    knots = "8, {0, 0, 0, 0, 1, 1, 1, 1}"
    control = ", ".join(f"{x}, {x}, {z}" for z in (3, 2, 1, 0) for x in (0, 1, 2, 3))
    assert f"gluNurbsSurface(#1, {knots}, {knots}, 3, 12, {{{control}}}, 4, 4, GL_MAP2_VERTEX_3)" in lines
    assert "gluNurbsProperty(#1, GLU_DISPLAY_MODE, GLU_FILL)" in lines


def test_calls_and_prints_are_in_order(tmp_path):
    (tmp_path / "script.talq").write_text(OPEN + 'Print("one"); gl->Flush(); Print("two"); gl->EndList(); Print(3);\n')
    with open(tmp_path / "both", "w+b") as both:
        subprocess.run(
            [ROOT / "run", "--trace-gl", "script.talq"], cwd=tmp_path, stdout=both, stderr=both, check=True
        )
        both.seek(0)
        lines = both.read().decode().splitlines()
    start = lines.index("one")
    assert lines[start - 1] == "glDisable(GL_BLEND)"
    place = "script.talq:9:"
    assert lines[start:-3] == ["one", place, "glFlush()", "glFinish()", "two", "glEndList()", "3"]
    assert lines[-3] == "outside of calls:"


def test_statements_of_the_command_line_are_traced(talq_options):
    run = talq_options("--trace-gl", "-e", "gl = new TOpenGL(); gl->EndList(); Print(5);")
    assert (run.exit_code, run.stdout, run.stderr) == (0, "5\n", "-e:1:\nglEndList()\n"), run.shown()


def test_the_line_stands_before_each_group_of_calls(talq):
    functions = """
function Ends(gl) {
  gl->EndList(); gl->EndList();
  gl->EndList();
}
gl = new TOpenGL();
gl->EndList();
Ends(gl);
gl->EndList();
"""
    run = talq(functions, options=["--trace-gl"])
    expected = [(7, 1), (3, 2), (4, 1), (9, 1)]
    lines = [line for number, calls in expected for line in (f"script.talq:{number}:", *["glEndList()"] * calls)]
    assert [line.rpartition("/")[2].rpartition("\\")[2] for line in run.stderr.splitlines()] == lines, run.shown()


def test_a_filter_leaves_other_calls_out(talq):
    script = OPEN + "gl->EnableLight(true); gl->SetLightPosition(-5, 5, 5); gl->Flush();"
    run = talq(script, options=["--trace-gl=glFrustum,glLight*v,*Finish"])
    assert run.exit_code == 0, run.shown()
    names = [line.partition("(")[0] for line in run.stderr.splitlines() if not PLACE.fullmatch(line)]
    assert names == ["glFrustum", *["glLightfv"] * 5, "glFinish"], run.shown()


def test_a_filter_that_fits_nothing_is_an_error(talq_options):
    run = talq_options("--trace-gl=glFrustum,glLigtf", "-e", "Print(1);")
    assert (run.exit_code, run.stdout) == (1, ""), run.shown()
    assert run.stderr.startswith("talq: No function that can be traced is called 'glLigtf'."), run.shown()
    assert talq_options("--trace-gl=", "-e", "Print(1);").exit_code == 2


def test_the_picture_is_the_same(talq):
    script = OPEN + """
gl->EnableLight(true);
gl->SetMaterial(new OglMaterial(0.9, 0.6, 0.2, 1));
gl->Clear();
gl->Torus(2, 24, 0.8, 24);
gl->SplineCurve2D([-2, -1, 1, 2], [0, 2, -2, 0], [0,0,0,0, 1,1,1,1]);
gl->Flush();
new MBmp(64, 48, gl->GetDIBits(0, 0, 64, 48))->Save("picture.png");
"""
    plain = talq(script).pictures["picture"]
    traced = talq(script, options=["--trace-gl"]).pictures["picture"]
    assert len(numpy.unique(plain.reshape(-1, 3), axis=0)) > 10
    assert numpy.array_equal(plain, traced)


def test_exit_code_and_message_of_a_failure_stay_on_a_window(talq):
    # A bitmap's context does not fit a window.
    script = OPEN + 'gl->BindMDC(new MDC(8, 8, "window"));\n'
    plain = talq(script, window=True)
    traced = talq(script, window=True, options=["--trace-gl"])
    assert plain.exit_code == traced.exit_code == 1
    assert "OGL_CANTBIND_DC: Can't bind Device Context System error #" in plain.stderr
    lines = [line for line in traced.stderr.splitlines() if not PLACE.fullmatch(line)]
    message = plain.stderr.splitlines()
    at = lines.index(message[0])
    assert re.fullmatch(r"wglMakeCurrent\(.*\) = FALSE", lines[at - 1])
    assert lines[at : at + 3] == message
    assert lines[at + 4].startswith("wglDeleteContext(")  # the end of the script goes on being traced


def imported_functions(path):
    image = pefile.PE(str(path))
    return {
        symbol.name.decode()
        for library in image.DIRECTORY_ENTRY_IMPORT
        if library.dll.lower() in TRACED_LIBRARIES
        for symbol in library.imports
    }


def test_every_function_that_the_module_imports_is_in_the_list_and_no_other():
    listed = re.findall(r"^(?:PLAIN\(|SPECIAL\(\w+, )(\w+)", FUNCTIONS.read_text(), re.MULTILINE)
    assert len(listed) > 90 and len(listed) == len(set(listed))
    assert set(listed) == imported_functions(MODULE)


def test_a_module_with_a_function_that_has_no_row_is_refused(talq_options, tmp_path):
    # glScaled exists in OpenGL, but the module does not use it.
    content = MODULE.read_bytes()
    assert content.count(b"glScalef\0") == 1
    (tmp_path / "other.dll").write_bytes(content.replace(b"glScalef\0", b"glScaled\0"))
    assert talq_options("--module", "other.dll", "-e", "Print(1);").exit_code == 0
    run = talq_options("--module", "other.dll", "--trace-gl", "-e", "Print(1);")
    assert (run.exit_code, run.stdout) == (1, "")
    assert run.stderr == "talq: other.dll calls glScaled of OPENGL32.dll, which cannot be traced.\n"
