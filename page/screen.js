// Draws the phone's screen.

import { ask, on } from "./connection.js";

const canvas = document.getElementById("screen");
const frame = document.getElementById("frame");
const highlight = document.getElementById("highlight");
const context = canvas.getContext("2d", { alpha: false });

let version = 0;
let launch = "";
let drawing = false;
let stale = false;
/** Of the screen as it is held, in points. */
export const points = { width: 320, height: 568 };
let upright = [320, 568];

/** Draws what has changed; one request at a time, and another if more has changed meanwhile. */
async function draw() {
  stale = true;
  if (drawing) return;
  drawing = true;
  while (stale) {
    stale = false;
    await drawOnce();
  }
  drawing = false;
}

async function drawOnce() {
  const response = await ask(`/page/screen?since=${version}`);
  if (!response) return;
  const number = (name) => Number(response.headers.get(`Screen-${name}`));
  const bytes = await response.arrayBuffer();
  const [width, height, count] = [number("Width"), number("Height"), number("Count")];
  const started = response.headers.get("Screen-Launch");
  const resized = width !== canvas.width || height !== canvas.height;
  if (started !== launch || (resized && count < height)) {
    const again = version !== 0;
    launch = started;
    version = 0; // what is known is of another screen
    if (again) {
      stale = true;
      return;
    }
  }
  if (count === 0) return;
  if (resized) {
    canvas.width = width;
    canvas.height = height;
    fit();
  }
  context.putImageData(new ImageData(new Uint8ClampedArray(bytes), width, count), 0, number("First"));
  version = number("Version");
  canvas.dataset.version = version;
}

/** The frame takes the shape of the screen. */
function fit() {
  const lying = canvas.width > canvas.height === upright[1] > upright[0];
  [points.width, points.height] = lying ? [upright[1], upright[0]] : upright;
  frame.style.setProperty("--width", points.width);
  frame.style.setProperty("--height", points.height);
}

/** Shows where [x, y, width, height] lies on the screen; without it nothing. */
export function highlightRect(rect) {
  highlight.hidden = !rect;
  if (!rect) return;
  const [x, y, width, height] = rect;
  const share = (part, whole) => `${(part / whole) * 100}%`;
  highlight.style.left = share(x, points.width);
  highlight.style.top = share(y, points.height);
  highlight.style.width = share(width, points.width);
  highlight.style.height = share(height, points.height);
}

function describe(state) {
  const call = state.call ?? { phase: "idle" };
  const inCall = { ringing: `${call.number} is calling`, active: `in a call with ${call.number}`, held: "a call is held" };
  return `The phone's screen, ${points.width} by ${points.height} points; ${inCall[call.phase] ?? "no call"}`;
}

export function start() {
  on("screen", draw);
  on("state", (state) => {
    upright = state.screen;
    fit();
    frame.dataset.orientation = state.orientation ?? frame.dataset.orientation;
    frame.dataset.device = state.settings.device;
    canvas.ariaBusy = String(state.moving ?? false);
    const text = describe(state);
    if (canvas.getAttribute("aria-label") !== text) canvas.setAttribute("aria-label", text);
  });
}
