// Recording what is done as a flow, and playing flows.

import { ask, on, post } from "./connection.js";

const find = (id) => document.getElementById(id);
let recording = { on: false, count: 0 };
let flow = ""; // the last one recorded

function showRecording(now) {
  if (now.on === recording.on && now.count === recording.count) return;
  const ended = recording.on && !now.on;
  recording = now;
  find("record").setAttribute("aria-pressed", String(now.on));
  find("record").textContent = now.on ? `Stop recording (${now.count})` : "Record";
  if (ended) fetchFlow();
}

async function fetchFlow() {
  const response = await ask("/page/recording");
  flow = response ? await response.text() : "";
  for (const id of ["recorded", "replay", "flow-text"]) find(id).hidden = !flow;
  find("flow-text").textContent = flow;
}

function showPlay(play) {
  find("stop-play").disabled = !play.running;
  find("play").disabled = find("replay").disabled = find("record").disabled = play.running;
  if (play.running) find("play-state").textContent = play.line > 0 ? `Playing line ${play.line}: ${play.command}` : "Playing";
}

async function play(text, name) {
  find("play-state").textContent = "Playing";
  const result = await post("play", { text, name });
  const lines = result?.lines ?? [];
  const pictures = result?.pictures ? [`Pictures and dumps: ${result.pictures}`] : [];
  const verdict = !result ? "Not played" : result.ok ? `Played ${name}: all held` : `Failed: ${lines.join("; ")}`;
  find("play-state").textContent = [verdict, ...pictures].join(". ");
}

export function start() {
  on("state", (state) => {
    showRecording(state.recording);
    showPlay(state.play);
  });
  find("record").addEventListener("click", () => post("record", { action: recording.on ? "stop" : "start" }));
  find("replay").addEventListener("click", () => play(flow, "recorded.yaml"));
  find("play").addEventListener("click", async () => {
    const [file] = find("flow-file").files;
    if (!file) {
      find("flow-file").focus();
      find("play-state").textContent = "Choose a flow's file first";
      return;
    }
    play(await file.text(), file.name);
  });
  find("stop-play").addEventListener("click", () => post("stop-play"));
}
