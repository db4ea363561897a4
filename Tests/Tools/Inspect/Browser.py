# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""A browser for tests of pages: Chromium without a window, told what to do through a pipe, by mouse and keys.

It needs nothing but Python and Chromium. What goes wrong inside of a page is collected in `troubles`.
"""

import base64
import json
import os
import shutil
import subprocess
import tempfile

PROGRAMS = ("chromium", "chromium-browser", "google-chrome")
OPTIONS = ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--hide-scrollbars",
           "--disable-background-networking", "--disable-component-update", "--disable-sync", "--disable-extensions",
           "--disable-dev-shm-usage", "--host-resolver-rules=MAP * ~NOTFOUND", "--remote-debugging-pipe")
SHIFT = 8
# What a page may ask for.
OWN = ("file:", "data:", "about:")
# What a key is called, its code, and its number.
KEYS = {"ArrowLeft": 37, "ArrowUp": 38, "ArrowRight": 39, "ArrowDown": 40, "Home": 36, "End": 35, "Enter": 13,
        "Escape": 27, "Tab": 9, "PageDown": 34, "PageUp": 33, " ": 32}


def find_program():
    return next((found for found in map(shutil.which, PROGRAMS) if found), None)


class Browser:
    def __init__(self, program):
        self.folder = tempfile.mkdtemp()
        read_by_it, self.output = os.pipe()
        self.input, written_by_it = os.pipe()
        # The browser reads from 3 and writes to 4.
        command = f'exec "$@" 3<&{read_by_it} 4>&{written_by_it}'
        self.process = subprocess.Popen(
            ["bash", "-c", command, "bash", program, *OPTIONS, "--user-data-dir=" + self.folder, "about:blank"],
            pass_fds=(read_by_it, written_by_it), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(read_by_it)
        os.close(written_by_it)
        self.buffer = b""
        self.number = 0
        self.session = None
        self.troubles = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(domain + ".enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            session, self.session = self.session, None
            self.call("Browser.close")
            self.process.wait(20)
        except (OSError, EOFError, subprocess.TimeoutExpired):
            self.process.kill()
            self.process.wait()
        os.close(self.output)
        os.close(self.input)
        shutil.rmtree(self.folder, ignore_errors=True)

    def receive(self):
        while b"\0" not in self.buffer:
            block = os.read(self.input, 1 << 20)
            if not block:
                raise EOFError("the browser has gone")
            self.buffer += block
        message, self.buffer = self.buffer.split(b"\0", 1)
        message = json.loads(message)
        self.take(message)
        return message

    def take(self, message):
        details = message.get("params", {})
        method = message.get("method")
        if method == "Runtime.exceptionThrown":
            details = details["exceptionDetails"]
            self.troubles.append(details.get("exception", {}).get("description") or details["text"])
        elif method == "Log.entryAdded" and details["entry"]["level"] in ("error", "warning"):
            self.troubles.append(details["entry"]["text"])
        elif method == "Network.requestWillBeSent" and not details["request"]["url"].startswith(OWN):
            self.troubles.append("it asked for " + details["request"]["url"])
        elif method == "Page.javascriptDialogOpening":
            self.troubles.append("a dialog: " + details["message"])

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.output, json.dumps(message).encode() + b"\0")
        number = self.number
        while True:
            answer = self.receive()
            if answer.get("id") == number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def show(self, width, height, dark=False, calm=False, scale=1):
        """How large the window is, and what its person prefers."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=scale,
                  mobile=False)
        self.call("Emulation.setEmulatedMedia", features=[
            {"name": "prefers-color-scheme", "value": "dark" if dark else "light"},
            {"name": "prefers-reduced-motion", "value": "reduce" if calm else "no-preference"}])

    def open(self, path, fragment=""):
        # The same file with another fragment would not be read again.
        self.call("Page.navigate", url="about:blank")
        self.call("Page.navigate", url="file://" + os.path.abspath(path) + fragment)
        while True:
            if self.receive().get("method") == "Page.loadEventFired" and self.js("location.protocol") == "file:":
                return

    def js(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            exception = result["exceptionDetails"].get("exception", {})
            raise RuntimeError(f"{expression}: {exception.get('description')}")
        return result["result"].get("value")

    def text(self, selector):
        return self.js(f"document.querySelector({json.dumps(selector)}).textContent")

    def click(self, selector):
        """In the middle of what can be seen of it, where nothing may lie above it."""
        place = self.js(f"""(() => {{
            const theElement = document.querySelector({json.dumps(selector)});
            theElement.scrollIntoView({{block: "nearest", inline: "nearest"}});
            const theBox = theElement.getBoundingClientRect();
            const [theX, theY] = [theBox.x + theBox.width / 2, theBox.y + theBox.height / 2];
            const theTop = document.elementFromPoint(theX, theY);
            const isReached = theTop !== null && (theElement.contains(theTop) || theTop.contains(theElement));
            return [theX, theY, theBox.width > 0 && theBox.height > 0 && isReached];
        }})()""")
        if not place[2]:
            raise RuntimeError(f"{selector} cannot be clicked: something lies above it, or it cannot be seen")
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=place[0], y=place[1], button="left", clickCount=1)

    def press(self, key, modifiers=0):
        details = {"key": key, "modifiers": modifiers}
        if key in KEYS:
            details.update(code="Space" if key == " " else key, windowsVirtualKeyCode=KEYS[key])
        text = {"Enter": "\r"}.get(key, key if len(key) == 1 else None)
        if text:
            details["text"] = text
        self.call("Input.dispatchKeyEvent", type="keyDown" if text else "rawKeyDown", **details)
        self.call("Input.dispatchKeyEvent", type="keyUp", **details)

    def write(self, text):
        for letter in text:
            self.press(letter)

    def picture(self, path):
        with open(path, "wb") as file:
            file.write(base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"]))
