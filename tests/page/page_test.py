"""The page of `phone serve` in headless Chromium: page_test.py PHONE TEST. Every function that begins with test_ is a test."""

import json
import pathlib
import re
import sys
import tempfile

from browser import Browser, Driver, Phone, request, wait_for

DONE = "Done"


class Stand:
    """What a test works with: a phone, a driver, browsers; all gone at the end."""

    def __init__(self, executable, folder):
        self.executable = executable
        self.folder = pathlib.Path(folder)
        self.phones = []
        self.browsers = []
        self.driver = None

    def phone(self, *options):
        folder = self.folder / f"phone{len(self.phones)}"
        folder.mkdir()
        self.phones.append(Phone(self.executable, folder, *options))
        return self.phones[-1]

    def page(self, phone, **options):
        self.driver = self.driver or Driver(self.folder)
        browser = Browser(self.driver, **options)
        self.browsers.append(browser)
        browser.phone = phone
        browser.open(phone.address + "/")
        return browser

    def close(self):
        for browser in self.browsers:
            browser.close()
        if self.driver:
            self.driver.close()
        for phone in self.phones:
            assert phone.close() == 0, "the server did not end cleanly"


def expect(holds, what):
    if not holds:
        raise AssertionError(what)


def equal(given, wanted):
    expect(given == wanted, f"{given!r} is not {wanted!r}")


def elements(page):
    return json.loads(request(page.phone.address + "/page/elements"))


def state(page):
    return json.loads(request(page.phone.address + "/page/state"))


def at_rest(page):
    wait_for(lambda: not state(page)["moving"], "the phone's screen at rest")


def shown(page, label, kind=None):
    """The element of that label, or of a row that begins with it, once the screen has come to rest with it."""
    def look():
        if state(page)["moving"]:
            return None
        found = [one for one in elements(page) if one["label"].split(",")[0] == label and kind in (None, one["type"])]
        return found[0] if found else None
    return wait_for(look, f"{label} on the phone's screen")


def touch(page, label, kind=None, pointer="mouse"):
    page.tap(*shown(page, label, kind)["point"], pointer)


def gone(page, label):
    wait_for(lambda: all(one["label"] != label for one in elements(page)), f"{label} going away")


def be_in_a_call(page):
    page.click("[data-call=call]")
    page.wait("!document.querySelector('[data-call=accept]').disabled", "a call that rings")
    page.click("[data-call=accept]")
    page.wait("document.getElementById('call-state').textContent.startsWith('In a call')", "a call")


def open_activity(page, name):
    """The share sheet by a touch of the call screen's top, and what stands in it."""
    at_rest(page)
    page.tap(160, 50)
    touch(page, name, "Button")
    shown(page, DONE, "Button")


def text_of(page, kind):
    return wait_for(lambda: next((one for one in elements(page) if one["type"] == kind), None), kind)


def begin_note(page):
    open_activity(page, "Note")
    page.tap(*text_of(page, "TextView")["point"])
    wait_for(lambda: state(page)["keyboard"], "the phone's keyboard")


def picker(page):
    tree = request(page.phone.address + "/page/tree").decode()
    found = re.search(r'<UIDatePicker [^>]*\bscreen="([^"]*)"[^>]*\bdate="([^"]*)"', tree)
    return ([float(part) for part in found[1].split()], found[2]) if found else None


def without_identifiers(records):
    for note in records["notes"]:
        note.pop("id")
    return records


def test_a_note_typed_during_a_call_stands_in_the_inspector(stand):
    phone = stand.phone()
    page = stand.page(phone)

    be_in_a_call(page)
    begin_note(page)
    page.keys("Ask Zo")
    page.devtools("Input.imeSetComposition", text="¨", selectionStart=1, selectionEnd=1)
    page.devtools("Input.insertText", text="ë")
    page.keys("x\ue003\ue006Monday")
    wait_for(lambda: text_of(page, "TextView")["value"] == "Ask Zoë\nMonday", "the text on the phone")
    touch(page, DONE)
    page.click("#tab-records")

    page.wait("document.querySelector('[data-kind=notes] li strong')?.textContent === 'Ask Zoë'", "the note's record")
    equal([note["content"] for note in phone.records()["notes"]], ["Ask Zoë\nMonday"])
    equal(page.complaints(), [])


def test_a_recorded_flow_leads_to_the_same_records(stand):
    phone = stand.phone("--zone", "Europe/Berlin", "--language", "de")
    page = stand.page(phone)

    page.click("#record")
    page.wait("document.getElementById('record').ariaPressed === 'true'", "the recording")
    be_in_a_call(page)
    open_note_in_german(page)
    page.keys('Was heißt "${NAME}"? (2*3)\\')
    touch(page, "Fertig")
    gone(page, "Fertig")
    make_reminder_in_german(page)
    page.click("#record")
    page.wait("!document.getElementById('flow-text').hidden", "the flow")
    flow = page.text("#flow-text")

    other = stand.folder / "other"
    phone.command("new", "--root", str(other))
    file = stand.folder / "recorded.yaml"
    file.write_text(flow)
    phone.command("play", str(file), "--root", str(other), "--out", str(stand.folder / "out"))
    recorded = without_identifiers(phone.records())
    equal((len(recorded["notes"]), len(recorded["reminders"])), (1, 1))
    equal(without_identifiers(phone.records(other)), recorded)
    for command in ("tapOn: \"Fertig\"", "pickDate:", "phoneCall: {action: accept}"):
        expect(command in flow, f"{command} in\n{flow}")

    # The page plays it too, with a second note and a second reminder.
    page.click("#replay")
    page.wait("!document.getElementById('play-state').textContent.startsWith('Playing')", "the end of the play", 150)
    equal(page.text("#play-state"), "Played recorded.yaml: all held")
    equal(len(phone.records()["notes"]), 2)


def open_note_in_german(page):
    at_rest(page)
    page.tap(160, 50)
    touch(page, "Notiz", "Button")
    shown(page, "Fertig", "Button")
    page.tap(*text_of(page, "TextView")["point"])
    wait_for(lambda: state(page)["keyboard"], "the phone's keyboard")


def make_reminder_in_german(page):
    at_rest(page)
    page.tap(160, 50)
    touch(page, "Erinnerung", "Button")
    shown(page, "Fertig", "Button")
    page.tap(*text_of(page, "TextView")["point"])
    wait_for(lambda: state(page)["keyboard"], "the phone's keyboard")
    page.keys("Anrufen")
    page.keys("\ue007")
    wait_for(lambda: not state(page)["keyboard"], "the phone's keyboard going away")
    touch(page, "Erinnern")
    shown(page, "Zurück")
    turn_a_wheel(page)
    touch(page, "Zurück")
    touch(page, "Fertig")
    touch(page, "OK")  # the first reminder ever asks for access
    gone(page, "OK")
    at_rest(page)
    if any(one["label"] == "Fertig" for one in elements(page)):
        touch(page, "Fertig")
    gone(page, "Fertig")


def turn_a_wheel(page, pointer="mouse"):
    wait_for(lambda: picker(page), "the date picker")
    at_rest(page)
    (x, y, _, height), before = picker(page)
    middle = y + height / 2
    page.drag([(x + 50, middle), (x + 50, middle - 35), (x + 50, middle - 70)], pointer)
    at_rest(page)
    return before, wait_for(lambda: picker(page)[1] != before and picker(page)[1], "another date")


def test_a_finger_turns_a_wheel(stand):
    page = stand.page(stand.phone())
    be_in_a_call(page)
    open_activity(page, "Event")
    touch(page, "Date", pointer="touch")
    touch(page, "Start", pointer="touch")

    before, after = turn_a_wheel(page, "touch")

    expect(after > before, f"{after} is later than {before}")


def test_an_application_that_died_is_started_again(stand):
    phone = stand.phone()
    page = stand.page(phone)

    phone.kill_application()
    page.wait("!document.getElementById('over').hidden", "the panel")
    expect("signal 9" in page.text("#over-text"), page.text("#over-text"))
    page.click("#again")

    page.wait("document.getElementById('over').hidden", "the panel's end")
    be_in_a_call(page)


def test_two_pages_watch_one_phone(stand):
    phone = stand.phone()
    one = stand.page(phone)
    other = stand.page(phone)

    be_in_a_call(one)

    other.wait("document.getElementById('call-state').textContent.startsWith('In a call')", "the call")
    begin_note(other)
    other.keys("From the other")
    sum_of_pixels = """const canvas = document.getElementById("screen");
        const data = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height).data;
        let sum = 0; for (let at = 0; at < data.length; at += 4) sum = (sum * 31 + data[at]) | 0; return sum"""
    # The caret blinks: the same moment has to be met.
    wait_for(lambda: one.run(sum_of_pixels) == other.run(sum_of_pixels), "the same picture on both")


def test_a_page_that_goes_takes_its_finger_along(stand):
    phone = stand.phone()
    going = stand.page(phone)
    staying = stand.page(phone)
    be_in_a_call(staying)
    going.do("actions", {"actions": [{"type": "pointer", "id": "finger", "parameters": {"pointerType": "mouse"},
             "actions": [{"type": "pointerMove", **going.place(160, 50)}, {"type": "pointerDown", "button": 0}]}]})

    going.do("url", {"url": "about:blank"})

    open_activity(staying, "Note")


def test_the_page_is_worked_by_keyboard_alone(stand):
    page = stand.page(stand.phone())
    tab, back, enter, down, right, escape = "\ue004", "\ue008", "\ue007", "\ue015", "\ue014", "\ue00c"

    def go_to(selector):
        for _ in range(60):
            if page.run("return document.activeElement.matches(arguments[0])", selector):
                return
            page.keys(tab)
        raise AssertionError(f"Tab never comes to {selector}")

    go_to("#keys")
    page.keys(escape)
    expect(page.run("return document.activeElement.matches('summary')"), "Escape leaves the screen")
    go_to("[data-call=call]")
    page.keys(enter)
    page.wait("document.activeElement.matches('[data-call=accept]')", "the focus on the answer")
    page.keys(enter)
    page.wait("document.getElementById('call-state').textContent.startsWith('In a call')", "the call")
    go_to("#tab-tree")
    go_to("#tree [role=treeitem]")
    page.keys(down + down)
    page.wait("!document.getElementById('highlight').hidden", "the highlight")
    page.keys(enter)
    page.wait("document.querySelectorAll('#attributes tr').length > 3", "the attributes")
    page.run("document.getElementById('tab-tree').focus()")
    page.keys(right)
    expect(page.run("return document.activeElement.id === 'tab-records'"), "the arrows choose the tab")


def test_what_is_on_the_screen_is_touched_by_name(stand):
    page = stand.page(stand.phone())
    be_in_a_call(page)
    at_rest(page)
    page.tap(160, 50)
    page.click("#by-name summary")

    shown(page, "Note", "Button")
    page.wait("[...document.querySelectorAll('#elements button')].some((one) => one.textContent === 'Note, button')", "its name")
    page.run("[...document.querySelectorAll('#elements button')].find((one) => one.textContent === 'Note, button').click()")

    shown(page, DONE, "Button")


def test_a_narrow_window_scrolls_downwards_alone(stand):
    phone = stand.phone()
    page = stand.page(phone, width=400, height=800)
    for tab in ("tree", "records", "log"):
        page.click(f"#tab-{tab}")
        equal(page.run("return document.documentElement.scrollWidth"), 400)
    page.run("document.getElementById('device').value = 'ipad'")
    page.click("#restart")
    page.wait("document.getElementById('screen').width === 1536", "the tablet")
    page.click("#turn-left")
    page.wait("document.getElementById('screen').width === 2048", "the tablet held sideways")
    equal(page.run("return document.documentElement.scrollWidth"), 400)


def test_the_phone_restarts_for_another_person(stand):
    page = stand.page(stand.phone("--system", "8", "--region", "AT"))
    page.wait("document.getElementById('region').value === 'AT'", "the region")
    equal(page.run("return document.getElementById('system').value"), "8")
    page.run("document.getElementById('region').value = 'us'; document.getElementById('hours').value = '24';"
             "document.getElementById('system').value = '7'")

    page.click("#restart")

    page.wait("document.getElementById('status').textContent.includes('system 7')", "the other system")
    equal(page.run("return document.getElementById('region').value"), "US")
    equal(page.run("return document.getElementById('hours').value"), "24")


def test_nothing_is_asked_of_another_host(stand):
    page = stand.page(stand.phone())
    be_in_a_call(page)
    for tab in ("records", "log"):
        page.click(f"#tab-{tab}")

    foreign = [one for one in page.requests() if not one.startswith(page.phone.address + "/")
               and one.startswith(("http:", "https:", "ws:", "wss:"))]

    equal(foreign, [])
    equal(page.complaints(), [])


def test_everything_that_takes_the_focus_has_a_name(stand):
    page = stand.page(stand.phone())
    page.click("#by-name summary")

    nodes = page.devtools("Accessibility.getFullAXTree")["nodes"]
    def has(node, name):
        return any(one["name"] == name and one["value"].get("value") for one in node.get("properties", []))
    nameless = [node["role"]["value"] for node in nodes
                if has(node, "focusable") and node["role"]["value"] not in ("RootWebArea",)
                and not node.get("name", {}).get("value")]

    equal(nameless, [])


def test_a_flow_that_fails_is_told_with_its_line(stand):
    phone = stand.phone()
    page = stand.page(phone)
    flow = stand.folder / "fails.yaml"
    flow.write_text("- launchApp\n- phoneCall: {number: '5551234', action: call}\n- tapOn: 'Nobody'\n")
    file = page.do("element", {"using": "css selector", "value": "#flow-file"})
    page.do(f"element/{next(iter(file.values()))}/value", {"text": str(flow)})

    page.click("#play")

    page.wait("document.getElementById('play-state').textContent.includes('fails.yaml:3: command 3: tapOn: \"Nobody\"')",
              "the line that failed")


def main(executable, name):
    with tempfile.TemporaryDirectory(prefix="page-test-", ignore_cleanup_errors=True) as folder:
        stand = Stand(executable, folder)
        try:
            globals()[name](stand)
        except AssertionError:
            for number, page in enumerate(stand.browsers):
                print(f"page {number}: {page.text('#status')} {page.text('#message-text')}", file=sys.stderr)
                print([one["label"] for one in elements(page)], file=sys.stderr)
            raise
        finally:
            stand.close()


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2])
