// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Every frame and every chunk of sound in the browser equals the game for Linux, on classic SDL.
// Usage: node --test frames.test.mjs, with MORVANE_GAME and MORVANE_RECORDER set.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import * as support from "./support.mjs";
import { playVirtually } from "./virtual.mjs";

const game = process.env.MORVANE_GAME;
const recorder = process.env.MORVANE_RECORDER;
const { isFirefox } = support;
const replays = join(support.project, "tests/replay/scripts");
const ownScripts = join(support.project, "tests/web/scripts");
const pieces = ["music1.mp3", "music2.mp3", "music3.mp3"];
const longRun = 1000; // chunks; between two frames there are otherwise few
const chunkSeconds = 4096 / 22050; // by the game's call of Mix_OpenAudio
const scratch = mkdtempSync(join(tmpdir(), "morvane-web-"));

let server, browser, page;
const count = { frames: 0, chunks: 0, scripts: 0 };

before(async () => {
  server = await support.serve();
  browser = await support.launchTested();
  page = await support.openPage(browser, server.address);
});

after(async () => {
  console.log(`${await browser.version()}: ${count.scripts} scripts, ${count.frames} frames and ` +
    `${count.chunks} chunks of sound compared`);
  await browser.close();
  server.stop();
  rmSync(scratch, { recursive: true });
});

function playNatively(script) {
  const events = join(scratch, "events");
  writeFileSync(events, script.events.map((event) => `${event.join(" ")}\n`).join(""));
  const result = spawnSync(game, {
    cwd: support.project, encoding: "utf8", maxBuffer: 1 << 26,
    env: { ...process.env, LD_PRELOAD: recorder, RECORD_EVENTS: events,
      RECORD_SEED: String(script.seed), SDL_VIDEODRIVER: "dummy", SDL_AUDIODRIVER: "dummy" },
  });
  assert.equal(result.status, 0, result.stderr);
  return result.stdout.trim().split("\n");
}

function firstDifference(expected, seen) {
  let frame = 0;
  for (let i = 0; i < Math.max(expected.length, seen.length); ++i) {
    if (expected[i] !== seen[i]) return `frame ${frame}: expected ${expected[i]}, seen ${seen[i]}`;
    if (expected[i].startsWith("f")) ++frame;
  }
  return "";
}

// What the page can record, too: all lines but the names of the pieces of music.
const recordable = (lines) => lines.filter((line) => !line.startsWith("m"));

// Returns the lines of the game for Linux.
async function compare(file) {
  const script = support.readScript(file);
  const expected = playNatively(script);
  const { lines, message } = await playVirtually(page, script);
  assert.equal(message, "");
  assert.equal(firstDifference(recordable(expected), lines), "");
  count.scripts += 1;
  count.frames += lines.filter((line) => line.startsWith("f")).length;
  count.chunks += lines.filter((line) => line.startsWith("s")).length;
  return expected;
}

// The seconds that a piece lasts, by the browser's own decoder.
function lengthOf(piece) {
  const bytes = readFileSync(join(support.project, "data", piece));
  return page.evaluate(async (base64) => {
    const content = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    const decoded = await new OfflineAudioContext(2, 1, 22050).decodeAudioData(content.buffer);
    return decoded.duration;
  }, bytes.toString("base64"));
}

// The long runs of sound between two displays, { piece, chunks } each: the script listens to each
// piece at least once.
function listened(lines) {
  const runs = [];
  let piece = "", isRunning = false;
  for (const line of lines) {
    if (line.startsWith("m")) piece = line.slice(1);
    if (line.startsWith("s")) {
      if (!isRunning) runs.push({ piece, chunks: [] });
      runs[runs.length - 1].chunks.push(line);
    }
    isRunning = line.startsWith("s");
  }
  return runs.filter((run) => run.chunks.length > longRun);
}

if (!isFirefox) {
  test("a session through all screens looks and sounds the same", async () => {
    const lines = await compare(join(ownScripts, "session.txt"));
    const displays = lines.filter((line) => line.startsWith("f"));
    assert.ok(displays.length > 5000);
    // The ship has sunk: the result is shown until Escape.
    assert.equal(new Set(displays.slice(2500, 2700)).size, 1);
    const runs = listened(lines);
    assert.deepEqual([...new Set(runs.map((run) => run.piece))].sort(), pieces);
    for (const { piece, chunks } of runs) {
      assert.ok(chunks.length * chunkSeconds > 2 * await lengthOf(piece), piece);
      // Silence would be one chunk again and again; a loop repeats its chunks after some rounds.
      assert.ok(new Set(chunks).size > chunks.length / 10, `${piece} is not silence`);
    }
  });
}

const shorter = ["battle-escape.txt", "controls.txt", "fire.txt", "help-and-credits.txt",
  "menu-keys.txt", "menu-mouse.txt"];
const replayed = readdirSync(replays).filter((name) => name.endsWith(".txt"))
  .filter((name) => isFirefox ? shorter.includes(name) : support.readScript(join(replays, name)));

test("enough replay scripts need nothing but events", () => {
  assert.ok(replayed.length >= (isFirefox ? shorter.length : 20), `${replayed.length}`);
});

for (const name of replayed) {
  test(`the replay ${name} looks and sounds the same`, () => compare(join(replays, name)));
}

test("a changed seed is noticed", async () => {
  const script = support.readScript(join(replays, "battle-escape.txt"));
  const expected = playNatively(script);
  const { lines } = await playVirtually(page, { ...script, seed: script.seed + 1 });
  assert.notEqual(firstDifference(recordable(expected), lines), "");
});
