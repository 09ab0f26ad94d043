"""Drives a headless Chromium by its DevTools protocol over a pipe."""

import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

SCREEN = {"width": 1280, "height": 900}
PATIENCE = 30  # seconds


def find():
    """The program's path; None when it is not installed."""
    return shutil.which("chromium")


class Browser:
    """Use it with `with`. Every message of the page's console is in `messages`."""

    def __enter__(self):
        self.messages = []
        self.number = 0
        self.bytes = b""
        self.profile = tempfile.mkdtemp()
        to_browser, self.write_end = os.pipe()
        self.read_end, from_browser = os.pipe()
        options = [
            "--headless=new", "--remote-debugging-pipe", "--disable-gpu", "--hide-scrollbars", "--no-first-run",
            "--disable-background-networking", f"--user-data-dir={self.profile}",
        ]
        if os.geteuid() == 0:
            options.append("--no-sandbox")  # Chromium refuses it for the superuser
        command = [find(), *options, "about:blank"]
        # The browser reads from descriptor 3 and writes to 4; neither number may be one of ours meanwhile.
        shell = ["sh", "-c", f'exec "$@" 3<&{to_browser} 4>&{from_browser}', "sh", *command]
        self.process = subprocess.Popen(
            shell, pass_fds=(to_browser, from_browser), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self.session = None
        targets = self.call("Target.getTargets")["targetInfos"]
        page = next(target["targetId"] for target in targets if target["type"] == "page")
        self.session = self.call("Target.attachToTarget", targetId=page, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(f"{domain}.enable")
        self.resize(**SCREEN)
        return self

    def __exit__(self, *_):
        try:
            self.call("Browser.close")
        except OSError:
            self.process.kill()
        self.process.wait(PATIENCE)
        os.close(self.write_end)
        os.close(self.read_end)
        shutil.rmtree(self.profile, ignore_errors=True)

    # The protocol

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session and not method.startswith(("Browser.", "Target.")):
            message["sessionId"] = self.session
        os.write(self.write_end, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.receive()
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self.take(answer)

    def receive(self):
        while b"\0" not in self.bytes:
            if not select.select([self.read_end], [], [], PATIENCE)[0]:
                raise TimeoutError("the browser does not answer")
            part = os.read(self.read_end, 1 << 16)
            if not part:
                raise OSError("the browser ended")
            self.bytes += part
        message, self.bytes = self.bytes.split(b"\0", 1)
        return json.loads(message)

    def take(self, event):
        parameters = event.get("params", {})
        if "method" not in event:
            return  # an answer after a timeout
        if event["method"] == "Runtime.exceptionThrown":
            details = parameters["exceptionDetails"]
            self.messages.append(details.get("exception", {}).get("description", details["text"]))
        elif event["method"] == "Runtime.consoleAPICalled":
            self.messages.append(str([one.get("value") for one in parameters["args"]]))
        elif event["method"] == "Log.entryAdded":
            self.messages.append(parameters["entry"]["text"])
        elif event["method"] == "Network.requestWillBeSent":
            self.requests.append(parameters["request"]["url"])
        elif event["method"] == "Page.loadEventFired":
            self.loaded = True

    # The page

    def open(self, url, scripts=True):
        """Without `scripts` those of the page do not run."""
        self.call("Emulation.setScriptExecutionDisabled", value=not scripts)
        self.loaded = False
        self.requests = []
        self.call("Page.navigate", url="about:blank")
        self.wait_for_load()
        self.requests = []
        self.loaded = False
        self.call("Page.navigate", url=url)
        self.wait_for_load()
        if scripts:
            self.frames()

    def wait_for_load(self):
        end = time.monotonic() + PATIENCE
        while not self.loaded:
            if time.monotonic() > end:
                raise TimeoutError("the page does not load")
            self.take(self.receive())

    def run(self, expression):
        """The value of an expression of JavaScript in the page; waits for promises."""
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(result["exceptionDetails"]["exception"]["description"])
        return result["result"].get("value")

    def frames(self):
        """Until what has happened is on the screen."""
        self.run("new Promise(done => requestAnimationFrame(() => requestAnimationFrame(done)))")

    def wait_until(self, expression):
        end = time.monotonic() + PATIENCE
        while not self.run(expression):
            if time.monotonic() > end:
                raise TimeoutError(expression)
            self.frames()

    def resize(self, width, height, scale=1, touch=False):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=scale, mobile=touch)
        self.call("Emulation.setTouchEmulationEnabled", enabled=touch)

    def emulate(self, **features):
        """Media features: prefers_color_scheme="dark"."""
        self.call("Emulation.setEmulatedMedia", features=[
            {"name": name.replace("_", "-"), "value": value} for name, value in features.items()])

    def screenshot(self, file):
        data = self.call("Page.captureScreenshot", format="png")["data"]
        with open(file, "wb") as out:
            out.write(base64.b64decode(data))

    # Input

    def mouse(self, kind, x, y, **more):
        self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, **more)
        self.frames()

    def move(self, x, y):
        self.mouse("mouseMoved", x, y)

    def click(self, x, y):
        for kind in ("mousePressed", "mouseReleased"):
            self.mouse(kind, x, y, button="left", clickCount=1)

    def drag(self, from_x, from_y, to_x, to_y):
        self.mouse("mousePressed", from_x, from_y, button="left", clickCount=1)
        for part in (0.25, 0.5, 0.75, 1):
            self.mouse("mouseMoved", from_x + (to_x - from_x) * part, from_y + (to_y - from_y) * part, button="left",
                       buttons=1)
        self.mouse("mouseReleased", to_x, to_y, button="left", clickCount=1)

    def wheel(self, x, y, delta):
        self.mouse("mouseWheel", x, y, deltaX=0, deltaY=delta)

    def touch(self, kind, *places):
        points = [{"x": x, "y": y, "id": index} for index, (x, y) in enumerate(places)]
        self.call("Input.dispatchTouchEvent", type=kind, touchPoints=points)
        self.frames()

    def tap(self, x, y):
        self.touch("touchStart", (x, y))
        self.touch("touchEnd")

    def key(self, key, text=""):
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, text=text if kind == "keyDown" else "")
        self.frames()

    def type(self, text):
        self.call("Input.insertText", text=text)
        self.frames()
