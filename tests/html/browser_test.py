#!/usr/bin/env python3
"""Opens pages of `qvlmms html` in a browser and plays them.

    browser_test.py QVLMMS FIXTURES FOLDER

Opens a page of all fixtures, and one of messages that try to run scripts. Nothing may be loaded, no
script of a message may run, and the console stays empty. Writes screenshots to FOLDER. Needs Chromium
and its driver; without them the test is skipped, or fails if CI is set in the environment.
"""
import base64
import contextlib
import json
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.request

FAILED = 1
SKIPPED = 77
PROGRAM, FIXTURES, FOLDER = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
DRIVER = shutil.which("chromedriver")

SPACE = "\ue00d"
RIGHT = "\ue014"
ATTACK = ("</title></script><script>window.pwned=1;document.title='pwned'</script>"
          "<img src=x onerror=\"window.pwned=2\">\"onload=\"window.pwned=3\" '"
          "onerror='window.pwned=4'javascript:window.pwned=5")


class Driver:
    """A browser, steered by WebDriver."""

    def __init__(self, profile):
        port = free_port()
        self.url = f"http://127.0.0.1:{port}"
        self.process = subprocess.Popen([DRIVER, f"--port={port}"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        self.wait_for_driver()
        arguments = ["--headless=new", "--disable-gpu", "--no-first-run", "--mute-audio",
                     f"--user-data-dir={profile}", "--window-size=1000,1400",
                     "--autoplay-policy=no-user-gesture-required"]
        if os.geteuid() == 0:
            arguments.append("--no-sandbox")
        created = self.call("POST", "/session", {"capabilities": {"alwaysMatch": {
            "browserName": "chrome", "goog:chromeOptions": {"args": arguments},
            "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}}})
        self.session = f"/session/{created['sessionId']}"

    def wait_for_driver(self):
        for _ in range(100):
            with contextlib.suppress(OSError):
                if self.call("GET", "/status", None)["ready"]:
                    return
            time.sleep(0.1)
        raise RuntimeError("the driver does not start")

    def call(self, method, path, content):
        data = None if content is None else json.dumps(content).encode()
        request = urllib.request.Request(self.url + path, data, method=method,
                                         headers={"Content-Type": "application/json"})
        with urllib.request.urlopen(request, timeout=60) as answer:
            return json.load(answer)["value"]

    def do(self, method, path, content=None):
        return self.call(method, self.session + path, {} if content is None and method == "POST"
                         else content)

    def open(self, page):
        self.do("POST", "/url", {"url": page.as_uri()})

    def run(self, script):
        return self.do("POST", "/execute/sync", {"script": script, "args": []})

    def press(self, key):
        self.do("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": [
            {"type": "keyDown", "value": key}, {"type": "keyUp", "value": key}]}]})

    def log(self, kind):
        return self.do("POST", "/se/log", {"type": kind})

    def requested(self):
        """The addresses that were requested since the last call."""
        addresses = []
        for entry in self.log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                addresses.append(message["params"]["request"]["url"])
        return addresses

    def screenshot(self, path):
        path.write_bytes(base64.b64decode(self.do("GET", "/screenshot")))

    def quit(self):
        with contextlib.suppress(OSError):
            self.do("DELETE", "")
        self.process.terminate()
        self.process.wait()


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def uintvar(number):
    octets = bytes([number & 0x7F])
    while number := number >> 7:
        octets = bytes([0x80 | number & 0x7F]) + octets
    return octets


def part(content_type, name, data):
    """A part whose type, name and Content-ID are texts."""
    media = content_type.encode() + b"\0"
    headers = b"\x8e" + name.encode() + b"\0" + b"\xc0\"<" + name.encode() + b">\0"
    length = len(media) + len(headers)
    return uintvar(length) + uintvar(len(data)) + media + headers + data


def hostile_message():
    """A message with the attack in every text, name, address and type."""
    attack = ATTACK.encode()
    text = b"\xea" + attack + b"\0"
    encoded = b"\x1f" + uintvar(len(text)) + text
    header = (b"\x8c\x84" + b"\x98" + attack + b"\0" + b"\x8d\x90" + b"\x96" + encoded
              + b"\x97" + attack + b"/TYPE=PLMN\0" + b"\x8b" + attack + b"\0"
              + b"X-" + attack + b"\0" + attack + b"\0" + b"\x84\xa3")
    svg = f"<svg xmlns='http://www.w3.org/2000/svg'><script>{ATTACK}</script></svg>".encode()
    parts = [part("text/plain", ATTACK, attack), part(f"image/{ATTACK}", "a" + ATTACK, attack),
             part("image/svg+xml", "b.svg", svg), part("text/html", "c.html", attack),
             part("audio/" + ATTACK, "d" + ATTACK, attack)]
    return header + bytes([len(parts)]) + b"".join(parts)


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.work = pathlib.Path(cls.folder.name)
        cls.driver = Driver(cls.work / "profile")
        cls.addClassCleanup(cls.folder.cleanup)
        cls.addClassCleanup(cls.driver.quit)
        FOLDER.mkdir(parents=True, exist_ok=True)

    def write(self, out, *messages):
        subprocess.run([PROGRAM, "html", *messages, "-o", out], check=True, stdout=subprocess.DEVNULL,
                       env=os.environ | {"XDG_RUNTIME_DIR": str(self.work)})

    def page_of(self, *messages):
        page = self.work / f"{self.id()}.html"
        self.write(page, *messages)
        return self.opened(page)

    def opened(self, page):
        self.driver.requested()
        self.driver.log("browser")
        self.driver.open(page)
        return page

    def assert_quiet(self, page):
        allowed = (page.as_uri(), "data:", "blob:", "chrome://")  # the browser's own pages
        self.assertEqual([address for address in self.driver.requested()
                          if not address.startswith(allowed)], [])
        self.assertEqual(self.driver.log("browser"), [])

    def stage(self, script):
        return self.driver.run(f"const stage = document.querySelector('.stage'); {script}")

    def current(self):
        return self.stage("return [...stage.querySelectorAll('.slide')]"
                          ".findIndex(slide => slide.classList.contains('current'))")

    def test_page_of_all_fixtures_loads_nothing_and_runs_without_errors(self):
        page = self.page_of(*sorted(FIXTURES.glob("*/*.mms")))
        shown = self.driver.run("return document.querySelectorAll('article').length")
        self.assertEqual(shown, len(list(FIXTURES.glob("*/*.mms"))))
        self.driver.screenshot(FOLDER / "fixtures.png")
        self.assert_quiet(page)

    def test_an_index_shows_the_first_slides_and_leads_to_the_messages(self):
        message = self.work / "hostile.mms"
        message.write_bytes(hostile_message())
        page = self.page_of(FIXTURES / "messages" / "related.mms", FIXTURES / "messages" / "notification.mms",
                            message)
        entries = self.driver.run("return [...document.querySelectorAll('.index li')].map(entry => "
                                  "[entry.querySelector('a').hash, entry.innerText])")
        self.assertEqual([address for address, _ in entries], ["#m1", "#m2", "#m3"])
        for text in ("Grüße aus Küstrin", "To +4915187654321", "2004-07-16 ", "ok"):
            self.assertIn(text, entries[0][1])
        self.assertIn("m-notification-ind", entries[1][1])
        self.assertIn("To " + ATTACK[:30], entries[2][1])
        self.assertEqual(self.driver.run(
            "const image = document.querySelector('.index img');"
            "return image.decode().then(() => [image.naturalWidth, image.naturalHeight])"), [120, 160])
        self.driver.run("document.querySelectorAll('.index a')[1].click()")
        self.assertTrue(self.driver.run("return document.querySelector(':target h2').innerText")
                        .startswith("Photos"))
        self.assertIsNone(self.driver.run("return window.pwned ?? null"))
        self.assert_quiet(page)

    def test_pages_of_a_folder_lead_to_each_other(self):
        folder = self.work / "pages"
        folder.mkdir()
        self.write(folder, FIXTURES / "messages" / "related.mms", FIXTURES / "messages" / "mixed.mms")
        self.opened(folder / "index.html")
        titles = []
        for link in (".index a", ".neighbors a:last-child", ".neighbors a:last-child", ".neighbors a"):
            self.driver.run(f"document.querySelector('{link}').click()")
            titles.append(self.driver.run("return document.title"))
        self.assertEqual(titles, ["Message 1", "Message 2", "Message 1", "Multimedia messages"])
        self.assert_quiet(folder)

    def test_one_message_has_no_index(self):
        self.page_of(FIXTURES / "messages" / "related.mms")
        self.assertIsNone(self.driver.run("return document.querySelector('.index')"))

    def test_a_key_starts_the_slides_and_another_one_shows_the_next(self):
        page = self.page_of(FIXTURES / "messages" / "related.mms")
        self.assertEqual(self.current(), 0)
        self.stage("stage.focus()")
        self.driver.press(RIGHT)
        self.assertEqual(self.current(), 1)
        self.stage("stage.focus()")
        self.driver.press(SPACE)
        self.assertEqual(self.stage("return stage.dataset.state"), "playing")
        self.driver.screenshot(FOLDER / "playing.png")
        self.assert_quiet(page)

    def test_slides_last_as_long_as_the_presentation_says(self):
        page = self.page_of(FIXTURES / "messages" / "related.mms")
        self.stage("stage.focus()")
        durations = self.stage("return [...stage.querySelectorAll('.slide')]"
                               ".map(slide => Number(slide.dataset.duration))")
        self.assertEqual(durations, [4000, 2500])
        self.driver.press(SPACE)
        started = time.monotonic()
        while self.current() == 0 and time.monotonic() < started + 8:
            time.sleep(0.05)
        self.assertAlmostEqual(time.monotonic() - started, 4, delta=1)
        self.assert_quiet(page)

    def test_pictures_and_texts_of_the_slides_are_visible(self):
        self.page_of(FIXTURES / "messages" / "related.mms")
        picture = self.stage("const image = stage.querySelector('.current img');"
                             "return [image.complete, image.naturalWidth > 0]")
        self.assertEqual(picture, [True, True])
        self.assertIn("Grüße aus dem Hafen",
                      self.stage("return stage.querySelector('.current .text').innerText"))

    def test_no_script_of_a_message_runs(self):
        message = self.work / "hostile.mms"
        message.write_bytes(hostile_message())
        page = self.page_of(message)
        self.stage("if (stage) stage.focus()")
        self.driver.press(SPACE)
        time.sleep(0.3)
        self.assertIsNone(self.driver.run("return window.pwned ?? null"))
        self.assertEqual(self.driver.run("return document.title"), "Multimedia messages")
        self.assertEqual(self.driver.run("return document.scripts.length"), 1)
        self.assertIn("<script>", self.driver.run("return document.body.innerText"))
        self.driver.screenshot(FOLDER / "hostile.png")
        self.assert_quiet(page)

    def test_texts_make_no_links(self):
        message = self.work / "hostile.mms"
        message.write_bytes(hostile_message())
        self.page_of(message)
        links = self.driver.run("return [...document.links].map(link => link.href.slice(0, 37))")
        self.assertEqual(set(links), {"data:application/octet-stream;base64,"})


if __name__ == "__main__":
    if not DRIVER:
        print("skipped: chromedriver is missing; install the package chromium-driver")
        sys.exit(FAILED if os.environ.get("CI") else SKIPPED)
    unittest.main(argv=sys.argv[:1], verbosity=2)
