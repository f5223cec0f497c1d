// What the page has to say: whether the phone lives, and what it has refused.

import { on, post } from "./connection.js";

const find = (id) => document.getElementById(id);

function say(text) {
  find("message-text").textContent = text;
  find("message-close").hidden = !text;
}

function setStatus(text, kind) {
  if (find("status").textContent !== text) find("status").textContent = text;
  find("status").dataset.kind = kind;
}

function showLife({ life, epitaph, settings, loader }) {
  const over = find("over");
  if (life === "running") {
    over.hidden = true;
    const lacking = loader.length > 0 ? `; ${loader.join("; ")}` : "";
    setStatus(`Live: ${settings.device}, system ${settings.system}, ${settings.app} application, ${settings.language}${lacking}`, lacking ? "bad" : "good");
    return;
  }
  const died = life === "died";
  find("over-title").textContent = died ? "The phone application died" : "The phone application does not run";
  find("over-text").textContent = died ? epitaph : "";
  find("again").textContent = died ? "Start again" : "Start";
  over.hidden = false;
  setStatus(died ? "Died" : "Ended", "bad");
}

export function start() {
  on("refused", (why) => say(why[0].toUpperCase() + why.slice(1)));
  on("state", showLife);
  on("disconnected", () => setStatus("No connection to the phone; trying again …", "bad"));
  find("message-close").addEventListener("click", () => { say(""); find("keys").focus(); });
  find("again").addEventListener("click", async () => {
    find("again").disabled = true;
    await post("launch");
    find("again").disabled = false;
    find("keys").focus();
  });
}
