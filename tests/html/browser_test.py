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
import struct
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
LEFT = "\ue012"
ENTER = "\ue007"
CONTROL = "\ue009"
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

    def command(self, name, **parameters):
        """A command of the browser's own protocol."""
        return self.do("POST", "/goog/cdp/execute", {"cmd": name, "params": parameters})

    def press(self, *keys):
        """Presses all keys, then releases them."""
        self.do("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": [
            *({"type": "keyDown", "value": key} for key in keys),
            *({"type": "keyUp", "value": key} for key in reversed(keys))]}]})

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


def midi():
    """Two seconds of one note."""
    track = b"\x00\x90\x40\x40" + uintvar(4 * 96) + b"\x80\x40\x00" + b"\x00\xff\x2f\x00"
    return struct.pack(">4sIHHH4sI", b"MThd", 6, 0, 1, 96, b"MTrk", len(track)) + track


def imelody():
    """Two seconds of one note."""
    return b"BEGIN:IMELODY\r\nVERSION:1.2\r\nFORMAT:CLASS1.0\r\nBEAT:120\r\nMELODY:c0\r\nEND:IMELODY\r\n"


def qcelp():
    """Two seconds of silence."""
    frames = (b"\x01" + bytes(3)) * 100
    identifier = bytes.fromhex("41 6D 7F 5E 15 B1 D0 11 BA 91 00 80 5F B4 B9 7E")
    form = (struct.pack("<BB16sH80sHHHHHI", 1, 0, identifier, 2, b"", 1600, 4, 160, 8000, 16, 1)
            + bytes([3, 1]) + bytes(14 + 20))
    chunks = b"QLCM" + b"".join(name + struct.pack("<I", len(octets)) + octets for name, octets in (
        (b"fmt ", form), (b"vrat", struct.pack("<II", 0, 100)), (b"data", frames)))
    return b"RIFF" + struct.pack("<I", len(chunks)) + chunks


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
        self.assertEqual(titles, ["Grüße aus Küstrin", "Files", "Grüße aus Küstrin", "Multimedia messages"])
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

    def wait_for(self, condition, seconds=8):
        """The seconds until the script gives a true value."""
        started = time.monotonic()
        while not self.stage(f"return {condition}"):
            self.assertLess(time.monotonic() - started, seconds, condition)
            time.sleep(0.02)
        return time.monotonic() - started

    def test_a_pause_keeps_the_place(self):
        self.page_of(FIXTURES / "messages" / "related.mms")
        self.stage("stage.focus()")
        self.driver.press(SPACE)
        time.sleep(2)
        self.driver.press(SPACE)
        self.assertEqual((self.stage("return stage.dataset.state"), self.current()), ("paused", 0))
        self.driver.press(SPACE)
        self.assertLess(self.wait_for("stage.querySelectorAll('.slide')[1].matches('.current')"), 3)
        self.driver.press(SPACE)
        self.driver.press(SPACE)
        self.assertEqual((self.stage("return stage.dataset.state"), self.current()), ("playing", 1))

    def test_a_pause_keeps_the_place_in_a_sound(self):
        self.page_of(self.composed("--audio", FIXTURES / "clips" / "sound.amr", "--duration", "9s"))
        self.stage("stage.focus()")
        self.driver.press(SPACE)
        self.wait_for("stage.querySelector('audio').currentTime > 0.2")
        self.driver.press(SPACE)
        paused = self.stage("return stage.querySelector('audio').currentTime")
        self.driver.press(SPACE)
        self.assertGreaterEqual(self.stage("return stage.querySelector('audio').currentTime"), paused)

    def test_after_the_end_the_slides_play_again(self):
        self.page_of(self.composed("--slide", "--text", "a", "--duration", "200ms",
                                   "--slide", "--text", "b", "--duration", "200ms"))
        self.stage("stage.focus()")
        for _ in range(2):
            self.driver.press(SPACE)
            self.assertEqual(self.current(), 0)
            self.wait_for("stage.dataset.state === 'paused'")
            self.assertEqual(self.current(), 1)

    def test_only_one_message_plays(self):
        related = FIXTURES / "messages" / "related.mms"
        self.page_of(related, related)
        for stage in (0, 1):
            self.driver.run(f"document.querySelectorAll('[data-action=play]')[{stage}].click()")
        self.assertEqual(self.driver.run("return [...document.querySelectorAll('.stage')]"
                                         ".map(stage => stage.dataset.state)"), ["paused", "playing"])

    def test_the_keyboard_stays_in_the_stage_when_a_button_is_disabled(self):
        self.page_of(FIXTURES / "messages" / "related.mms")
        self.stage("stage.querySelector('[data-action=next]').focus()")
        self.driver.press(ENTER)
        self.assertEqual(self.current(), 1)
        self.driver.press(LEFT)
        self.assertEqual(self.current(), 0)

    def test_slides_without_a_duration_play_as_long_as_their_clips(self):
        smil = (b"<smil><body><par><text src='a.txt'/></par><par><audio src='b.amr'/></par>"
                b"<par dur='2s'><audio src='b.amr'/></par></body></smil>")
        message = self.work / "durations.mms"
        message.write_bytes(b"\x8c\x84\x8d\x90\x84\xb3\x03" + part("application/smil", "s.smil", smil)
                            + part("text/plain", "a.txt", b"text")
                            + part("audio/amr", "b.amr", (FIXTURES / "clips" / "sound.amr").read_bytes()))
        self.page_of(message)
        self.assertEqual(self.stage("return [...stage.querySelectorAll('.slide')]"
                                    ".map(slide => slide.dataset.duration)"), ["5000", "1000", "2000"])
        captions = self.stage("return [...stage.querySelectorAll('.slide > :last-child')]"
                              ".map(caption => caption.textContent)")
        self.assertEqual(captions, ["Slide 1, no duration, plays 5 s",
                                    "Slide 2, no duration, plays 1 s", "Slide 3, 2 s"])

    def test_a_slide_without_an_end_waits_for_the_reader(self):
        smil = (b"<smil><body><par dur='indefinite'><text src='a.txt'/></par>"
                b"<par dur='0.2s'><text src='a.txt'/></par></body></smil>")
        message = self.work / "indefinite.mms"
        message.write_bytes(b"\x8c\x84\x8d\x90\x84\xb3\x02" + part("application/smil", "s.smil", smil)
                            + part("text/plain", "a.txt", b"text"))
        self.page_of(message)
        self.assertEqual(self.stage("return stage.querySelector('.current > :last-child').textContent"),
                         "Slide 1, no end")
        self.stage("stage.focus()")
        self.driver.press(SPACE)
        time.sleep(0.5)
        self.driver.press(SPACE) # a pause has no end to keep
        self.driver.press(SPACE)
        time.sleep(0.5)
        self.assertEqual(self.current(), 0)
        self.driver.press(RIGHT)
        self.wait_for("stage.dataset.state === 'paused'")
        self.assertEqual(self.current(), 1)

    def test_keys_of_the_browser_and_of_players_stay_theirs(self):
        self.page_of(self.composed("--slide", "--audio", FIXTURES / "clips" / "sound.amr", "--slide", "--text", "t"))
        self.stage("stage.focus()")
        self.driver.press(CONTROL, RIGHT)
        self.assertEqual(self.current(), 0)
        self.stage("stage.querySelector('audio').focus()")
        self.driver.press(RIGHT)
        self.assertEqual(self.current(), 0)
        self.stage("stage.focus()")
        self.driver.press(RIGHT)
        self.assertEqual(self.current(), 1)

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
        self.assertEqual(self.driver.run("return document.title"), ATTACK)
        self.assertEqual(self.driver.run("return document.scripts.length"), 1)
        self.assertIn("<script>", self.driver.run("return document.body.innerText"))
        self.driver.screenshot(FOLDER / "hostile.png")
        self.assert_quiet(page)

    def composed(self, *slides):
        """A message with these options of `qvlmms compose`."""
        message = self.work / f"{self.id()}.mms"
        subprocess.run([PROGRAM, "compose", "-o", message, "--to", "1", "--subject", "S", *slides], check=True,
                       stdout=subprocess.DEVNULL, env=os.environ | {"XDG_RUNTIME_DIR": str(self.work)})
        return message

    def written(self, name, octets):
        path = self.work / name
        path.write_bytes(octets)
        return path

    def captions(self):
        """The captions of the clips, by the name of the clip."""
        texts = self.stage("return [...stage.querySelectorAll('.caption')].map(caption => caption.textContent)")
        return dict(text.split(", ", 1) for text in texts)

    def heights(self, selector):
        return self.driver.run(f"return [...document.querySelectorAll('{selector}')]"
                               ".map(element => element.getBoundingClientRect().height)")

    def assert_all_slides_are_shown(self):
        slides = self.heights(".slide svg")
        self.assertEqual(len(slides), 2)
        self.assertGreater(min(slides), 100)
        self.assertEqual(set(self.heights(".controls")), {0})
        self.assertEqual(self.stage("return [...stage.querySelectorAll('.text')].map(text => text.innerText)"),
                         ["Grüße aus dem Hafen – 港口 ⚓", "See you soon"])

    def test_without_scripts_all_slides_are_shown(self):
        self.driver.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            page = self.page_of(FIXTURES / "messages" / "related.mms")
            self.assertFalse(self.driver.run("return document.documentElement.matches('.scripted')"))
            self.assert_all_slides_are_shown()
            self.driver.screenshot(FOLDER / "without-scripts.png")
        finally:
            self.driver.command("Emulation.setScriptExecutionDisabled", value=False)
        self.assert_quiet(page)

    def test_in_print_all_slides_are_shown(self):
        page = self.page_of(FIXTURES / "messages" / "related.mms")
        self.assertEqual(self.heights(".slide svg")[1], 0)  # on the screen
        self.driver.command("Emulation.setEmulatedMedia", media="print")
        try:
            self.assert_all_slides_are_shown()
        finally:
            self.driver.command("Emulation.setEmulatedMedia", media="")
        printed = base64.b64decode(self.driver.do("POST", "/print"))
        (FOLDER / "printed.pdf").write_bytes(printed)
        self.assertTrue(printed.startswith(b"%PDF-"))
        self.assert_quiet(page)

    def test_a_text_that_does_not_fit_is_shown_whole_below_its_slide(self):
        text = "Zeile\n" * 50 + "Ende"
        page = self.page_of(self.composed("--slide", "--text", text, "--slide", "--text", "kurz"))
        self.assertEqual(self.stage("return [...stage.querySelectorAll('.whole')]"
                                    ".map(whole => whole.textContent)"), [text])
        self.assert_quiet(page)

    def test_a_phone_needs_no_sideways_scrolling(self):
        message = self.work / "hostile.mms"
        message.write_bytes(hostile_message())
        width = 360
        self.driver.command("Emulation.setDeviceMetricsOverride", width=width, height=740, deviceScaleFactor=2,
                            mobile=True)
        try:
            page = self.page_of(*sorted(FIXTURES.glob("*/*.mms")), message)
            self.assertEqual(self.driver.run("return document.documentElement.scrollWidth"), width)
            self.driver.screenshot(FOLDER / "phone.png")
            self.driver.run("document.querySelector('.parts').scrollIntoView()")
            self.driver.screenshot(FOLDER / "phone-parts.png")
        finally:
            self.driver.command("Emulation.clearDeviceMetricsOverride")
        self.assert_quiet(page)

    def test_vector_graphics_are_not_part_of_the_page(self):
        svg = ("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><script>window.pwned=1</script>"
               "<a href='http://example.org/'><circle r='9'/></a></svg>").encode()
        message = self.work / "vector.mms"
        smil = b"<smil><body><par><img src='a.svg'/><text src='a.txt'/></par></body></smil>"
        message.write_bytes(b"\x8c\x84\x8d\x90\x84\xb3\x03" + part("application/smil", "s.smil", smil)
                            + part("image/svg+xml", "a.svg", svg) + part("text/plain", "a.txt", svg))
        page = self.page_of(message)
        self.assertEqual(self.driver.run("return document.querySelectorAll('circle, svg svg').length"), 0)
        self.assertNotIn("data:image/svg", page.read_text())
        self.assertIn("a.svg cannot be shown", self.stage("return stage.textContent"))
        self.assertIn("<circle", self.stage("return stage.textContent"))
        self.assertIsNone(self.driver.run("return window.pwned ?? null"))
        self.assert_quiet(page)

    def test_a_video_that_is_not_played_is_shown_by_its_first_picture(self):
        clip = (FIXTURES / "clips" / "video.3gp").read_bytes()
        for name in ("a.3gp", "a.mov"):
            page = self.page_of(self.composed("--video", self.written(name, clip)))
            self.assertEqual(self.stage("return stage.querySelector('video')"), None)
            self.assertEqual(self.stage("const image = stage.querySelector('svg img');"
                                        "return image.decode().then(() => image.naturalWidth > 0)"), True)
            self.assertRegex(next(iter(self.captions().values())), r"^\d+ s, is not played by browsers$")
            self.assert_quiet(page)

    def test_sounds_that_are_not_played_are_named_with_their_length(self):
        page = self.page_of(self.composed(
            "--slide", "--audio", self.written("a.mid", midi()), "--slide", "--audio",
            self.written("b.imy", imelody()), "--slide", "--audio", self.written("c.qcp", qcelp())))
        self.assertEqual({name: text for name, text in self.captions().items() if "." in name},
                         {"a.mid (audio/midi)": "2 s, is not played by browsers",
                          "b.imy (audio/imelody)": "2 s, is not played by browsers",
                          "c.qcp (audio/qcelp)": "2 s"})
        self.assertEqual(self.stage("return stage.querySelectorAll('audio').length"), 1)  # QCELP is converted
        self.assert_quiet(page)

    def test_a_converted_sound_plays(self):
        page = self.page_of(self.composed("--audio", FIXTURES / "clips" / "sound.amr"))
        self.stage("stage.focus()")
        self.driver.press(SPACE)
        started = time.monotonic()
        while time.monotonic() < started + 8 and not self.stage(
                "return stage.querySelector('audio').currentTime > 0"):
            time.sleep(0.05)
        self.assertAlmostEqual(self.stage("return stage.querySelector('audio').duration"), 1, delta=0.2)
        self.assertGreater(self.stage("return stage.querySelector('audio').currentTime"), 0)
        self.assert_quiet(page)

    def test_every_original_is_saved(self):
        clips = FIXTURES / "clips"
        message = self.composed("--slide", "--video", clips / "video.3gp", "--text", "t", "--slide", "--audio",
                                clips / "sound.amr", "--attach", self.written("a.svg", b"<svg onload='alert(1)'/>"))
        extracted, saved = self.work / "extracted", self.work / "saved"
        subprocess.run([PROGRAM, "extract", message, extracted], check=True, stdout=subprocess.DEVNULL)
        self.driver.command("Browser.setDownloadBehavior", behavior="allow", downloadPath=str(saved))
        self.page_of(message)
        names = sorted(os.listdir(extracted))
        for index in range(len(names)):
            self.driver.run(f"document.querySelectorAll('a[download]')[{index}].click()")
            started = time.monotonic()
            while time.monotonic() < started + 10 and (
                    not saved.exists() or len(list(saved.glob("[!.]*"))) <= index or list(saved.glob("*.crdownload"))):
                time.sleep(0.05)
        self.assertEqual({path.name: path.read_bytes() for path in saved.iterdir()},
                         {name: (extracted / name).read_bytes() for name in names})

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
