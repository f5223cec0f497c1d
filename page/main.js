// Puts the page together.

import { connect } from "./connection.js";

const parts = ["messages", "screen", "touch", "keyboard", "controls", "tabs", "tree", "elements", "records", "log", "recorder"];
for (const part of await Promise.all(parts.map((name) => import(`./${name}.js`)))) part.start();
connect();
