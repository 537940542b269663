"""How Sphinx makes the site; ./docs-site starts it."""

import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from pygments.lexers.javascript import JavascriptLexer  # noqa: E402

project = "Talq OpenGL module"
extensions = ["myst_parser", "methods"]
root_doc = "index"
# Headings are targets of links, as they are for other readers of Markdown.
myst_heading_anchors = 3
myst_enable_extensions = ["html_image"]
suppress_warnings = ["myst.header"]
highlight_language = "none"
html_theme = "furo"
html_title = project
# Debian's Furo would take this style sheet from a web server.
NORMALIZE = "/usr/share/javascript/normalize.css/normalize.css"
html_static_path = ["static", NORMALIZE]
html_css_files = ["site.css"]
html_search_scorer = str(HERE / "scorer.js")
# Summaries would be read from other pages, which a browser refuses a file.
html_show_search_summary = False
html_show_sphinx = False
html_show_copyright = False
html_copy_source = False
html_show_sourcelink = False
html_domain_indices = False
# Pictures hold every size as they are.
html_scaled_image_link = False


def replace_in(path, old, new):
    path.write_text(path.read_text().replace(old, new))


def make_furo_work_from_files(app, error):
    """A browser refuses a file the import of a module, and has no server's folder."""
    if not error:
        static = pathlib.Path(app.outdir, "_static")
        gumshoe = (static / "scripts" / "gumshoe-patched.js").read_text()
        replace_in(static / "scripts" / "furo.js", 'import Gumshoe from "./gumshoe-patched.js";', gumshoe)
        replace_in(static / "styles" / "furo.css", "url(/javascript/normalize.css/", "url(../")


def setup(app):
    app.connect("build-finished", make_furo_work_from_files)
    # The nearest language whose colours are known.
    app.add_lexer("talq", JavascriptLexer)
