"""How Sphinx makes the site; ./docs-site starts it."""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))

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
html_static_path = ["static"]
html_css_files = ["site.css"]
html_show_sphinx = False
html_copy_source = False
html_show_sourcelink = False
html_domain_indices = False
# Pictures hold every size as they are.
html_scaled_image_link = False


def setup(app):
    # The nearest language whose colours are known.
    app.add_lexer("talq", JavascriptLexer)
