#include "phone/flow/Help.h"

namespace phone {

const char* const helpText = R"(phone: a telephone with Quorvan on it

USAGE
  phone new     --root DIR [--stores FILE.yaml]
  phone play    FLOW.yaml ... --root DIR --out DIR [--device DEVICE] [--app APP] [--language TAG]
                [--region DE] [--hours 12|24] [--system 7|8]
                [--now 2026-03-05T14:37:12] [--zone Europe/Berlin] [--report FILE.json]
  phone serve   --root DIR [--port 8100] [--device DEVICE] [--app APP] [--language TAG]
                [--region DE] [--hours 12|24] [--system 7|8] [--zone Europe/Berlin]
  phone records --root DIR [--json] [--zone Europe/Berlin]
  phone install FILE.deb --root DIR
  phone install --remove PACKAGE --root DIR
  phone help | --help | --version

new      makes a phone: a folder that stands for the device's `/`, with the library, its resources and
         empty stores. DIR must not exist, or be empty.
play     plays flows on a phone, one after the other, and puts their pictures and dumps into the other DIR.
         Options here go before those of a flow's header.
serve    runs the phone in real time until it is interrupted: at the address that it prints, to be seen and touched
         in a browser, and for WebDriver clients of this machine.
records  prints what stands in the phone's stores, with --json for programs. Dates are shown in the zone
         given, or else in that of the last play.
install  unpacks a package as the device's dpkg would: over what is there, over another version, or not at
         all. Files in which a person changed something stay if the package names them as conffiles.
         With --remove it takes an installed package off; its conffiles stay.

OPTIONS
  --device    iphone4 (3.5 inch), iphone5 (4 inch; unless told otherwise), ipad, other
  --app       newer or older; iphone4 runs the older, the others the newer
  --language  en unless told otherwise
  --region    where the person lives: decides hours, first weekday, the order of dates. Unless told otherwise the
              language's own ("AT" of de-AT), or where most people speak it
  --hours     12 or 24, the person's own choice; unless told otherwise as is usual in the region
  --system    7 unless told otherwise; from 8 a tablet shows the share sheet as a popover and wants its anchor
  --zone      a name of the time zone database; UTC unless told otherwise
  --now       the local time at which the wall clock stands; the present unless told otherwise
  --port      8100 unless told otherwise; 0 for one that is free
  --report    a file for what each command did, as JSON

EXIT STATUS
  0  all held
  1  an assertion failed, a thing to touch was not found, or the phone application died
  2  something given was unusable
  Every failure is one line on standard error: file, line and number of the command, what.

STORES FILE (what is left out is as here)
  notes:     {accounts: [{name: LOCAL_NOTES_ACCOUNT, default: true}, {name: Mail}]}
  reminders: {access: ask, lists: [{title: Tasks, default: true}, {title: Shopping}, {title: Work}]}
  events:    {access: ask, calendars: [{title: Home, default: true}, {title: Work},
                                       {title: Holidays, readOnly: true}]}
  Lists of reminders may be `readOnly` too.

FLOWS
  name: A note                        # the header, of which nothing is needed
  phone: {device: iphone5, app: newer, language: de, region: AT, hours: 24, system: 7,
          now: "2026-03-05T14:37:12", zone: Europe/Berlin}
  env: {WHO: Anna}                    # ${WHO} in any text below
  ---
  - launchApp
  - phoneCall: {number: "+49 89 5551234", action: call}

  launchApp, stopApp                  starts the phone application; ends it
  phoneCall: {number, action}         call, accept, hold, cancel
  tapOn, longPressOn, doubleTapOn: SELECTOR
  swipe: {start, end, duration}       from point to point in milliseconds (400)
  inputText: TEXT                     character by character, into the text being edited
  eraseText: N                        backspaces (50)
  pressKey: enter | backspace
  setClipboard: TEXT, pasteText
  hideKeyboard                        by the tablet's key, or a return key that reads Done
  toggle: SELECTOR                    touches the switch on the line of the label
  pickDate: "2026-05-16T09:00"        turns the wheels of the date picker on the screen
  assertVisible, assertNotVisible: SELECTOR
  waitForAnimationToEnd               until nothing moves and the calendar store has answered
  advance: SECONDS                    moves the animation clock
  setOrientation: PORTRAIT | UPSIDE_DOWN | LANDSCAPE_LEFT | LANDSCAPE_RIGHT
  setClock: "2026-03-05T23:40:00"     the wall clock, which otherwise stands still
  setPreferences: {SwitchCell1: true} as the settings pane would; null removes a key
  setPermissions: {reminders: allow}  allow, deny or ask, for reminders and events
  setStoreAnswers: late | early | concurrent
                                      when the calendar store answers where no person is asked: once the touch
                                      has done all that it does (late), while it is being asked, or at once
                                      while the application goes on
  memoryWarning                       the system warns the application
  takeScreenshot: NAME                NAME.png, two pixels a point
  dumpTree: NAME                      NAME.xml, every view on the screen
  dumpLog: NAME                       NAME.jsonl, what happened since launchApp
  runFlow: FILE                       also {file or commands, when, env}
  repeat: {times, while, commands}    `when` and `while` are {visible: SELECTOR} or {notVisible: SELECTOR}

SELECTORS
  "TEXT", or {text, id, index, point}. TEXT is a regular expression that the whole text has to match: labels,
  texts of fields, placeholders, titles of buttons. `id` is one for the accessibility identifier, `index`
  counts from 0, `point` is in points ("160,50") or per cent ("50%,10%"), of the screen or, beside a text or
  id, of the thing. Commands wait up to 7 s of animation time for what they name. Where several match, the
  first that can be touched is taken, the keyboard's own keys last.
)";

} // namespace phone
