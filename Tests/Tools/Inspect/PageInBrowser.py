#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""PageInBrowser.py <lminspect> <root of the project> <folder>: a person uses the page of a journal.

The pages, with 10 and with 2,000 objects and of a journal that means harm, are opened in Chromium, clicked and used by
keyboard, light and dark, narrow and wide. The pictures that it takes stay in the folder. Without Chromium the status is
77: skipped.
"""

import importlib.util
import json
import os
import re
import subprocess
import sys
import unittest

from Browser import SHIFT, Browser, find_program

gProgram, gRoot, gFolder = (os.path.abspath(argument) for argument in sys.argv[1:4])
with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "PageProbes.js"), encoding="utf-8") as gFile:
    gProbes = gFile.read()

HOSTILE = ["</script><script>document.title = 'taken'</script>", "<img src=x onerror=\"document.title = 'taken'\">",
           "a\u2028b\u2029c", "\"'`\\${1}&amp;", "bell\u0007\u001b[2J\u0000", "right\u202eleft", "x" * 5000]

def load_maker():
    path = os.path.join(gRoot, "Tools", "Inspect", "MakeJournal.py")
    spec = importlib.util.spec_from_file_location("MakeJournal", path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def make_page(name, lines, **options):
    journal = os.path.join(gFolder, name + ".journal")
    with open(journal, "w", encoding="utf-8") as file:
        file.write("\n".join(lines) + "\n")
    page = os.path.join(gFolder, name + ".html")
    subprocess.run([gProgram, "page", "-o", page, journal], check=True, **options)
    return page


def make_journal(objects, drags):
    """A journal of so many objects, of which the last is bound to nothing."""
    module = load_maker()
    maker = module.Maker(objects // 3)
    maker.begin()
    for number in range(objects // 3 * 3, objects):
        maker.entry(0, "made", '"object":%s,"role":"store"' % module.thing(number + 1, "Store", "store %d" % number))
    for drag in range(drags):
        maker.drag(drag % (objects // 3))
    maker.entry(0, "end", '"lost":0')
    return maker.lines


def make_hostile():
    known = make_journal(3, 1)[:-1]
    lines = []
    first = len(known) + 1
    for number, text in enumerate(HOSTILE):
        thing = {"id": 50 + number, "class": text, "name": text}
        lines.append({"n": first + 2 * number, "what": "changed", "object": thing, "key": text,
                      "was": {"kind": "string", "value": text[::-1]}, "is": {"kind": "string", "value": text}})
        lines.append({"n": first + 1 + 2 * number, "what": "diagnostic", "file": text, "line": 1, "message": text})
    return known + [json.dumps(dict(line, t=9000000)) for line in lines]


def values_at(lines, number):
    """Each key's value behind the entry with this number: what the page must show, told from the journal itself."""
    values = {}
    for line in lines:
        entry = json.loads(line)
        if entry["n"] > number:
            break
        if entry["what"] == "changed":
            value = entry["is"]["value"]
            values[entry["object"]["name"] + "." + entry["key"]] = json.dumps(value)
    return values


class PageTest(unittest.TestCase):
    def open(self, name, fragment="", **looks):
        gBrowser.show(**{"width": 1440, "height": 900, **looks})
        gBrowser.open(gPages[name], fragment)
        gBrowser.js(gProbes)

    def tearDown(self):
        troubles, gBrowser.troubles = gBrowser.troubles, []
        self.assertEqual(troubles, [])

    def number(self):
        return int(re.match(r"Entry (\d+)", gBrowser.text("#when"))[1])

    def press(self, *keys, modifiers=0):
        for key in keys:
            gBrowser.press(key, modifiers)

    def lit(self):
        return self.texts(".card.lit b")

    def count(self, selector):
        return gBrowser.js(f"document.querySelectorAll({json.dumps(selector)}).length")

    def texts(self, selector):
        return gBrowser.js(f"Array.from(document.querySelectorAll({json.dumps(selector)}), found => found.textContent)")

    def style(self, selector, name):
        return gBrowser.js(f"getComputedStyle(document.querySelector({json.dumps(selector)})).{name}")

    def test_steps_are_taken_by_buttons_and_keys(self):
        self.open("ten", "#entry=60")
        at_first = gBrowser.js("readCards()")
        first = self.number()
        gBrowser.click("#forward")
        second = self.number()
        self.press("ArrowRight")
        third = self.number()
        self.assertLess(first, second)
        self.assertLess(second, third)
        self.press("ArrowLeft")
        self.assertEqual(self.number(), second)
        gBrowser.click("#back")
        self.assertEqual(self.number(), first)
        self.assertEqual(gBrowser.js("readCards()"), at_first)
        self.press("End")
        last = self.number()
        self.press("ArrowRight")
        self.assertEqual(self.number(), last)
        self.press("Home")
        beginning = self.number()
        gBrowser.click("#last")
        self.assertEqual(self.number(), last)
        gBrowser.click("#first")
        self.assertEqual(self.number(), beginning)
        self.assertLess(beginning, first)

    def test_every_value_is_what_the_journal_says(self):
        self.open("ten")
        numbers = [json.loads(line)["n"] for line in gJournals["ten"]]
        for place in (len(numbers) - 1, 3, 100, 40, 41, 200, 199, 60, 300):
            gBrowser.js(f"location.hash = '#entry={numbers[place]}'")
            gBrowser.js("new Promise(done => setTimeout(done, 0))")
            self.assertEqual(self.number(), numbers[place])
            expected = values_at(gJournals["ten"], numbers[place])
            shown = gBrowser.js("readCards()")
            self.assertEqual({key: shown.get(key) for key in expected}, expected)

    def test_a_step_lights_up_what_it_is_about(self):
        self.open("ten")
        self.assertEqual(gBrowser.text("#what .object"), self.lit()[0])
        self.assertEqual(len(self.lit()), 1)
        row = gBrowser.text(".card.lit .key.lit")
        self.assertIn(gBrowser.text("#what .old"), row)
        self.assertIn(gBrowser.text("#what .new"), row)
        self.assertEqual(self.count(".wire.lit"), 1)
        self.assertGreater(self.count(".card.way"), 0)
        gBrowser.picture(os.path.join(gFolder, "TenLight.png"))

    def test_causes_are_followed(self):
        self.open("ten")
        self.assertIn("bound to model", gBrowser.text("#why"))
        self.assertIn("a person dragged the mouse", gBrowser.text("#why .root"))
        last = self.number()
        self.press("c")
        self.assertIn("Transform", gBrowser.text("#what"))
        gBrowser.click("#causes .row")
        self.assertIn("a person dragged the mouse", gBrowser.text("#what"))
        self.assertEqual(self.count("#causes .row.way"), 1)
        self.press("PageDown")
        self.assertEqual(self.number(), last, "the last row of the tree")
        self.press("p")
        self.assertLess(self.number(), last)
        self.press("n")
        self.assertEqual(self.number(), last)
        self.press("ArrowLeft", modifiers=SHIFT)
        self.assertEqual(gBrowser.js("document.querySelector('#causes .row.active').getAttribute('aria-level')"), "1")

    def test_the_slider_is_a_slider(self):
        self.open("ten", "#entry=60")
        gBrowser.js("document.getElementById('slider').focus()")
        number = self.number()
        self.press("ArrowRight")
        self.assertLess(number, self.number())
        self.assertIn(" of ", gBrowser.js("document.getElementById('slider').getAttribute('aria-valuetext')"))
        gBrowser.click("#slider")
        position, count = (int(word) for word in re.findall(r"\d+", gBrowser.text("#position")))
        self.assertAlmostEqual(position / count, 0.5, delta=0.05)

    def test_the_search_finds_objects_keys_and_entries(self):
        self.open("ten")
        self.press("/")
        gBrowser.write("slider 2")
        kinds = self.texts(".hit small")
        self.assertEqual(set(kinds), {"object", "key", "entry"})
        self.press("ArrowDown", "Enter")
        self.assertEqual(gBrowser.text(".card.chosen b"), "slider 2")
        self.assertEqual(self.count("#keys .space .row"), 1, "only its keys are shown")
        self.press("Escape")
        self.assertIsNone(gBrowser.js("document.querySelector('.card.chosen')"))
        self.press("/")
        gBrowser.js("document.getElementById('search').select()")
        gBrowser.write("text 1.value: \"3\"")
        gBrowser.click(".hit")
        self.assertIn('text 1.value "3"', gBrowser.text("#what"))
        self.press("/")
        gBrowser.js("document.getElementById('search').select()")
        gBrowser.write("no such thing")
        self.assertIn("Nothing", gBrowser.text("#hits"))
        self.press("Escape")
        self.assertFalse(gBrowser.js("document.getElementById('hits').checkVisibility()"))

    def test_tables_are_read_and_sorted(self):
        self.open("ten")
        gBrowser.click("#tabKeys")
        self.press("ArrowRight")
        self.assertEqual(gBrowser.js("document.activeElement.id"), "tabObjects")
        self.assertEqual(gBrowser.js("document.getElementById('objects').getAttribute('aria-rowcount')"), "11")
        gBrowser.click("#objects .head .object button")
        gBrowser.click("#objects .head .object button")
        names = self.texts("#objects .space .object")
        self.assertEqual(names, sorted(names, reverse=True))
        gBrowser.click("#objects .space .row")
        self.assertEqual(gBrowser.text(".card.chosen b"), "text 2")
        gBrowser.click("#tabKeys")
        gBrowser.click("#keysNote button")
        self.assertIsNone(gBrowser.js("document.querySelector('.card.chosen')"))
        gBrowser.click("#keys .space .row .link")
        self.assertEqual(str(self.number()), gBrowser.text("#keys .space .row .link"))

    def test_the_graph_is_used_by_keyboard_and_mouse(self):
        self.open("ten")
        gBrowser.js("document.getElementById('graph').focus()")
        self.press("ArrowDown", "ArrowDown", "Enter")
        chosen = gBrowser.text(".card.chosen b")
        self.assertEqual(gBrowser.js("document.activeElement.getAttribute('aria-pressed')"), "true")
        self.assertNotEqual(gBrowser.js("getComputedStyle(document.activeElement).outlineStyle"), "none")
        self.press("Escape")
        gBrowser.click(".card .head")
        self.assertNotEqual(gBrowser.text(".card.chosen b"), chosen)
        width = gBrowser.js("document.getElementById('canvas').offsetWidth")
        self.press("+")
        self.assertGreater(gBrowser.js("document.getElementById('canvas').offsetWidth"), width)
        gBrowser.click("#fit")
        self.assertEqual(gBrowser.js("document.getElementById('canvas').offsetWidth"), width)
        gBrowser.click("#near")
        self.assertLess(self.count(".card"), 10)

    def test_every_entry_can_be_seen(self):
        self.open("ten", "#entry=60")
        _, few = gBrowser.text("#position").split(" of ")
        gBrowser.click("#all")
        _, many = gBrowser.text("#position").split(" of ")
        self.assertEqual(int(many.replace(",", "")), len(gJournals["ten"]))
        self.assertLess(int(few.replace(",", "")), int(many.replace(",", "")))
        self.press("Home")
        self.assertEqual(self.number(), 1)
        self.assertEqual(self.count(".card:not(.absent)"), 0, "nothing is made yet")

    def test_findings_lead_to_their_entries(self):
        self.open("thousands")
        gBrowser.click("#tabFindings")
        number = int(gBrowser.text("#findings li button").split()[1])
        gBrowser.click("#findings li button")
        self.assertEqual(self.number(), number)
        self.assertIn("finding: never-set", gBrowser.text("#mark"))

    def test_the_shortcuts_are_shown(self):
        self.open("ten")
        self.press("?")
        self.assertTrue(gBrowser.js("document.getElementById('keysHelp').open"))
        number = self.number()
        self.press("ArrowLeft")
        self.assertEqual(self.number(), number, "no step behind a dialog")
        self.press("Escape")
        self.assertFalse(gBrowser.js("document.getElementById('keysHelp').open"))

    def test_letters_are_shortcuts_for_who_wants_that(self):
        self.open("ten")
        number = self.number()
        self.press("?")
        gBrowser.click("#letters")
        gBrowser.click("#keysHelp button")
        self.press("c", "p", "/", "?")
        self.assertEqual(self.number(), number)
        self.assertFalse(gBrowser.js("document.getElementById('keysHelp').open"))
        gBrowser.click("#help")
        gBrowser.click("#letters")
        gBrowser.click("#keysHelp button")
        self.press("C")
        self.assertLess(self.number(), number)

    def test_two_thousand_objects_are_few_elements(self):
        self.open("thousands")
        self.assertIn("more than 300 objects", gBrowser.text("#graphNote"))
        gBrowser.click("#tabObjects")
        self.assertEqual(gBrowser.js("document.getElementById('objects').getAttribute('aria-rowcount')"), "2001")
        self.assertLess(self.count("*"), 6000)
        gBrowser.js("document.getElementById('objects').focus()")
        self.press("End")
        self.assertEqual(gBrowser.text("#objects .row.active .object"), "store 1999")
        self.press("Enter")
        self.assertIn("store 1999", self.texts(".card b"))
        self.press("Home", "Escape")
        gBrowser.click("#first")
        before = self.lit()
        times = sorted(gBrowser.js("timeSteps(40)"))
        self.assertNotEqual(self.lit(), before)
        print(f"2,000 objects: a step takes {times[20]:.1f} ms, the slowest of 40 {times[-1]:.1f} ms")
        gBrowser.picture(os.path.join(gFolder, "ThousandsLight.png"))

    def test_an_overview_of_classes_leads_to_their_objects(self):
        self.open("thousands")
        gBrowser.click("#tabObjects")
        self.assertEqual(self.texts("#classes option"), ["3 classes", "LmControlBinding (1,332)",
                                                         "LmKeyValueBinding (666)", "Store (2)"])
        gBrowser.js("document.getElementById('classes').focus()")
        self.press("End")
        self.assertEqual(self.texts("#objects .space .object"), ["store 1998", "store 1999"])
        self.assertIn("2 objects", gBrowser.text("#objectsNote"))
        gBrowser.click("#objects .space .row")
        self.assertEqual(gBrowser.text(".card.chosen b"), "store 1998")
        gBrowser.picture(os.path.join(gFolder, "ThousandsClasses.png"))
        # What is searched for is of any class.
        self.press("/")
        gBrowser.write("slider 77")
        self.press("ArrowDown", "Enter")
        self.assertEqual(gBrowser.text(".card.chosen b"), "slider 77")
        self.assertEqual(gBrowser.text("#objects .row.active .object"), "slider 77")
        self.assertEqual(gBrowser.js("document.getElementById('classes').value"), "")

    def test_a_long_journal_begins_with_how_things_stood(self):
        self.open("long")
        count = len(gJournals["long"])
        notice = f"This page holds the last 20,000; how things stood after the {count - 20000:,} before"
        self.assertIn(notice, gBrowser.text("#notices"))
        gBrowser.click("#all")
        self.press("Home")
        self.assertEqual(self.number(), count - 20000 + 1)
        self.assertEqual(self.count(".card:not(.absent)"), 10)
        expected = values_at(gJournals["long"], count - 20000 + 1)
        self.assertEqual(gBrowser.js("readCards()"), expected)

    def test_without_graphviz_the_page_places_the_objects(self):
        self.open("undrawn")
        self.assertIn("the program dot is not installed", gBrowser.text("#graphNote"))
        boxes = gBrowser.js("""[...document.querySelectorAll(".card")].map(card => {
            const box = card.getBoundingClientRect(); return [box.left, box.top, box.right, box.bottom]; })""")
        self.assertEqual(len(boxes), 10)
        for index, (left, top, right, bottom) in enumerate(boxes):
            for other in boxes[index + 1:]:
                self.assertTrue(right <= other[0] or other[2] <= left or bottom <= other[1] or other[3] <= top)
        self.assertEqual(self.count(".wire"), 6)

    def test_what_means_harm_is_text(self):
        self.open("hostile")
        self.assertNotEqual(gBrowser.js("document.title"), "taken")
        self.assertEqual(self.count("script"), 2)
        self.assertEqual(self.count("img"), 0)
        names = self.texts(".card b")
        for text in HOSTILE[:4]:
            self.assertIn(text, names)
        self.assertIn("bell\\u0007\\u001b[2J\\u0000", names)
        for _ in range(2 * len(HOSTILE)):
            self.press("ArrowLeft")
        self.press("/")
        gBrowser.write("<script>")
        gBrowser.click(".hit")
        self.assertEqual(self.count("script"), 2)
        self.assertNotEqual(gBrowser.js("document.title"), "taken")

    def test_it_is_readable_in_every_light_and_width(self):
        for name, width, height in (("ten", 360, 740), ("ten", 1600, 1000), ("thousands", 1000, 800)):
            for dark in (False, True):
                with self.subTest(dark=dark, name=name, width=width):
                    self.open(name, width=width, height=height, dark=dark)
                    self.assertLessEqual(gBrowser.js("document.scrollingElement.scrollWidth"), width)
                    for tab in ("tabKeys", "tabObjects", "tabFindings") if width == 1600 else ("tabCauses",):
                        gBrowser.click("#" + tab)
                        ratio, where = gBrowser.js("leastContrast()")
                        self.assertGreaterEqual(ratio, 4.5, where)
                        self.assertEqual(gBrowser.js("findNameless()"), [])
                    gBrowser.click("#tabCauses")
                    gBrowser.js("scrollTo(0, 0)")
                    gBrowser.picture(os.path.join(gFolder, f"{name}{width}{'Dark' if dark else 'Light'}.png"))

    def test_nothing_moves_for_who_wants_calm(self):
        self.open("ten", calm=True)
        self.assertEqual(self.style(".wire.lit .line", "animationName"), "none")
        self.open("ten")
        self.assertEqual(self.style(".wire.lit .line", "animationName"), "flow")


if __name__ == "__main__":
    gChromium = find_program()
    if gChromium is None:
        print("SKIPPED: there is no Chromium (Debian's package chromium)")
        sys.exit(77)
    os.makedirs(gFolder, exist_ok=True)
    gJournals = {"ten": make_journal(10, 40), "thousands": make_journal(2000, 300), "hostile": make_hostile(),
                 "long": make_journal(10, 1600)}
    gPages = {name: make_page(name, lines) for name, lines in gJournals.items()}
    gPages["undrawn"] = make_page("undrawn", gJournals["ten"], env={"PATH": "/nowhere"})
    with Browser(gChromium) as gBrowser:
        gTests = unittest.main(argv=sys.argv[:1] + sys.argv[4:], exit=False)
    sys.exit(0 if gTests.result.wasSuccessful() else 1)
