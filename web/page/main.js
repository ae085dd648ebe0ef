// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { Clock } from "./clock.js";
import { Gamepads } from "./gamepad.js";
import { Input } from "./input.js";
import { Keyboard, lightKeyCaps } from "./keyboard.js";
import { LoadError, Loader } from "./loader.js";
import { keepOffline } from "./offline.js";
import { connectPointer } from "./pointer.js";
import { Screen, toggleFullScreen } from "./screen.js";
import { Sound } from "./sound.js";
import { connectTouch } from "./touch.js";
import { base, files } from "./files.js";

const element = (id) => document.getElementById(id);
const listen = (target, names, action) => {
  for (const name of names.split(" ")) target.addEventListener(name, action);
};
const canvas = element("canvas");
const posterPatience = 2000; // milliseconds

let program = null; // the running game
let ready = null; // everything that a game needs: { play, compiled, data }

const isPlaying = () => program !== null;
const isBattle = () => isPlaying() && program._isBattle() !== 0;

const clock = new Clock();
const input = new Input();
const screen = new Screen(element("stage"), canvas);
const sound = new Sound();
const gamepads = new Gamepads(input, isBattle);
const keyboard = new Keyboard(input, isPlaying);

// The functions that the drivers in web/sdl call.
const page = {
  now: () => clock.now(),
  sleep: (ms) => clock.sleep(ms),
  present: (pixels, width, height) => screen.present(pixels, width, height),
  openAudio: (...format) => sound.open(...format),
  closeAudio: () => sound.close(),
  nextEvent: () => {
    if (input.events.length === 0) gamepads.poll(); // so at least once a frame
    return input.events.shift();
  },
};

// ---- loading ----

const loader = new Loader(base, files);
loader.onProgress = (bytes, total) => {
  const megabytes = (count) => (count / 1e6).toFixed(1);
  element("bar").value = bytes / total;
  element("bytes").textContent = `${megabytes(bytes)} of ${megabytes(total)} MB`;
};

// Waits until the poster is on the display, because on a slow connection the files of the game
// would delay it.
async function showPoster() {
  const wait = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
  const nextFrame = () => new Promise((resolve) => requestAnimationFrame(resolve));
  const poster = new Image();
  poster.src = `${base}pozadie-lode3.webp`;
  const painted = poster.decode().catch(() => {}).then(nextFrame).then(nextFrame);
  await Promise.race([painted, wait(posterPatience)]); // a hidden page has no frames
}

async function prepare() {
  if (typeof WebAssembly !== "object") {
    throw new LoadError("This browser has no WebAssembly, which the game needs. Every browser " +
      "of recent years has it, unless it was switched off.");
  }
  await showPoster();
  const [loaded, game] = await Promise.all([loader.load(), import("./game.js")]);
  const compiled = await WebAssembly.compile(loaded.get("morvane.wasm")).catch(() => {
    throw new LoadError("The WebAssembly of this browser is too old for the game, which needs " +
      "Chromium 91, Firefox 89, Safari 16.4 or later.");
  });
  const data = new Map(files.filter((file) => file.data)
    .map((file) => [file.data, loaded.get(file.name)]));
  return { play: game.play, compiled, data };
}

// Offers an action on the large button, with a message if something has gone wrong.
function offer(label, action, message = "") {
  const button = element("play");
  button.textContent = label;
  button.disabled = !action;
  button.onclick = action;
  element("message").textContent = message;
  element("loading").hidden = action !== null;
  if (document.activeElement === document.body) button.focus({ preventScroll: true });
}

async function load() {
  offer("Play", null);
  try {
    ready = await prepare();
    offer("Play", start);
    keepOffline(isPlaying);
  } catch (problem) {
    console.error(problem);
    offer("Try again", load, problem instanceof LoadError ? problem.message :
      "The game could not be loaded: the connection was lost or the download failed.");
  }
}

// ---- playing ----

async function start() {
  document.body.classList.remove("ashore");
  canvas.focus({ preventScroll: true });
  input.events.length = 0;
  try {
    const { compiled, data } = ready;
    const onStart = (started) => { program = started; };
    const end = await ready.play({ compiled, data, page, onStart });
    if (end.isFailure) offer("Try again", start, end.messages.join(" "));
    else offer("Play again", start);
  } catch (problem) {
    console.error(problem);
    offer("Try again", start, `The game has stopped: ${problem.message}`);
  }
  program = null;
  sound.close();
  document.body.classList.add("ashore");
}

// ---- the page around the game ----

function notice(text) {
  element("notice").textContent = text;
  element("notice").hidden = text === "";
}

function loseFocus() {
  keyboard.releaseAll();
  input.focus(false);
}

function pauseOrResume() {
  if (document.hidden) {
    clock.pause();
    sound.pause();
    loseFocus();
  } else {
    clock.resume();
    sound.wake();
    input.focus(true);
  }
}

// Applies a control of the page and keeps its value for the next visit, where storage is allowed.
function remember(control, apply) {
  let storage = {};
  try {
    storage = window.localStorage;
  } catch (problem) { /* not allowed */ }
  const name = `morvane ${control.id}`;
  control.value = storage[name] || control.value;
  apply(control.value);
  listen(control, "input", () => {
    storage[name] = control.value;
    apply(control.value);
  });
  listen(control, "change", () => { if (isPlaying()) canvas.focus(); });
}

input.onKey = lightKeyCaps;
sound.onState = notice;
connectPointer(input, canvas);
connectTouch(input);
remember(element("volume"), (value) => sound.setVolume((value / 100) ** 2));
remember(element("layout"), (value) => { keyboard.byPlace = value === "place"; });

for (const button of document.querySelectorAll(".full-screen")) {
  listen(button, "click", () => {
    toggleFullScreen().catch(() => notice("The browser does not allow full screen here."));
    if (isPlaying()) canvas.focus({ preventScroll: true });
  });
}
for (const button of document.querySelectorAll("[data-dialog]")) {
  listen(button, "click", () => element(button.dataset.dialog).showModal());
}
listen(window, "gamepadconnected gamepaddisconnected", () => {
  element("gamepads").textContent =
    ["", "Gamepad: player 1", "Gamepads: both players"][gamepads.connected().length];
});
listen(window, "keydown pointerdown touchend", () => sound.wake());
listen(document, "visibilitychange", pauseOrResume);
listen(window, "blur", loseFocus);
listen(window, "focus", () => input.focus(true));
listen(window, "beforeunload", (event) => {
  if (!isBattle()) return;
  event.preventDefault();
  event.returnValue = "";
});

// The parts of the page, for tests and for use in the console.
window.morvane = { clock, gamepads, input, page, loader, screen, sound, isBattle };
window.morvane.program = () => program;

load();
