"""Drives headless Chromium by WebDriver, and a phone to look at; Python's own library is enough."""

import base64
import json
import os
import pathlib
import signal
import subprocess
import tempfile
import time
import urllib.error
import urllib.request

PATIENCE = 40  # seconds for what has to come; a machine with sanitizers and much else to do is slow
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"


def request(url, method="GET", body=None):
    data = None if body is None else json.dumps(body).encode()
    asked = urllib.request.Request(url, data, {"Content-Type": "application/json"}, method=method)
    with urllib.request.urlopen(asked, timeout=120) as answer:
        return answer.read()


def wait_for(question, what, patience=PATIENCE):
    """What the question gives, once it is neither None nor False."""
    last = time.monotonic() + patience
    while True:
        answer = question()
        if answer is not None and answer is not False:
            return answer
        if time.monotonic() > last:
            raise AssertionError(f"it never came: {what}")
        time.sleep(0.05)


class Phone:
    """A new phone, served on a port of its own."""

    def __init__(self, executable, folder, *options):
        self.executable = str(executable)
        self.folder = pathlib.Path(folder)
        self.root = self.folder / "root"
        self.command("new", "--root", str(self.root))
        self.process = subprocess.Popen(
            [self.executable, "serve", "--root", str(self.root), "--port", "0", *options],
            stdout=subprocess.PIPE, text=True)
        self.address = self.process.stdout.readline().split()[-1]

    def command(self, *words):
        done = subprocess.run([self.executable, *words], capture_output=True, text=True)
        if done.returncode != 0:
            raise AssertionError(f"phone {' '.join(words)}: {done.stderr}")
        return done.stdout

    def records(self, root=None):
        return json.loads(self.command("records", "--json", "--root", str(root or self.root)))

    def application(self):
        """The process of the phone application."""
        children = pathlib.Path(f"/proc/{self.process.pid}/task")
        for task in children.iterdir():
            for child in (task / "children").read_text().split():
                return int(child)
        raise AssertionError("no application runs")

    def kill_application(self):
        os.kill(self.application(), signal.SIGKILL)

    def close(self):
        self.process.terminate()
        return self.process.wait(30)


class Driver:
    """chromedriver, with the browsers that it has started."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.log = self.folder / "chromedriver.log"
        self.process = subprocess.Popen(
            ["chromedriver", "--port=0", f"--log-path={self.log}"], stdout=subprocess.PIPE, text=True,
            env={**os.environ, "HOME": str(self.folder), "TMPDIR": str(self.folder)})
        for line in self.process.stdout:
            if "started successfully on port" in line:
                self.address = "http://127.0.0.1:" + line.rstrip(".\n").split()[-1]
                return
        raise AssertionError("chromedriver does not start")

    def close(self):
        self.process.terminate()
        self.process.wait(30)


class Browser:
    """One window of a browser of its own."""

    def __init__(self, driver, width=1440, height=1000, dark=False):
        profile = tempfile.mkdtemp(dir=driver.folder)
        arguments = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
                     f"--user-data-dir={profile}", f"--window-size={width},{height}", "--hide-scrollbars",
                     "--disable-background-networking", "--disable-component-update"]
        if dark:
            arguments.append("--blink-settings=preferredColorScheme=0")
        wanted = {"browserName": "chrome", "goog:chromeOptions": {"args": arguments},
                  "goog:loggingPrefs": {"performance": "ALL", "browser": "ALL"}}
        answer = json.loads(request(driver.address + "/session", "POST", {"capabilities": {"alwaysMatch": wanted}}))
        self.session = driver.address + "/session/" + answer["value"]["sessionId"]
        self.devtools("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                      mobile=False)
        if dark:
            self.devtools("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])

    def do(self, path, body=None, method="POST"):
        try:
            return json.loads(request(f"{self.session}/{path}", method, body))["value"]
        except urllib.error.HTTPError as error:
            raise AssertionError(json.loads(error.read())["value"]["message"].split("\n")[0]) from None

    def devtools(self, command, **parameters):
        return self.do("goog/cdp/execute", {"cmd": command, "params": parameters})

    def open(self, address):
        self.do("url", {"url": address})
        self.wait("document.getElementById('screen').dataset.version > 0", "the phone's screen")

    def run(self, script, *arguments):
        return self.do("execute/sync", {"script": script, "args": list(arguments)})

    def run_async(self, script, *arguments):
        return self.do("execute/async", {"script": script, "args": list(arguments)})

    def wait(self, condition, what, patience=PATIENCE):
        return wait_for(lambda: self.run(f"return ({condition}) || null"), what, patience)

    def text(self, selector):
        return self.run("return document.querySelector(arguments[0]).textContent", selector)

    def click(self, selector):
        element = self.do("element", {"using": "css selector", "value": selector})[ELEMENT]
        self.do(f"element/{element}/click", {})

    def keys(self, text):
        """To whatever has the focus."""
        actions = [{"type": part, "value": key} for key in text for part in ("keyDown", "keyUp")]
        self.do("actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def place(self, x, y):
        """Where a point of the phone's screen lies in the window."""
        return self.run("""const canvas = document.getElementById("screen");
            canvas.scrollIntoView({block: "nearest"});
            const rect = canvas.getBoundingClientRect();
            const style = document.getElementById("frame").style;
            return {x: Math.round(rect.left + arguments[0] / style.getPropertyValue("--width") * rect.width),
                    y: Math.round(rect.top + arguments[1] / style.getPropertyValue("--height") * rect.height)}""", x, y)

    def drag(self, points, pointer="mouse", duration=300):
        """Down at the first point of the phone's screen, along the others, and up."""
        moves = [{"type": "pointerMove", "duration": duration if at else 0, **self.place(*point)}
                 for at, point in enumerate(points)]
        actions = [moves[0], {"type": "pointerDown", "button": 0}, *moves[1:], {"type": "pause", "duration": 60},
                   {"type": "pointerUp", "button": 0}]
        self.do("actions", {"actions": [{"type": "pointer", "id": pointer, "parameters": {"pointerType": pointer},
                                         "actions": actions}]})

    def tap(self, x, y, pointer="mouse"):
        self.drag([(x, y)], pointer)

    def picture(self, path):
        pathlib.Path(path).write_bytes(base64.b64decode(self.do("screenshot", method="GET")))

    def requests(self):
        """The addresses that the browser has asked since it was last asked for them."""
        entries = [json.loads(entry["message"])["message"] for entry in self.do("se/log", {"type": "performance"})]
        return [entry["params"]["request"]["url"] for entry in entries
                if entry["method"] == "Network.requestWillBeSent"]

    def complaints(self):
        return [entry["message"] for entry in self.do("se/log", {"type": "browser"}) if entry["level"] == "SEVERE"]

    def close(self):
        request(self.session, "DELETE")
