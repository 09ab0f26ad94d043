"""The sample's page in a browser, for tests."""

import json
import pathlib
import subprocess
import tempfile
import unittest

import browser

ROOT = pathlib.Path(__file__).resolve().parents[2]


class World:
    """Pages that zerbal-map makes of the sample data, and the browser that shows them."""

    def __init__(self, programs, pictures):
        self.programs = programs
        self.pictures = pictures
        folder = tempfile.TemporaryDirectory()
        unittest.addModuleCleanup(folder.cleanup)
        self.scratch = pathlib.Path(folder.name)
        subprocess.run(
            [programs / "zerbal-pack", "build", "--detail", "low", "--pack", ROOT / "pack", "--out", self.scratch / "sample"],
            check=True, stdout=subprocess.DEVNULL)
        self.page = self.make_page("world.html", "--show", "destinations")
        self.browser = unittest.enterModuleContext(browser.Browser())

    def make_page(self, name, *options):
        file = self.scratch / name
        subprocess.run(
            [self.programs / "zerbal-map", "--data", self.scratch / "sample", "--services", "all", "--out", file, *options],
            check=True)
        return file


class PageTest(unittest.TestCase):
    """Each test begins with the page as it is opened, on a screen of 1280 by 900."""

    world = None  # set before the first test

    def setUp(self):
        self.browser = self.world.browser
        self.browser.messages.clear()
        self.browser.resize(**browser.SCREEN)
        self.browser.emulate(prefers_color_scheme="light", prefers_reduced_motion="reduce")
        self.browser.open(self.world.page.as_uri())

    def tearDown(self):
        self.assertEqual(self.browser.messages, [], "the console")

    def run_js(self, expression):
        return self.browser.run(expression)

    def view(self):
        """Left, top, width and height of what is shown, in units of the map."""
        return [float(part) for part in self.run_js("drawing.getAttribute('viewBox')").split()]

    def map_box(self):
        box = self.run_js("(({left, top, width, height}) => [left, top, width, height])(map.getBoundingClientRect())")
        return tuple(box)

    def on_screen(self, x, y):
        """Where a point of the map is on the screen."""
        left, top, width, height = self.map_box()
        view = self.view()
        return left + (x - view[0]) / view[2] * width, top + (y - view[1]) / view[3] * height

    def data(self):
        return json.loads(self.run_js("document.getElementById('data').textContent"))

    def airport(self, code):
        return next(airport for airport in self.data()["airports"] if airport["code"] == code)

    def text(self, selector):
        return self.run_js(f"document.querySelector({json.dumps(selector)})?.innerText ?? ''")

    def tip_lines(self):
        return self.run_js("tip.hidden ? [] : [...tip.children].map(line => line.textContent)")

    def click_on(self, selector):
        box = self.run_js(
            f"(found => {{ found.scrollIntoView({{block: 'center'}});"
            " const {left, top, width, height} = found.getBoundingClientRect();"
            f" return [left + width / 2, top + height / 2]; }})(document.querySelector({json.dumps(selector)}))")
        self.browser.click(*box)

    def screenshot(self, name):
        self.browser.screenshot(self.world.pictures / f"{name}.png")
