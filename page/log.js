// What happens in the phone application, line by line.

import { ask, on } from "./connection.js";

const log = document.getElementById("log");
const panel = document.getElementById("panel-log");
const filter = document.getElementById("filter");
const mostLines = 2000;

let lines = []; // {text, row}
let count = 0; // lines that have been read of this launch
let launch = null;
let there = 0; // lines that there are
let reading = false;

function rowFor(line) {
  const { t, what, ...rest } = JSON.parse(line);
  const row = document.createElement("p");
  const add = (kind, text) => {
    const span = document.createElement("span");
    span.className = kind;
    span.textContent = text;
    row.append(span, " ");
  };
  add("time", t.toFixed(2));
  add("what", what);
  add("rest", Object.entries(rest).map(([key, value]) => `${key}=${typeof value === "string" ? value : JSON.stringify(value)}`).join(" "));
  return row;
}

const isWanted = (text) => text.toLowerCase().includes(filter.value.toLowerCase());

async function read() {
  if (reading || panel.hidden) return;
  reading = true;
  while (count < there && !panel.hidden) {
    const of = launch;
    const response = await ask(`/page/log?from=${count}`);
    if (!response) break;
    const fresh = (await response.text()).split("\n").filter(Boolean);
    if (of !== launch || Number(response.headers.get("Screen-Launch")) !== launch) continue;
    count += fresh.length;
    const atEnd = log.scrollHeight - log.scrollTop - log.clientHeight < 40;
    for (const text of fresh.slice(-mostLines)) {
      const row = rowFor(text);
      row.hidden = !isWanted(text);
      lines.push({ text, row });
      log.append(row);
    }
    for (const { row } of lines.splice(0, Math.max(0, lines.length - mostLines))) row.remove();
    if (atEnd) log.scrollTop = log.scrollHeight;
    if (fresh.length === 0) break;
  }
  reading = false;
}

export function start() {
  on("state", (state) => {
    if (state.launch !== launch) {
      launch = state.launch;
      lines = [];
      count = 0;
      log.replaceChildren();
    }
    there = state.logged ?? 0;
    read();
  });
  panel.addEventListener("shown", () => {
    read();
    log.scrollTop = log.scrollHeight;
  });
  filter.addEventListener("input", () => {
    for (const { text, row } of lines) row.hidden = !isWanted(text);
  });
}
