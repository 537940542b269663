"""Makes each entry of the reference a method that the index and the search know, and each mention of one a link."""

import re

from docutils import nodes
from sphinx.addnodes import index, pending_xref
from sphinx.transforms import SphinxTransform

import sources

NAMES = set(sources.Reference().names)
CLASSES = ("TOpenGL", "OglColor", "OglMaterial")


def name_meant(text, own_class):
    """The method that a text in code style names, `Sphere`, `Sphere(...)` or `TOpenGL::Sphere`; null for none, and for
    the name of a class."""
    called = re.fullmatch(r"(?:gl->)?((?:\w+::)?\w+)(?:\(.*\);?)?", text)
    if not called or called[1] in CLASSES:
        return None
    candidates = [called[1], *(f"{name}::{called[1]}" for name in (own_class, *CLASSES))]
    return next((name for name in candidates if name in NAMES), None)


def identity_of(name):
    """The anchor of a method's entry."""
    return nodes.make_id(name.replace("~", "destroy-").replace("*=", "multiply-assign").replace("*", "multiply"))


class MethodEntries(SphinxTransform):
    default_priority = 400  # before the domains look for index entries and objects

    def apply(self):
        if self.env.docname.startswith(f"{sources.REFERENCE}/"):
            for section in list(self.document.findall(nodes.section)):
                self.enter(section)
        for literal in list(self.document.findall(nodes.literal)):
            self.link(literal)

    def enter(self, section):
        """Puts the section of an entry into the index."""
        name = section[0].astext()
        if name not in NAMES:
            return
        owner, method = name.split("::")
        identity = identity_of(name)
        section["ids"].insert(0, identity)
        section.insert(1, index(entries=[("single", f"{method} ({owner})", identity, "", None)]))
        self.env.get_domain("std").note_object("method", name, identity, location=section)

    def link(self, literal):
        heading = literal.parent
        while heading is not None and not isinstance(heading, nodes.section):
            if isinstance(heading, (nodes.reference, nodes.title, pending_xref)):
                return
            heading = heading.parent
        own_class = heading[0].astext().split("::")[0] if heading is not None else ""
        name = name_meant(literal.astext(), own_class)
        if name is None or (heading is not None and heading[0].astext() == name):
            return
        link = pending_xref("", refdomain="std", reftype="method", reftarget=name, refexplicit=True, refwarn=True)
        literal.replace_self(link)
        link += literal


def setup(app):
    app.add_object_type("method", "method", objname="method")
    app.add_transform(MethodEntries)
    return {"parallel_read_safe": True}
