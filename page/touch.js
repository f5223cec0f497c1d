// The mouse, a pen or a finger is the finger on the phone's screen.

import { page, send } from "./connection.js";
import { focusKeys } from "./keyboard.js";
import { points } from "./screen.js";

const canvas = document.getElementById("screen");
let pointer = null;

function touch(phase, { x, y }) {
  return send("touch", { page, phase, x, y });
}

function place(event) {
  const rect = canvas.getBoundingClientRect();
  const inside = (part, whole, most) => Math.min(Math.max((part / whole) * most, 0), most - 0.5);
  return {
    x: inside(event.clientX - rect.left, rect.width, points.width),
    y: inside(event.clientY - rect.top, rect.height, points.height),
  };
}

/** A short touch. */
export async function tap(x, y) {
  touch("began", { x, y });
  await new Promise((resolve) => { setTimeout(resolve, 50); });
  await touch("ended", { x, y });
}

export function start() {
  canvas.addEventListener("pointerdown", (event) => {
    if (pointer !== null || event.button !== 0) return;
    pointer = event.pointerId;
    canvas.setPointerCapture(pointer);
    touch("began", place(event));
    focusKeys();
  });
  canvas.addEventListener("pointermove", (event) => {
    if (event.pointerId === pointer) touch("moved", place(event));
  });
  const finish = (phase) => (event) => {
    if (event.pointerId !== pointer) return;
    pointer = null;
    touch(phase, place(event));
  };
  canvas.addEventListener("pointerup", finish("ended"));
  canvas.addEventListener("pointercancel", finish("cancelled"));
  canvas.addEventListener("mousedown", (event) => event.preventDefault()); // the keys keep the focus
  canvas.addEventListener("contextmenu", (event) => event.preventDefault());
}
