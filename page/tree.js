// The view tree: what stands on the screen, view by view.

import { ask, on } from "./connection.js";
import { highlightRect } from "./screen.js";

const find = (id) => document.getElementById(id);
const tree = find("tree");
const panel = find("panel-tree");
const leastPause = 250; // milliseconds from one look to the next

let source = "";
let items = []; // those shown, in order: {view, item, level, parent}
let current = null; // the identity of the one that has, or had, the focus
let chosen = null;
const closed = new Set(); // identities
const seen = new Set();

const attribute = (view, name) => view.getAttribute(name) ?? "";
const identity = (view) => attribute(view, "identity");
const rectOf = (view) => attribute(view, "screen").split(" ").map(Number);

function title(view) {
  const text = attribute(view, "text") || attribute(view, "accessibilityLabel") || attribute(view, "title") || attribute(view, "placeholder");
  return text.length > 40 ? `${text.slice(0, 40)}…` : text;
}

function childrenOf(view) {
  const all = [...view.children];
  return find("show-hidden").checked ? all : all.filter((child) => attribute(child, "visible") === "true");
}

/** The keyboard's many keys are folded until somebody wants them. */
function isOpen(view) {
  const id = identity(view);
  if (!seen.has(id)) {
    seen.add(id);
    if (view.tagName === "UIKeyboardView") closed.add(id);
  }
  return !closed.has(id);
}

function build(view, level, parent, into) {
  const children = childrenOf(view);
  const item = document.createElement("li");
  item.setAttribute("role", "treeitem");
  item.setAttribute("aria-level", String(level));
  item.tabIndex = -1;
  const entry = { view, item, level, parent };
  items.push(entry);
  const row = document.createElement("span");
  row.className = "row";
  const name = document.createElement("span");
  name.className = "class";
  name.textContent = view.tagName;
  row.append(name);
  if (title(view)) {
    const text = document.createElement("span");
    text.className = "text";
    text.textContent = title(view);
    row.append(" ", text);
  }
  item.append(row);
  item.setAttribute("aria-label", `${view.tagName} ${title(view)}`.trim());
  item.classList.toggle("invisible", attribute(view, "visible") !== "true");
  item.setAttribute("aria-selected", String(identity(view) === chosen));
  if (children.length > 0) {
    const open = isOpen(view);
    item.setAttribute("aria-expanded", String(open));
    if (open) {
      const group = document.createElement("ul");
      group.setAttribute("role", "group");
      for (const child of children) build(child, level + 1, entry, group);
      item.append(group);
    }
  }
  into.append(item);
}

function render() {
  const document_ = new DOMParser().parseFromString(source, "application/xml");
  const focused = tree.contains(document.activeElement);
  const scrolled = tree.scrollTop;
  items = [];
  const fresh = document.createDocumentFragment();
  for (const window_ of document_.documentElement.children) {
    if (find("show-hidden").checked || attribute(window_, "visible") === "true") build(window_, 1, null, fresh);
  }
  tree.replaceChildren(fresh);
  tree.scrollTop = scrolled;
  const entry = entryOf(current) ?? items[0];
  if (entry) {
    entry.item.tabIndex = 0;
    if (focused) entry.item.focus({ preventScroll: true });
  }
  showDetails(items.find(({ view }) => identity(view) === chosen)?.view);
}

const entryOf = (id) => items.find(({ view }) => identity(view) === id);

function focusOn(entry) {
  if (!entry) return;
  for (const other of items) other.item.tabIndex = -1;
  current = identity(entry.view);
  entry.item.tabIndex = 0;
  entry.item.focus();
  entry.item.firstChild.scrollIntoView({ block: "nearest" });
}

function choose(entry) {
  chosen = identity(entry.view);
  for (const { view, item } of items) item.setAttribute("aria-selected", String(identity(view) === chosen));
  showDetails(entry.view);
}

function showDetails(view) {
  find("details").hidden = !view;
  if (!view) return;
  find("details-title").textContent = view.tagName;
  find("attributes").replaceChildren(...[...view.attributes].map(({ name, value }) => {
    const row = document.createElement("tr");
    const head = document.createElement("th");
    head.scope = "row";
    head.textContent = name;
    const cell = document.createElement("td");
    cell.textContent = value;
    row.append(head, cell);
    return row;
  }));
}

function toggle(entry, open) {
  const id = identity(entry.view);
  if (open) closed.delete(id);
  else closed.add(id);
  current = id;
  render();
  focusOn(entryOf(id));
}

function keyDown(event) {
  const at = items.findIndex(({ item }) => item === document.activeElement);
  if (at < 0) return;
  const entry = items[at];
  const expanded = entry.item.getAttribute("aria-expanded");
  const act = {
    ArrowDown: () => focusOn(items[at + 1]),
    ArrowUp: () => focusOn(items[at - 1]),
    Home: () => focusOn(items[0]),
    End: () => focusOn(items.at(-1)),
    ArrowRight: () => (expanded === "false" ? toggle(entry, true) : expanded === "true" && focusOn(items[at + 1])),
    ArrowLeft: () => (expanded === "true" ? toggle(entry, false) : focusOn(entry.parent)),
    Enter: () => choose(entry),
    " ": () => choose(entry),
  }[event.key];
  if (!act || event.ctrlKey || event.altKey || event.metaKey) return;
  event.preventDefault();
  act();
}

const entryAt = (target) => items.find(({ item }) => item === target.closest("[role=treeitem]"));

let looking = false;
let stale = false;
async function look() {
  stale = true;
  if (looking || panel.hidden) return;
  looking = true;
  while (stale && !panel.hidden) {
    stale = false;
    const response = await ask("/page/tree");
    const text = response ? await response.text() : "";
    if (text && text !== source) {
      source = text;
      render();
    }
    await new Promise((resolve) => { setTimeout(resolve, leastPause); });
  }
  looking = false;
}

export function start() {
  on("screen", look);
  panel.addEventListener("shown", look);
  find("show-hidden").addEventListener("change", render);
  tree.addEventListener("keydown", keyDown);
  tree.addEventListener("click", (event) => {
    const entry = entryAt(event.target);
    if (!entry) return;
    const isTwisty = event.offsetX < 18 && event.target.closest(".row") && entry.item.hasAttribute("aria-expanded");
    if (isTwisty) {
      toggle(entry, entry.item.getAttribute("aria-expanded") !== "true");
      return;
    }
    focusOn(entry);
    choose(entry);
  });
  const show = (event) => highlightRect(entryAt(event.target) && rectOf(entryAt(event.target).view));
  tree.addEventListener("mouseover", show);
  tree.addEventListener("focusin", (event) => {
    current = identity(entryAt(event.target)?.view ?? items[0].view);
    show(event);
  });
  for (const end of ["mouseleave", "focusout"]) tree.addEventListener(end, () => highlightRect(null));
}
