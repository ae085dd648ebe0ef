// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Shared by the tests of the page: the server, the browsers, a virtual clock, scripts.

import { spawn } from "node:child_process";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import puppeteer from "puppeteer-core";
import { symbols } from "../../web/page/keys.js";

export const project = new URL("../..", import.meta.url).pathname;
export const site = join(project, "build/web/site");
export const viewport = { width: 1280, height: 800 };
export const isFirefox = process.env.MORVANE_BROWSER === "firefox";
// In Firefox, Puppeteer's "Enter" is the one of the number pad, which the game does not take.
export const enter = isFirefox ? "\uE006" : "Enter";

export const wait = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

// Serves a directory as web/play does; resolves with { address, stop }.
export function serve(directory = site, port = 0) {
  const server = spawn(join(project, "web/play"), [directory, String(port)]);
  return new Promise((resolve, reject) => {
    server.stdout.on("data", (text) => {
      const address = /http:\S+/.exec(text);
      if (address) resolve({ address: address[0], stop: () => server.kill() });
    });
    server.on("exit", () => reject(new Error("the server has ended")));
  });
}

export function launchChromium(options = {}) {
  return puppeteer.launch({
    executablePath: "/usr/bin/chromium", headless: true, protocolTimeout: 600000,
    args: ["--no-sandbox", "--disable-dev-shm-usage", "--autoplay-policy=user-gesture-required",
      ...options.args || []],
    ...options.launch,
  });
}

export function launchTested() {
  return isFirefox ? launchFirefox() : launchChromium();
}

function launchFirefox() {
  return puppeteer.launch({
    browser: "firefox", executablePath: "/usr/bin/firefox-esr", headless: true,
    protocolTimeout: 600000,
    extraPrefsFirefox: { "media.autoplay.default": 0, "media.cubeb.backend": "none" },
  });
}

// A page on which the game is ready to be started. Problems of its scripts are kept.
export async function openPage(browser, address, prepare = async () => {}) {
  // Chromium may refuse a new page while another one is closing.
  const page = await browser.newPage().catch(() => wait(500).then(() => browser.newPage()));
  await page.setViewport(viewport);
  page.problems = [];
  page.on("pageerror", (problem) => page.problems.push(String(problem)));
  page.on("console", (message) => {
    if (message.type() === "error") page.problems.push(message.text());
  });
  await prepare(page);
  await page.goto(address);
  await ready(page);
  return page;
}

export async function ready(page, label = "Play") {
  await page.waitForFunction((text) => {
    const button = document.getElementById("play");
    return !button.disabled && button.textContent === text;
  }, { timeout: 120000 }, label);
}

export async function startGame(page) {
  const before = await page.evaluate(() => window.morvane.screen.frames);
  await page.click("#play");
  await frames(page, before + 3);
}

// Waits until the game has shown so many frames.
export function frames(page, count) {
  return page.waitForFunction((n) => window.morvane.screen.frames >= n,
    { timeout: 120000, polling: 20 }, count);
}

// From the intro into a battle, with keys.
export async function startBattle(page) {
  await page.keyboard.press("x");
  await wait(400);
  for (let tries = 0; tries < 100; ++tries) {
    await page.keyboard.press(enter, { delay: 60 });
    await wait(300);
    if (await page.evaluate(() => window.morvane.isBattle())) return;
  }
  throw new Error("no battle begins");
}

export async function canvasPicture(page, file) {
  const canvas = await page.$("#canvas");
  await canvas.screenshot({ path: file });
}

// Scripts in the format of tests/replay

const key = 1, motion = 2, button = 3, quit = 5, sound = 6;
const buttons = { leftbutton: 1, middlebutton: 2, rightbutton: 3, wheelup: 4, wheeldown: 5 };
const symbolNames = { ...symbols, return: 13, shift: 304, f1: 282, unknown: 0 };

function eventsOf(frame, [verb, name, argument]) {
  const symbol = name in symbolNames ? symbolNames[name] : String(name).charCodeAt(0);
  switch (verb) {
    case "tap": return [[frame, key, 1, symbol], [frame, key, 0, symbol]];
    case "hold": return [[frame, key, 1, symbol], [frame + Number(argument), key, 0, symbol]];
    case "down": return [[frame, key, 1, symbol]];
    case "up": return [[frame, key, 0, symbol]];
    case "click": return [[frame, button, 1, buttons[name]], [frame, button, 0, buttons[name]]];
    case "press": return [[frame, button, 1, buttons[name]]];
    case "release": return [[frame, button, 0, buttons[name]]];
    case "point": return [[frame, motion, Number(name), Number(argument)]];
    case "quit": return [[frame, quit, 0, 0]];
    case "hear": return [[frame, sound, Number(name), 0]];
    case "other": return []; // events that a browser does not have
    default: throw new Error(`unknown: ${verb}`);
  }
}

// Reads a script: { seed, frames, events }, or null when it needs more than events.
export function readScript(file) {
  const script = { seed: 1, frames: 0, events: [] };
  for (const line of readFileSync(file, "utf8").split("\n")) {
    const words = line.replace(/#.*/, "").trim().split(/\s+/);
    if (words[0] === "seed") script.seed = Number(words[1]);
    else if (words[0] === "frames") script.frames = Number(words[1]);
    else if (words[0] === "player" || words[1] === "set") return null;
    else if (/^\d+$/.test(words[0])) {
      script.events.push(...eventsOf(Number(words[0]), words.slice(1)));
    }
  }
  script.events.push([script.frames - 1, quit, 0, 0]);
  const order = script.events.map((event, index) => [event, index]);
  order.sort(([a, i], [b, j]) => a[0] - b[0] || i - j);
  script.events = order.map(([event]) => event);
  return script;
}
