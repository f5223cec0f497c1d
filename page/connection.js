// The way to the phone: what happens there comes in as events, what is done here goes out in order.

export const page = crypto.randomUUID();

const listeners = new Map();
let stream = null;

export function on(event, listener) {
  listeners.set(event, [...(listeners.get(event) ?? []), listener]);
}

export function emit(event, detail) {
  for (const listener of listeners.get(event) ?? []) listener(detail);
}

/** The answer to a question; null where the phone cannot answer it now. */
export async function ask(path) {
  try {
    const response = await fetch(path);
    return response.ok ? response : null;
  } catch {
    return null;
  }
}

const waiting = [];
let sending = false;

/** Puts a command behind those that wait. What follows on from the last one joins it. */
export function send(name, body = {}) {
  const last = waiting.at(-1);
  const isMove = (item) => item?.name === "touch" && item.body.phase === "moved";
  if (isMove(last) && isMove({ name, body })) {
    last.body = body;
    return last.done;
  }
  if (last?.name === "type" && name === "type") {
    last.body.text += body.text;
    return last.done;
  }
  const item = { name, body };
  item.done = new Promise((resolve) => { item.resolve = resolve; });
  waiting.push(item);
  sendAll();
  return item.done;
}

async function sendAll() {
  if (sending) return;
  sending = true;
  while (waiting.length > 0) {
    const item = waiting.shift();
    item.resolve(await post(item.name, item.body));
  }
  sending = false;
}

/** Does a command at once; gives its answer, or null after the page has told why there is none. */
export async function post(name, body = {}) {
  try {
    const response = await fetch(`/page/${name}`, {
      method: "POST",
      headers: { "Content-Type": "application/json" },
      body: JSON.stringify(body),
    });
    const answer = await response.json();
    if (response.ok) return answer;
    emit("refused", answer.error);
  } catch {
    emit("refused", "no connection to the phone");
  }
  return null;
}

function open() {
  stream = new EventSource(`/page/events?page=${page}`);
  stream.onopen = () => emit("connected");
  stream.onerror = () => {
    emit("disconnected");
    if (stream?.readyState === EventSource.CLOSED) {
      close();
      setTimeout(follow, 1000);
    }
  };
  for (const name of ["screen", "records"]) stream.addEventListener(name, () => emit(name));
  for (const name of ["state", "settings"]) {
    stream.addEventListener(name, (event) => emit(name, JSON.parse(event.data)));
  }
}

function close() {
  stream?.close();
  stream = null;
}

// A page that nobody sees leaves its connection to others: a browser has few of them for one server.
function follow() {
  if (document.hidden) close();
  else if (!stream) open();
}

export function connect() {
  document.addEventListener("visibilitychange", follow);
  addEventListener("pagehide", close);
  addEventListener("pageshow", follow);
  follow();
}
