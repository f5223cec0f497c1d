// What stands in the phone's stores.

import { ask, on } from "./connection.js";

const into = document.getElementById("records");
const titles = { notes: "Notes", reminders: "Reminders", events: "Events" };
let known = null; // how many of each kind there were

function text(value) {
  if (Array.isArray(value)) return value.map(text).join(", ");
  if (value !== null && typeof value === "object") return Object.entries(value).filter(([, part]) => part !== null).map(([key, part]) => `${key}: ${text(part)}`).join(", ");
  return String(value);
}

const isTold = (value) => value !== null && value !== "" && !(Array.isArray(value) && value.length === 0);

function card(record) {
  const item = document.createElement("li");
  const heading = document.createElement("strong");
  heading.textContent = record.title || record.summary || "Without a title";
  const list = document.createElement("dl");
  for (const [key, value] of Object.entries(record)) {
    if (key === "title" || !isTold(value)) continue;
    const term = document.createElement("dt");
    term.textContent = key;
    const definition = document.createElement("dd");
    definition.textContent = text(value);
    list.append(term, definition);
  }
  item.append(heading, list);
  return item;
}

async function show() {
  const response = await ask("/page/records");
  if (!response) return;
  const all = await response.json();
  const parts = Object.entries(titles).flatMap(([kind, title]) => {
    const heading = document.createElement("h3");
    heading.textContent = `${title} (${all[kind].length})`;
    const list = document.createElement("ul");
    list.className = "cards";
    list.dataset.kind = kind;
    list.append(...all[kind].map(card));
    if (known && all[kind].length > known[kind]) list.lastElementChild.classList.add("new");
    return [heading, list];
  });
  into.replaceChildren(...parts);
  known = Object.fromEntries(Object.keys(titles).map((kind) => [kind, all[kind].length]));
  document.getElementById("tab-records").textContent = `Records (${Object.values(known).reduce((sum, count) => sum + count)})`;
}

export function start() {
  on("records", show);
}
