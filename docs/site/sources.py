"""Writes the pages that the site is made from: a copy of each Markdown file of the project, with the reference cut into
a page for each of its groups, and a page for each script or source that one of them links to."""

import os
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
REFERENCE = "docs/reference"
# The pages for engineers, in order; all others are for authors of scripts.
ENGINEERS = [
    *("docs/architecture", "CONTRIBUTING", "docs/testing", "docs/performance", "docs/mutants", "docs/real-host"),
    *("docs/building-on-windows", "CHANGELOG"),
]
# Those for authors that come first and last; between them stand the others by their names.
FIRST = ["docs/tutorial", "docs/how-do-i"]
LAST = ["docs/gallery", REFERENCE, "docs/host-reference", "devhost/README"]
# How the navigation calls a page that is not to have its own heading's name.
TITLES = {"devhost/README": "The language and its host </devhost/README>", "genindex": "Methods from A to Z <genindex>"}
PICTURES = {".png", ".svg", ".jpg"}
LINK = re.compile(r'(\]\(|<img src=")([^)"#]*)(#[^)"]*)?')
FENCED = re.compile(r"(^```.*?^```$)", re.MULTILINE | re.DOTALL)


def slug(heading):
    """The anchor of a heading, as readers of Markdown make it."""
    return re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")


def documents():
    """Each Markdown file that is a page, by the page's name."""
    found = {"index": ROOT / "README.md", "devhost/README": ROOT / "devhost" / "README.md"}
    found |= {name: ROOT / f"{name}.md" for name in ("CONTRIBUTING", "CHANGELOG")}
    return found | {f"docs/{path.stem}": path for path in sorted((ROOT / "docs").glob("*.md"))}


def sections():
    """The navigation: the title of each part, and its pages in order."""
    pages = documents()
    between = [page for page in pages if page not in ["index", *FIRST, *LAST, *ENGINEERS]]
    authors = [page for page in [*FIRST, *between, *LAST] if page in pages]
    return {"For authors of scripts": [*authors, "genindex"], "For engineers": ENGINEERS}


def toctree(pages, caption=""):
    caption = f":caption: {caption}\n" if caption else ""
    lines = [TITLES.get(page, f"/{page}") for page in pages]
    return f"\n```{{toctree}}\n:hidden:\n{caption}\n" + "\n".join(lines) + "\n```\n"


class Reference:
    """docs/reference.md as pages: its introduction, and one for each group."""

    def __init__(self):
        self.introduction, *groups = re.split(r"^(?=## )", (ROOT / f"{REFERENCE}.md").read_text(), flags=re.MULTILINE)
        self.groups = {f"{REFERENCE}/{slug(text.splitlines()[0][3:])}": text for text in groups}
        self.names = re.findall(r"^### (\S+)$", "".join(groups), re.MULTILINE)
        self.page_of = {  # of each heading's anchor
            slug(heading): page
            for page, text in self.groups.items()
            for heading in re.findall(r"^##+ (.+)$", text, re.MULTILINE)
        }

    def text_of(self, page):
        """With each heading one level higher."""
        return re.sub(r"^#(?=##? )", "", self.groups[page], flags=re.MULTILINE)


class Pages:
    """All pages of a folder: their texts by their names."""

    def __init__(self, folder):
        self.root = os.path.relpath(ROOT, folder)  # where pictures are taken from
        self.documents = documents()
        self.reference = Reference()
        self.texts = {}
        self.name_of = {path: name for name, path in self.documents.items()}
        for name, path in self.documents.items():
            self.add(name, self.reference.introduction if name == REFERENCE else path.read_text(), path.parent)
        for name in self.reference.groups:
            self.add(name, self.reference.text_of(name), ROOT / "docs")
        self.texts["index"] += "".join(toctree(pages, title) for title, pages in sections().items())
        self.texts[REFERENCE] += toctree(self.reference.groups)

    def add(self, name, text, folder):
        """Adds the page whose text was written for the folder."""
        parts = FENCED.split(text)
        parts[::2] = [LINK.sub(lambda link: self.link(link, name, folder), part) for part in parts[::2]]
        self.texts[name] = "".join(parts)

    def link(self, link, name, folder):
        """The same link from where the page stands on the site."""
        before, target, anchor = link[1], link[2], link[3] or ""
        if "://" in target:
            return link[0]
        path = (folder / target).resolve() if target else self.documents.get(name, ROOT / f"{REFERENCE}.md")
        page = self.name_of.get(path)
        if page == REFERENCE:
            page = self.reference.page_of.get(anchor[1:], REFERENCE)
            anchor = "" if f"{REFERENCE}/{anchor[1:]}" == page else anchor
        elif path.suffix in PICTURES:
            return f"{before}/{self.root}/{path.relative_to(ROOT)}"
        elif page is None:
            page = self.source_page(path)
        return f"{before}{os.path.relpath(f'{page}.md', pathlib.PurePath(name).parent)}{anchor}"

    def source_page(self, path):
        """The page that shows a source, or those of a folder."""
        name = str(path.relative_to(ROOT))
        files = sorted(path.glob("*.talq")) if path.is_dir() else [path]
        blocks = [f"\n````{file.suffix[1:]}\n{file.read_text()}````\n" for file in files]
        headings = [f"\n## {file.name}\n" if path.is_dir() else "" for file in files]
        self.texts[name] = f"---\norphan: true\n---\n\n# {path.name}\n" + "".join(map("".join, zip(headings, blocks)))
        return name


def write_pages(folder):
    """Writes every page into the folder, leaving those that are the same untouched, and takes away all others."""
    texts = {folder / f"{name}.md": text for name, text in Pages(folder).texts.items()}
    for path in set(folder.rglob("*.md")) - set(texts):
        path.unlink()
    for path, text in texts.items():
        if not path.exists() or path.read_text() != text:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)


if __name__ == "__main__":
    write_pages(pathlib.Path(sys.argv[1]))
