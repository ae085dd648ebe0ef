// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Gamepads and touch controls: both only press the game's own keys.

import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import * as support from "./support.mjs";

const { wait } = support;
let server, browser;

before(async () => {
  server = await support.serve();
  browser = await support.launchChromium({ args: ["--touch-events=enabled"] });
});
after(async () => {
  await browser.close();
  server.stop();
});

const keysOf = [["a", "d", "w", "space", "z"], ["left", "right", "up", "enter", "delete"]];
const heldKeys = (page) => page.evaluate(() => [...window.morvane.input.down].sort(
  (a, b) => a - b));
const lit = (page) => page.evaluate(() => [...document.querySelectorAll(".pad .down, .crew .down")]
  .map((cap) => cap.dataset.key));

// Two pads whose state the test sets: pads[i].axes and pads[i].press(numbers...).
async function stubGamepads(page) {
  await page.evaluateOnNewDocument(() => {
    const pad = (index) => ({
      index, id: "stub", connected: true, mapping: "standard", axes: [0, 0, 0, 0],
      buttons: Array.from({ length: 17 }, () => ({ pressed: false, value: 0 })),
      press(...numbers) {
        this.buttons.forEach((button, i) => { button.pressed = numbers.includes(i); });
      },
    });
    window.pads = [];
    navigator.getGamepads = () => window.pads;
    window.connect = () => {
      window.pads = [null, pad(1), pad(2)];
      window.dispatchEvent(new Event("gamepadconnected"));
    };
  });
}

test("two gamepads choose in the menu, then sail, turn and fire at once", async () => {
  const page = await support.openPage(browser, server.address, stubGamepads);
  await page.evaluate(() => window.connect());
  assert.equal(await page.evaluate(() => document.getElementById("gamepads").textContent),
    "Gamepads: both players");
  await support.startGame(page);
  const press = async (pad, ...numbers) => {
    await page.evaluate(([i, list]) => window.pads[i].press(...list), [pad, numbers]);
    await wait(150);
    await page.evaluate((i) => window.pads[i].press(), pad);
    await wait(250);
  };
  await press(1, 0); // skips the intro
  for (let tries = 0; tries < 8; ++tries) {
    if (await page.evaluate(() => window.morvane.isBattle())) break;
    await press(2, 0);
  }
  assert.ok(await page.evaluate(() => window.morvane.isBattle()));
  await page.evaluate(() => {
    window.pads[1].axes = [-1, 0, 0, 0];
    window.pads[1].press(0, 2);
    window.pads[2].press(15, 12, 1, 3);
  });
  await wait(250);
  // a, w, space; delete, up, right, enter
  assert.deepEqual(await heldKeys(page), [13, 32, 97, 119, 127, 273, 275]);
  await page.evaluate(() => { window.pads = []; });
  await wait(250);
  assert.deepEqual(await heldKeys(page), []);
  await page.close();
});

async function openTablet(width = 1180, height = 820) {
  const page = await support.openPage(browser, server.address, (opened) =>
    opened.setViewport({ width, height, hasTouch: true, isMobile: true, deviceScaleFactor: 1 }));
  const client = await page.createCDPSession();
  await support.ready(page);
  const middle = async (selector) => {
    const box = await (await page.$(selector)).boundingBox();
    return { x: Math.round(box.x + box.width / 2), y: Math.round(box.y + box.height / 2) };
  };
  const touch = (type, points) => client.send("Input.dispatchTouchEvent",
    { type, touchPoints: points.map((point, id) => ({ ...point, id, force: 1 })) });
  const tap = async (point) => {
    await touch("touchStart", [point]);
    await wait(80);
    await touch("touchEnd", []);
  };
  return { page, middle, touch, tap };
}

test("two players sail, turn and fire with six fingers on one tablet", async () => {
  const { page, middle, touch, tap } = await openTablet();
  await tap(await middle("#play"));
  await support.frames(page, 5);
  await tap(await middle("#canvas")); // skips the intro
  await wait(500);
  const box = await (await page.$("#canvas")).boundingBox();
  const newGame = { x: Math.round(box.x + box.width / 2),
    y: Math.round(box.y + box.height * 0.507) };
  for (let tries = 0; tries < 5; ++tries) {
    if (await page.evaluate(() => window.morvane.isBattle())) break;
    await tap(newGame);
    await wait(500);
  }
  assert.ok(await page.evaluate(() => window.morvane.isBattle()));

  const wanted = keysOf.flatMap(([left, , sail, fire]) => [left, sail, fire]);
  const points = [];
  for (const key of wanted) points.push(await middle(`.pad [data-key=${key}]`));
  for (let count = 1; count <= points.length; ++count) {
    await touch("touchStart", points.slice(0, count));
  }
  await wait(250);
  assert.deepEqual(await heldKeys(page), [13, 32, 97, 119, 273, 276]);
  assert.deepEqual(new Set((await lit(page)).filter((key) => wanted.includes(key))),
    new Set(wanted));
  if (process.env.MORVANE_PICTURES) {
    await page.screenshot({ path: `${process.env.MORVANE_PICTURES}/touch.png` });
  }
  // The first finger slides from left to right; the others stay.
  points[0] = await middle(".pad [data-key=d]");
  await touch("touchMove", points);
  await wait(250);
  assert.deepEqual(await heldKeys(page), [13, 32, 100, 119, 273, 276]);
  await touch("touchEnd", []);
  await wait(250);
  assert.deepEqual(await heldKeys(page), []);
  await tap(await middle(".pad [data-key=escape]"));
  await page.waitForFunction(() => !window.morvane.isBattle());
  await page.close();
});
