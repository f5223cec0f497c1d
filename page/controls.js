// Calls, orientation, clock, settings, device.

import { on, post, send } from "./connection.js";

const find = (id) => document.getElementById(id);
const setText = (id, text) => { if (find(id).textContent !== text) find(id).textContent = text; };

const orientations = ["PORTRAIT", "LANDSCAPE_LEFT", "UPSIDE_DOWN", "LANDSCAPE_RIGHT"]; // each one turn to the left
let orientation = "PORTRAIT";
let settings = null; // as the phone runs with
const chosen = ["device", "app", "system", "region", "hours"]; // of them, beside the language
let languagesKnown = false;

const possible = {
  idle: ["call"], ended: ["call"], ringing: ["accept", "cancel"], active: ["hold", "cancel"], held: ["hold", "cancel"],
};

function showCall(call) {
  const phase = call?.phase ?? "none";
  const buttons = [...document.querySelectorAll("[data-call]")];
  const focused = buttons.includes(document.activeElement);
  for (const button of buttons) button.disabled = !(possible[phase] ?? []).includes(button.dataset.call);
  if (focused && document.activeElement.disabled !== false) buttons.find((button) => !button.disabled)?.focus();
  const hold = find("controls").querySelector("[data-call=hold]");
  hold.textContent = phase === "held" ? "Go on" : "Hold";
  const time = call ? `${Math.floor(call.seconds / 60)}:${String(Math.floor(call.seconds) % 60).padStart(2, "0")}` : "";
  const texts = { ringing: `${call?.number} is calling`, active: `In a call, ${time}`, held: "The call is held" };
  setText("call-state", texts[phase] ?? "No call");
}

function showClock(state) {
  const text = state.localTime
    ? `Stands at ${state.localTime.replace("T", " ")}, ${state.settings.zone}`
    : `Goes with this computer's, ${state.settings.zone}`;
  setText("clock-state", text);
  const field = find("clock");
  if (state.localTime && document.activeElement !== field) field.value = state.localTime;
  if (!field.value) field.value = localTime(state.settings.zone);
}

/** What clocks in the zone show now, as the field takes it. */
function localTime(zone) {
  const fields = new Intl.DateTimeFormat("sv", { dateStyle: "short", timeStyle: "medium", timeZone: zone });
  return fields.format(new Date()).replace(" ", "T");
}

/** The choices follow the phone, but not while somebody is choosing. */
function showSettings(now) {
  if (JSON.stringify(now) === JSON.stringify(settings)) return;
  settings = now;
  for (const name of chosen) find(name).value = now[name];
  chooseLanguage();
}

function chooseLanguage() {
  const select = find("language");
  const tag = languagesKnown && settings?.language;
  if (tag && ![...select.options].some((option) => option.value === tag)) select.add(new Option(tag, tag));
  if (tag) select.value = tag;
}

function showSwitches(switches) {
  const into = find("switches");
  for (const { key, label, footer, on: isOn } of switches) {
    let box = find(`switch-${key}`);
    if (!box) {
      const line = document.createElement("label");
      line.className = "line";
      line.title = footer;
      box = Object.assign(document.createElement("input"), { type: "checkbox", id: `switch-${key}` });
      box.setAttribute("role", "switch");
      box.addEventListener("change", () => post("preferences", { key, on: box.checked }));
      line.append(box, ` ${label}`);
      into.append(line);
    }
    box.checked = isOn;
  }
}

const answers = { ask: "will be asked for", allow: "allowed", deny: "denied" };

export function start() {
  for (const button of document.querySelectorAll("[data-call]")) {
    button.addEventListener("click", () => {
      const action = button.dataset.call;
      post("call", action === "call" ? { action, number: find("number").value } : { action });
    });
  }
  const turn = (steps) => () => {
    const next = (orientations.indexOf(orientation) + steps + orientations.length) % orientations.length;
    orientation = orientations[next]; // where another turn begins, even before the phone has told of this one
    send("orientation", { orientation });
  };
  find("turn-left").addEventListener("click", turn(1));
  find("turn-right").addEventListener("click", turn(-1));
  find("set-clock").addEventListener("click", () => {
    const local = find("clock").value;
    post("clock", { localTime: local.length === 16 ? `${local}:00` : local });
  });
  find("real-clock").addEventListener("click", () => post("clock"));
  find("ask-again").addEventListener("click", () => post("permissions", { reminders: "ask", events: "ask" }));
  find("device").addEventListener("change", () => { // each device has its own application
    find("app").value = find("device").value === "iphone4" ? "older" : "newer";
  });
  find("restart").addEventListener("click", () => {
    find("region").value = find("region").value.toUpperCase();
    post("settings", Object.fromEntries([...chosen, "language"].map((name) => [name, find(name).value])));
  });

  on("state", (state) => {
    orientation = state.orientation ?? orientation;
    showCall(state.call);
    showClock(state);
    showSettings(state.settings);
  });
  on("settings", (all) => {
    const select = find("language");
    if (!languagesKnown) {
      languagesKnown = true;
      const names = new Intl.DisplayNames(["en"], { type: "language" });
      for (const tag of all.languages) select.add(new Option(`${names.of(tag)} (${tag})`, tag));
      chooseLanguage();
    }
    showSwitches(all.switches);
    const { reminders, events } = all.permissions;
    setText("access-state", `Reminders: ${answers[reminders]}; events: ${answers[events]}`);
  });
}
