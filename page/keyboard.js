// What is typed while the phone's screen has the focus goes to the phone.

import { on, send } from "./connection.js";

const keys = document.getElementById("keys");

const phoneKeys = { Enter: "enter", Backspace: "backspace", Delete: "delete", ArrowLeft: "left", ArrowRight: "right" };

export function focusKeys() {
  keys.focus({ preventScroll: true });
}

/** Characters come by way of the text field, so that composed ones come as one. */
function typed() {
  if (keys.value) send("type", { text: keys.value });
  keys.value = "";
}

export function start() {
  keys.addEventListener("input", (event) => {
    if (!event.isComposing) typed();
  });
  keys.addEventListener("compositionend", typed);
  keys.addEventListener("keydown", (event) => {
    if (event.isComposing) return;
    if (event.key === "Escape") {
      event.preventDefault();
      document.querySelector("#by-name summary").focus();
      return;
    }
    const key = phoneKeys[event.key];
    if (!key || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    send("key", { key });
  });
  keys.addEventListener("paste", (event) => {
    event.preventDefault();
    const text = event.clipboardData.getData("text/plain");
    if (text) send("paste", { text });
  });
  on("state", (state) => { keys.inputMode = state.keyboard ? "text" : "none"; });
}
