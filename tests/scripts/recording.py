"""A green window whose script prints what it finds of its user's input."""

GREEN = (0, 255, 0)
# Until the window is closed, the statements of REPORT are run for each frame.
RECORD = """
window = new MDC(300, 200, "record");
gl = new TOpenGL();
gl->Open(window);
gl->SetClearColor(0, 1, 0);
last = 0;
wasDown = false;
typed = "";
while (window->Pump(200)) {
  gl->Clear();
  gl->Flush();
  REPORT
}
"""


def record(desktop, report, act):
    """The lines that the script prints of what act(window) does."""
    with desktop.start(RECORD.replace("REPORT", report)) as window:
        window.wait_until(lambda picture: is_green(picture[-1, -1]))
        act(window)
        window.close()
    assert window.exit_code == 0, window.shown()
    return window.stdout.splitlines()


def is_green(pixel):
    return tuple(pixel) == GREEN
