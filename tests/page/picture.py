"""Takes a picture of the page while a note is written: picture.py PHONE FILE.png [WIDTH HEIGHT [dark]]."""

import pathlib
import sys
import tempfile

import page_test


def main(executable, file, width="1440", height="940", look="light"):
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as folder:
        stand = page_test.Stand(pathlib.Path(executable).resolve(), folder)
        try:
            page = stand.page(stand.phone(), width=int(width), height=int(height), dark=look == "dark")
            page.run("document.getElementById('clock').value = '2026-03-05T14:37:12'")
            page.click("#set-clock")
            page.wait("document.getElementById('clock-state').textContent.startsWith('Stands')", "the clock")
            page_test.be_in_a_call(page)
            page_test.begin_note(page)
            page.keys("Call back on Friday")
            page.run("""const find = () => [...document.querySelectorAll("#tree [role=treeitem]")]
                .find((item) => item.ariaLabel.startsWith("UITextView Call back on Friday"));
                window.textItem = find""")
            page.wait("window.textItem()", "the text in the tree")
            page.run("window.textItem().click()")
            page.picture(file)
        finally:
            stand.close()


if __name__ == "__main__":
    main(*sys.argv[1:])
