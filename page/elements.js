// What is on the screen, by name: each a button that touches it.

import { ask, on } from "./connection.js";
import { focusKeys } from "./keyboard.js";
import { highlightRect } from "./screen.js";
import { tap } from "./touch.js";

const list = document.getElementById("elements");
const details = document.getElementById("by-name");
let known = "";

const isText = ({ type }) => type === "TextField" || type === "TextView" || type === "SecureTextField";

function title({ type, label, value, selected }) {
  const kind = type.replace(/([a-z])([A-Z])/g, "$1 $2").toLowerCase();
  const parts = [label || value || kind, label && value && value !== label ? value : "", label || value ? kind : "", selected ? "selected" : ""];
  return parts.filter(Boolean).join(", ");
}

function buttonFor(element) {
  const button = document.createElement("button");
  button.type = "button";
  button.textContent = title(element);
  button.dataset.identity = element.identity;
  button.addEventListener("click", async () => {
    await tap(...element.point);
    if (isText(element)) focusKeys();
  });
  button.addEventListener("focus", () => highlightRect(element.rect));
  button.addEventListener("blur", () => highlightRect(null));
  button.addEventListener("mouseenter", () => highlightRect(element.rect));
  button.addEventListener("mouseleave", () => highlightRect(null));
  return button;
}

let looking = false;
let stale = false;
async function look() {
  stale = true;
  if (looking || !details.open) return;
  looking = true;
  while (stale && details.open) {
    stale = false;
    const response = await ask("/page/elements");
    const text = response ? await response.text() : "[]";
    if (text !== known) {
      known = text;
      show(JSON.parse(text));
    }
    await new Promise((resolve) => { setTimeout(resolve, 250); });
  }
  looking = false;
}

function show(elements) {
  const focused = list.contains(document.activeElement) ? document.activeElement.dataset.identity : null;
  list.replaceChildren(...elements.map((element) => {
    const item = document.createElement("li");
    item.append(buttonFor(element));
    return item;
  }));
  if (focused === null) return;
  const same = list.querySelector(`[data-identity="${focused}"]`) ?? list.querySelector("button");
  (same ?? details.querySelector("summary")).focus();
}

export function start() {
  on("screen", look);
  details.addEventListener("toggle", look);
}
