// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { Clock } from "./clock.js";
import { Gamepads } from "./gamepad.js";
import { Input } from "./input.js";
import { Keyboard, lightKeyCaps } from "./keyboard.js";
import { LoadError, Loader, checkBrowser } from "./loader.js";
import { keepOffline } from "./offline.js";
import { connectPointer } from "./pointer.js";
import { Screen, toggleFullScreen } from "./screen.js";
import { Sound } from "./sound.js";
import { connectTouch } from "./touch.js";
import { base, files } from "./files.js";

const element = (id) => document.getElementById(id);
const megabytes = (bytes) => (bytes / 1e6).toFixed(1);

let program = null; // the running game
let ready = null; // everything that a game needs: { play, compiled, data }
let pageIsLeaving = false;
const posterPatience = 2000; // milliseconds

const isPlaying = () => program !== null;
const isBattle = () => isPlaying() && program._isBattle() !== 0;

const clock = new Clock();
const input = new Input();
const screen = new Screen(element("stage"), element("canvas"));
const sound = new Sound(`${base}mixer-worklet.js`);
const gamepads = new Gamepads(input, isBattle);
const keyboard = new Keyboard(input, isPlaying);

const page = {
  now: () => clock.now(),
  sleep: (ms) => clock.sleep(ms),
  open: () => {},
  present: (pixels, width, height) => screen.present(pixels, width, height),
  nextEvent: () => input.next(),
  openAudio: (...format) => sound.open(...format),
  closeAudio: () => sound.close(),
};

// ---- loading ----

const loader = new Loader(base, files);
loader.onProgress = (bytes, total) => {
  element("bar").value = bytes / total;
  element("bytes").textContent = `${megabytes(bytes)} of ${megabytes(total)} MB`;
};

// Waits for the poster, because on a slow connection the files of the game would delay it.
async function showPoster() {
  const wait = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
  const poster = new Image();
  poster.src = `${base}pozadie-lode3.webp`;
  await Promise.race([poster.decode().catch(() => {}), wait(posterPatience)]);
  await wait(0); // lets the browser paint
}

async function prepare() {
  checkBrowser();
  await showPoster();
  const [loaded, game] = await Promise.all([loader.load(), import("./game.js")]);
  const compiled = await WebAssembly.compile(loaded.get("morvane.wasm"));
  const data = new Map(files.filter((file) => file.data)
    .map((file) => [file.data, loaded.get(file.name)]));
  return { play: game.play, compiled, data };
}

function explain(problem) {
  if (problem instanceof LoadError) return problem.message;
  console.error(problem);
  return "The game could not be loaded: the connection was lost or the download failed.";
}

function offer(label, action, message = "") {
  const button = element("play");
  button.textContent = label;
  button.disabled = false;
  button.onclick = action;
  element("message").textContent = message;
  element("loading").hidden = true;
  if (document.activeElement === document.body) button.focus({ preventScroll: true });
}

async function load() {
  element("play").disabled = true;
  element("play").textContent = "Play";
  element("message").textContent = "";
  element("loading").hidden = false;
  try {
    ready = await prepare();
    offer("Play", start);
    keepOffline(offerNewVersion);
  } catch (problem) {
    offer("Try again", load, explain(problem));
  }
}

// ---- playing ----

function ashore(isAshore) {
  document.body.classList.toggle("ashore", isAshore);
}

async function start() {
  ashore(false);
  element("canvas").focus({ preventScroll: true });
  input.clear();
  try {
    const end = await ready.play({
      compiled: ready.compiled, data: ready.data, page,
      onStart: (started) => { program = started; },
    });
    offer(end.isFailure ? "Try again" : "Play again", start,
      end.isFailure ? end.messages.join(" ") : "");
  } catch (problem) {
    console.error(problem);
    offer("Try again", start, `The game has stopped: ${problem.message}`);
  }
  program = null;
  sound.close();
  ashore(true);
}

// The gamepads are polled when the game asks for events, so at least once a frame.
page.nextEvent = () => {
  const event = input.next();
  if (!event) gamepads.poll();
  return event || input.next();
};

// ---- the page around the game ----

function offerNewVersion(takeOver) {
  const reload = () => {
    navigator.serviceWorker.addEventListener("controllerchange", () => {
      pageIsLeaving = true;
      window.location.reload();
    });
    takeOver();
  };
  if (!isPlaying()) reload();
}

function notice(text) {
  element("notice").textContent = text;
  element("notice").hidden = text === "";
}

function pauseOrResume() {
  if (document.hidden) {
    clock.pause();
    sound.pause();
    input.blur();
  } else {
    clock.resume();
    sound.wake();
    input.focus();
  }
}

function remembered(control, key, apply) {
  try {
    const value = localStorage.getItem(key);
    if (value !== null) control.value = value;
  } catch (problem) { /* the browser does not allow storage */ }
  const change = () => {
    apply(control.value);
    try {
      localStorage.setItem(key, control.value);
    } catch (problem) { /* as above */ }
  };
  control.addEventListener("input", change);
  apply(control.value);
}

sound.onState = notice;
gamepads.onChange = (count) => {
  element("pads").textContent = ["", "Gamepad: player 1", "Gamepads: both players"][count];
};
lightKeyCaps(input);
connectPointer(input, element("canvas"));
connectTouch(input);
remembered(element("volume"), "morvane volume", (value) => sound.setVolume((value / 100) ** 2));
remembered(element("layout"), "morvane keys", (value) => { keyboard.byPlace = value === "place"; });

for (const name of ["keydown", "pointerdown", "touchend"]) {
  window.addEventListener(name, () => sound.wake());
}
for (const button of document.querySelectorAll(".full-screen")) {
  button.addEventListener("click", () => {
    toggleFullScreen().catch(() => notice("The browser does not allow full screen here."));
    if (isPlaying()) element("canvas").focus({ preventScroll: true });
  });
}
for (const button of document.querySelectorAll("[data-dialog]")) {
  button.addEventListener("click", () => element(button.dataset.dialog).showModal());
}
for (const control of document.querySelectorAll("footer input, footer select")) {
  control.addEventListener("change", () => { if (isPlaying()) element("canvas").focus(); });
}
document.addEventListener("visibilitychange", pauseOrResume);
window.addEventListener("blur", () => input.blur());
window.addEventListener("focus", () => input.focus());
window.addEventListener("beforeunload", (event) => {
  if (isBattle() && !pageIsLeaving) {
    event.preventDefault();
    event.returnValue = "";
  }
});

// The parts of the page, for tests and for use in the console.
window.morvane = { clock, gamepads, input, loader, page, screen, sound, isBattle };
window.morvane.program = () => program;

load();
