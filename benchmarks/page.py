"""How soon the page shows what a touch has changed, and what an idle phone costs while a page watches: page.py PHONE."""

import os
import pathlib
import statistics
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "tests" / "page"))
from browser import Browser, Driver, Phone  # noqa: E402

TOUCHES = 40
IDLE_SECONDS = 30

# From the moment of the event to the moment at which the canvas holds other pixels; the frame that shows them is
# the browser's next.
LATENCY = """
const done = arguments[arguments.length - 1];
const canvas = document.getElementById("screen");
const rect = canvas.getBoundingClientRect();
const [x, y] = [rect.left + arguments[0] / 320 * rect.width, rect.top + arguments[1] / 568 * rect.height];
const send = (type) => canvas.dispatchEvent(new PointerEvent(type, {pointerId: 1, button: 0, clientX: x, clientY: y, bubbles: true}));
canvas.setPointerCapture = () => {};
const began = performance.now();
const watch = new MutationObserver(() => {
  watch.disconnect();
  const taken = performance.now() - began;
  send("pointerup");
  setTimeout(() => done(taken), 400);
});
watch.observe(canvas, {attributeFilter: ["data-version"]});
send("pointerdown");
"""


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def idle(phone, what):
    processes = [phone.process.pid, phone.application()]
    before = [processor_seconds(one) for one in processes]
    time.sleep(IDLE_SECONDS)
    server, application = (processor_seconds(one) - first for one, first in zip(processes, before))
    print(f"{what}: over {IDLE_SECONDS} s the server takes {server:.2f} s of processor time,"
          f" the application {application:.2f} s")


def main(executable):
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        phone = Phone(executable, folder)
        driver = Driver(folder)
        page = Browser(driver)
        try:
            page.open(phone.address + "/")
            time.sleep(8)  # the connections that the page was loaded by have been closed
            idle(phone, "Idle, a page watching")
            page.click("[data-call=call]")
            page.wait("!document.querySelector('[data-call=accept]').disabled", "a call that rings")
            page.click("[data-call=accept]")
            page.wait("document.getElementById('screen').ariaBusy === 'false'", "the call screen at rest")
            idle(phone, "In a call, whose seconds count")
            # The keypad's button of the call screen lights up under the finger.
            taken = sorted(page.run_async(LATENCY, 160, 260) for _ in range(TOUCHES))
            print(f"From a touch to the changed pixels, {TOUCHES} touches: median {statistics.median(taken):.0f} ms,"
                  f" 95 of 100 within {taken[int(len(taken) * 0.95)]:.0f} ms, longest {taken[-1]:.0f} ms")
        finally:
            page.close()
            driver.close()
            phone.close()


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve())
