// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The page around the game: keys, layout, pausing, leaving, problems. With MORVANE_BROWSER=firefox
// in Firefox, otherwise in Chromium.

import assert from "node:assert/strict";
import { after, afterEach, before, beforeEach, test } from "node:test";
import * as support from "./support.mjs";

const { enter, wait } = support;
let server, browser, page;

before(async () => {
  server = await support.serve();
  browser = await support.launchTested();
});
after(async () => {
  await browser.close();
  server.stop();
});
beforeEach(async () => { page = await support.openPage(browser, server.address); });
afterEach(async () => { await page.close({ runBeforeUnload: false }); });

// Records the events that the game receives.
const watchEvents = () => page.evaluate(() => {
  window.seen = [];
  const next = window.morvane.page.nextEvent;
  window.morvane.page.nextEvent = () => {
    const event = next();
    if (event) window.seen.push(event);
    return event;
  };
});
const seenKeys = () => page.evaluate(() => window.seen.filter((event) => event[0] === 1)
  .map((event) => `${event[1] ? "+" : "-"}${event[2]}`));
const shown = () => page.evaluate(() => window.morvane.screen.frames);

test("the game is played from the page and ends on it", async () => {
  await support.startGame(page);
  await support.startBattle(page);
  await page.keyboard.press("Escape");
  await page.waitForFunction(() => !window.morvane.isBattle());
  await page.keyboard.press("q");
  await support.ready(page, "Play again");
  await support.startGame(page);
  assert.deepEqual(page.problems, []);
});

test("the game's keys neither scroll nor move the focus", async () => {
  await page.setViewport({ width: 700, height: 380 });
  await support.startGame(page);
  await support.startBattle(page);
  await watchEvents();
  const keys = ["Tab", " ", "ArrowUp", "ArrowDown", "ArrowLeft", "ArrowRight", "Delete",
    "Backspace", enter];
  for (const key of keys) await page.keyboard.press(key, { delay: 30 });
  await wait(200);
  assert.deepEqual(await page.evaluate(() => [scrollX, scrollY, document.activeElement.id]),
    [0, 0, "canvas"]);
  assert.equal(page.url(), server.address);
  assert.deepEqual((await seenKeys()).filter((key) => key[0] === "+"),
    ["+9", "+32", "+273", "+274", "+276", "+275", "+127", "+8", "+13"]);
});

test("the browser's own keys stay the browser's", async () => {
  await support.startGame(page);
  await watchEvents();
  const prevented = await page.evaluate(() => [["F5"], ["F11"], ["F12"], ["r", { ctrlKey: true }],
    ["t", { ctrlKey: true }], ["w"]].map(([key, modifiers]) => {
    const event = new KeyboardEvent("keydown",
      { key, code: key, bubbles: true, cancelable: true, ...modifiers });
    document.getElementById("canvas").dispatchEvent(event);
    return event.defaultPrevented;
  }));
  assert.deepEqual(prevented, [false, false, false, false, false, true]);
});

test("six keys are held at once, and all are released with the focus", async () => {
  await support.startGame(page);
  await support.startBattle(page);
  await watchEvents();
  for (const key of ["a", "w", "Tab", "ArrowLeft", "ArrowUp", enter]) {
    await page.keyboard.down(key);
  }
  await wait(200);
  assert.equal(await page.evaluate(() => document.querySelectorAll("kbd.down").length), 6);
  await page.evaluate(() => window.dispatchEvent(new Event("blur")));
  await wait(200);
  assert.equal(await page.evaluate(() => document.querySelectorAll(".down").length), 0);
  assert.deepEqual(await page.evaluate(() => window.seen.at(-1)), [4, 0, 0]);
});

test("keys go by letter, or by place where that is chosen", async () => {
  await support.startGame(page);
  await watchEvents();
  const press = (key, code) => page.evaluate(([key, code]) => {
    for (const name of ["keydown", "keyup"]) {
      document.getElementById("canvas").dispatchEvent(new KeyboardEvent(name,
        { key, code, bubbles: true, cancelable: true }));
    }
  }, [key, code]);
  await press("z", "KeyW"); // a French keyboard
  await press("ц", "KeyW"); // a Russian one
  await press("W", "KeyW"); // with Shift
  await press("Enter", "NumpadEnter");
  await page.evaluate(() => {
    const choice = document.getElementById("layout");
    choice.value = "place";
    choice.dispatchEvent(new Event("input"));
  });
  await press("z", "KeyW");
  await wait(200);
  assert.deepEqual((await seenKeys()).filter((key) => key[0] === "+"),
    ["+122", "+119", "+119", "+271", "+119"]);
});

test("the stage keeps 4:3 and fits, and is sharp at whole multiples", async () => {
  for (const [width, height] of [[1024, 600], [1280, 800], [1920, 1080], [3840, 2160],
    [800, 1280], [844, 390], [320, 568]]) {
    await page.setViewport({ width, height });
    await page.waitForFunction((w, h) => innerWidth === w && innerHeight === h, {}, width, height);
    const seen = await page.evaluate(async () => {
      const painted = () => new Promise((resolve) => requestAnimationFrame(resolve));
      for (let i = 0; i < 3; ++i) await painted(); // the page has been laid out anew
      const box = document.getElementById("stage").getBoundingClientRect();
      const all = [...document.querySelectorAll("#stage, .crew, .pad, footer")]
        .map((part) => part.getBoundingClientRect()).filter((part) => part.width > 0);
      return { width: box.width, height: box.height,
        rendering: document.getElementById("canvas").style.imageRendering,
        isInside: all.every((part) => part.left >= 0 && part.right <= innerWidth + 0.5 &&
          part.top >= 0 && part.bottom <= innerHeight + 0.5) };
    });
    const what = `${width} x ${height}: ${JSON.stringify(seen)}`;
    assert.ok(Math.abs(seen.width * 3 - seen.height * 4) <= 4, what);
    assert.ok(seen.isInside, what);
    assert.equal(seen.rendering, seen.width % 800 === 0 ? "pixelated" : "auto", what);
  }
});

test("a hidden page pauses the game and goes on where it was", async () => {
  await support.startGame(page);
  const hide = (hidden) => page.evaluate((value) => {
    Object.defineProperty(document, "hidden", { value, configurable: true });
    document.dispatchEvent(new Event("visibilitychange"));
  }, hidden);
  await hide(true);
  await wait(300);
  const before = [await shown(), await page.evaluate(() => window.morvane.clock.now())];
  await wait(500);
  assert.deepEqual([await shown(), await page.evaluate(() => window.morvane.clock.now())], before);
  await hide(false);
  await support.frames(page, before[0] + 5);
  const passed = await page.evaluate((then) => window.morvane.clock.now() - then, before[1]);
  assert.ok(passed < 5000);
});

test("leaving is asked about during a battle only", async () => {
  const asks = () => page.evaluate(() => {
    const event = new Event("beforeunload", { cancelable: true });
    window.dispatchEvent(event);
    return event.defaultPrevented;
  });
  await support.startGame(page);
  assert.equal(await asks(), false);
  await support.startBattle(page);
  assert.equal(await asks(), true);
});

test("full screen shows the game alone, and a second request ends it", async () => {
  await support.startGame(page);
  await page.click("footer .full-screen");
  await page.waitForFunction(() => document.fullscreenElement !== null);
  await wait(300);
  const [panels, focus] = await page.evaluate(() => [
    document.querySelector(".crew").getBoundingClientRect().width, document.activeElement.id]);
  assert.deepEqual([panels, focus], [0, "canvas"]);
  await page.evaluate(() => document.exitFullscreen());
});

async function openWith(script) {
  const other = await browser.newPage();
  other.setDefaultTimeout(60000);
  await other.evaluateOnNewDocument(script);
  await other.goto(server.address);
  await other.waitForFunction(() => !document.getElementById("play").disabled);
  const texts = await other.evaluate(() => [document.getElementById("play").textContent,
    document.getElementById("message").textContent]);
  return { other, texts };
}

test("a browser without WebAssembly is told so", async () => {
  const { other, texts } = await openWith("delete window.WebAssembly");
  assert.equal(texts[0], "Try again");
  assert.match(texts[1], /no WebAssembly/);
  await other.close();
});

test("a failed download gives a message, and trying again goes on", async () => {
  const { other, texts } = await openWith(`
    const get = window.fetch;
    window.isDown = true;
    window.fetch = (url, ...rest) => window.isDown && String(url).endsWith("music2.mp3") ?
      Promise.reject(new TypeError("network")) : get(url, ...rest);`);
  assert.equal(texts[0], "Try again");
  assert.match(texts[1], /connection was lost/);
  await other.evaluate(() => { window.isDown = false; });
  await other.click("#play");
  await support.ready(other);
  await other.close();
});

test("without a sound device the game plays silently and says so", async () => {
  const { other } = await openWith("delete window.AudioContext; delete window.AudioWorkletNode;");
  await support.startGame(other);
  const text = await other.evaluate(() => document.getElementById("notice").textContent);
  assert.match(text, /No sound.*plays silently/);
  await other.close();
});

test("chunks of sound follow each other without a gap, even while the page is busy", async () => {
  await page.evaluate((hasOwnClock) => {
    if (hasOwnClock) { // Firefox without a sound device plays nothing, and its time stands still
      Object.defineProperty(AudioContext.prototype, "currentTime",
        { get: () => performance.now() / 1000 });
    }
    window.mixed = [];
    window.scheduled = [];
    const { page: driver } = window.morvane;
    const open = driver.openAudio;
    driver.openAudio = (frequency, channels, samples, mix) => open(frequency, channels, samples,
      () => {
        window.mixed.push(mix());
        return window.mixed.at(-1);
      });
    const { start } = AudioBufferSourceNode.prototype;
    AudioBufferSourceNode.prototype.start = function record(when) {
      window.scheduled.push({ buffer: this.buffer, when });
      start.call(this, when);
    };
  }, support.isFirefox);
  await support.startGame(page);
  await page.evaluate(() => setInterval(() => {
    for (const end = performance.now() + 30; performance.now() < end;);
  }, 100));
  await page.waitForFunction(() => window.scheduled.length >= 20, { timeout: 60000 });
  const seen = await page.evaluate(async () => {
    const { scheduled, mixed, morvane: { sound: { dropouts } } } = window;
    const { length, sampleRate } = scheduled[0].buffer;
    const starts = scheduled.map(({ when }) => when * sampleRate);
    const gaps = starts.slice(1).map((start, i) => start - starts[i] - length);
    // The browser must play exactly the samples that the game has mixed.
    const offline = new OfflineAudioContext(2, Math.round(starts.at(-1)) + length, sampleRate);
    const wanted = new Float32Array(offline.length);
    scheduled.forEach(({ buffer, when }, i) => {
      const source = new AudioBufferSourceNode(offline, { buffer });
      source.connect(offline.destination);
      source.start(when);
      const left = Float32Array.from(mixed[i], (sample) => sample / 32768)
        .filter((_, index) => index % 2 === 0);
      wanted.set(left, Math.round(starts[i]));
    });
    const played = (await offline.startRendering()).getChannelData(0);
    const largest = (samples) => samples.reduce((most, x) => Math.max(most, Math.abs(x)), 0);
    return { dropouts, gap: gaps.reduce((a, b) => a + b), overlap: Math.max(...gaps.map((x) => -x)),
      loudest: largest(wanted), difference: largest(played.map((x, i) => x - wanted[i])) };
  });
  assert.ok(seen.loudest > 0.05, JSON.stringify(seen));
  assert.ok(seen.difference < 1e-6, JSON.stringify(seen));
  assert.ok(seen.overlap < 1e-6, JSON.stringify(seen));
  // Only a very busy machine makes gaps, and those are counted.
  assert.ok(seen.gap < seen.dropouts + 1e-6, JSON.stringify(seen));
});

test("what the game reports when it fails is shown", async () => {
  await page.evaluate(() => window.morvane.loader.loaded.get("lod1.webp").fill(0));
  await page.click("#play");
  await support.ready(page, "Try again");
  const text = await page.evaluate(() => document.getElementById("message").textContent);
  assert.match(text, /Couldn't load data\/lod1\.png/);
});
