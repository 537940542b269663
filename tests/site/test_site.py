"""The documentation site, made by ./docs-site and opened in a browser from its files, without a server or a network."""

import html.parser
import json
import pathlib
import re
import subprocess
import urllib.parse

import pytest
from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

ROOT = pathlib.Path(__file__).resolve().parents[2]
SITE = ROOT / "build" / "site"
REFERENCE = (ROOT / "docs" / "reference.md").read_text()
DESKTOP, PHONE = (1280, 900), (390, 844)
BROKEN_PICTURES = """
return [...document.images].filter(image => image.complete && !image.naturalWidth).map(image => image.src);
"""
# What of a page's text leaves the window at the right, or scrolls sideways in its place.
TOO_WIDE = """
const scrolls = part => part.scrollWidth > part.clientWidth + 1 && getComputedStyle(part).overflowX !== 'visible';
return [...document.querySelectorAll('article *')]
  .filter(part => part.getBoundingClientRect().right > innerWidth || scrolls(part))
  .map(part => part.tagName + ' ' + part.textContent.slice(0, 40));
"""
pytestmark = pytest.mark.xdist_group("site")


class Page(html.parser.HTMLParser):
    """What a page links to or loads, and the anchors that it has."""

    def __init__(self, path):
        super().__init__()
        self.targets, self.anchors = [], set()
        self.feed(path.read_text())

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.targets += [attributes[name] for name in ("href", "src") if attributes.get(name)]
        self.anchors |= {attributes["id"]} if "id" in attributes else set()


class Browser:
    """Chromium without a window."""

    def __init__(self, profile):
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        # No name is resolved: what a page asked for elsewhere would fail, and is noted.
        for argument in ("headless=new", "no-sandbox", "disable-gpu", "disable-background-networking", "no-first-run",
                         "host-resolver-rules=MAP * ~NOTFOUND", f"user-data-dir={profile}"):
            options.add_argument(f"--{argument}")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)

    def open(self, page, size=DESKTOP, anchor=""):
        width, height = size
        metrics = {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": size == PHONE}
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)
        self.driver.get((SITE / page).as_uri() + anchor)

    def choose(self, theme):
        """Chooses "dark" or "light" for the pages that are opened next."""
        self.run("localStorage.setItem('theme', arguments[0])", theme)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def texts(self, selector):
        return [element.text for element in self.driver.find_elements(By.CSS_SELECTOR, selector)]

    def wait(self, condition):
        return WebDriverWait(self.driver, 20).until(lambda _: condition())

    def requested(self):
        """The addresses that pages asked for since the last call; the browser's own pages are no part of it."""
        events = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        sent = [event["params"]["request"]["url"] for event in events if event["method"] == "Network.requestWillBeSent"]
        return [address for address in sent if not address.startswith("chrome://")]

    def complaints(self):
        return self.driver.get_log("browser")


@pytest.fixture(scope="module")
def pages():
    """The site's pages by their paths, made anew where something has changed."""
    done = subprocess.run([ROOT / "docs-site"], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    assert done.stdout == f"{SITE}/index.html\n"
    return {path: Page(path) for path in sorted(SITE.rglob("*.html"))}


@pytest.fixture(scope="module")
def browser(pages, tmp_path_factory):
    started = Browser(tmp_path_factory.mktemp("profile"))
    yield started
    started.driver.quit()


def test_every_link_and_picture_leads_to_a_file_of_the_site(pages):
    assert len(pages) > 30
    for path, page in pages.items():
        for target in page.targets:
            address = urllib.parse.urlsplit(target)
            if address.scheme:
                continue  # what a page loads is looked at below
            file = (path.parent / urllib.parse.unquote(address.path)).resolve() if address.path else path
            assert file.is_file() and SITE in file.parents, f"{path}: {target}"
            if address.fragment and file in pages:
                assert urllib.parse.unquote(address.fragment) in pages[file].anchors, f"{path}: {target}"


def test_the_navigation_has_every_document(pages):
    targets = {urllib.parse.urlsplit(target).path for target in pages[SITE / "index.html"].targets}
    for document in [*(ROOT / "docs").glob("*.md"), ROOT / "devhost" / "README.md", ROOT / "CONTRIBUTING.md"]:
        assert str(document.relative_to(ROOT).with_suffix(".html")) in targets
    for group in re.findall(r"^## (.+)$", REFERENCE, re.MULTILINE):
        assert f"docs/reference/{group.lower().replace(' ', '-')}.html" in targets


def test_every_page_fits_a_phone_and_asks_for_nothing_but_the_site(pages, browser):
    browser.requested()
    for path in pages:
        browser.open(path, PHONE)
        assert browser.run("return document.documentElement.scrollWidth") <= PHONE[0], path
        assert browser.run(TOO_WIDE) == [], path
        assert browser.run(BROKEN_PICTURES) == [], path
        assert browser.complaints() == [], path
    requested = browser.requested()
    assert len(requested) > len(pages)
    assert [address for address in requested if not address.startswith((SITE.as_uri() + "/", "data:"))] == []


@pytest.mark.parametrize("typed, found", [
    ("SetViewPort", "docs/reference/view.html#topengl-setviewport"),
    ("partialdisk", "docs/reference/solids.html#topengl-partialdisk"),
    ("SetShininess", "docs/reference/class-oglmaterial.html#oglmaterial-setshininess"),
])
def test_search_finds_a_method_that_is_typed(browser, typed, found):
    browser.open("index.html")
    field = browser.driver.find_element(By.CSS_SELECTOR, "input[name=q]")
    field.send_keys(typed)
    field.submit()
    selector = "#search-results li a"
    browser.wait(lambda: browser.texts(selector))
    assert browser.complaints() == []
    first = browser.driver.find_element(By.CSS_SELECTOR, selector).get_attribute("href")
    assert re.sub(r"\?[^#]*", "", first) == f"{SITE.as_uri()}/{found}"
    browser.driver.get(first)
    assert typed.lower() in browser.driver.find_element(By.CSS_SELECTOR, ":target h2, h2:target").text.lower()


def test_the_index_has_every_method_in_order(pages, browser):
    browser.open("genindex.html")
    methods = [name.split("::") for name in re.findall(r"^### (\S+)$", REFERENCE, re.MULTILINE)]
    # What several classes have is listed once, with the classes below it.
    listed = re.findall(r"\S+", " ".join(browser.texts(".indextable")))
    assert {name for name in listed if not name.startswith("(")} == {method for _, method in methods}
    assert sorted(name for name in listed if name.startswith("(")) == sorted(f"({owner})" for owner, _ in methods)
    links = browser.driver.find_elements(By.CSS_SELECTOR, ".indextable a")
    assert len({link.get_attribute("href") for link in links}) == len(links) == len(methods)
    letters = [text for text in browser.texts("section.genindex-section h2") if re.fullmatch("[A-Z]", text)]
    assert letters == sorted(set(letters)) and len(letters) > 10


def test_a_method_in_the_text_leads_to_its_entry(browser):
    browser.open("docs/reference/view.html")
    link = browser.driver.find_element(By.XPATH, "//section[@id='topengl-setperspective']/p//a[code='SetClipping']")
    assert link.get_attribute("href").endswith("view.html#topengl-setclipping")


def test_dark_and_light_differ(browser):
    brightness = []
    for theme in ("dark", "light"):
        browser.open("index.html")
        browser.choose(theme)
        browser.open("index.html")
        colour = browser.run("return getComputedStyle(document.body).backgroundColor")
        brightness.append(sum(map(int, re.findall(r"\d+", colour)[:3])))
    dark, light = brightness
    assert dark < 150 and light > 600


def test_the_button_changes_the_theme(browser):
    browser.open("index.html")
    before = browser.run("return document.body.dataset.theme")
    buttons = browser.driver.find_elements(By.CSS_SELECTOR, "button.theme-toggle")
    next(button for button in buttons if button.is_displayed()).click()
    assert browser.run("return document.body.dataset.theme") != before


def test_help_says_where_the_site_is():
    done = subprocess.run([ROOT / "docs-site", "--help"], capture_output=True, text=True)
    assert done.returncode == 0 and "build/site/index.html" in done.stdout


def test_an_unknown_option_is_refused():
    done = subprocess.run([ROOT / "docs-site", "--nonsense"], capture_output=True, text=True)
    assert (done.returncode, done.stdout) == (1, "")
    assert done.stderr == "error: unknown option --nonsense; see ./docs-site --help\n"
