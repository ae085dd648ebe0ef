// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The files of the site: how large they are, that they name their licences and no machine.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync }
  from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, test } from "node:test";
import { gzipSync } from "node:zlib";
import * as support from "./support.mjs";

const largestTransfer = 7e6;
const compressible = /\.(html|js|css|wasm|svg|ttf|txt|webmanifest)$/;
const version = readdirSync(support.site).find((name) => /^[0-9a-f]{12}$/.test(name));
const files = readdirSync(support.site, { recursive: true })
  .filter((name) => statSync(join(support.site, name)).isFile());
const read = (name) => readFileSync(join(support.site, name));
const scratch = mkdtempSync(join(tmpdir(), "morvane-link-"));
after(() => rmSync(scratch, { recursive: true }));

test("a first visit transfers at most 7 MB", () => {
  const sizes = files.filter((name) => !/icon-(256|512)|licences/.test(name))
    .map((name) => compressible.test(name) ? gzipSync(read(name), { level: 9 }).length :
      read(name).length);
  const sum = sizes.reduce((a, b) => a + b);
  console.log(`transfer of a first visit: ${(sum / 1e6).toFixed(2)} MB`);
  assert.ok(sum <= largestTransfer, String(sum));
});

test("the licences of all parts and the exact sources are named", () => {
  const text = read(`${version}/licences.txt`).toString();
  for (const words of ["GNU GENERAL PUBLIC LICENSE", "GNU LESSER GENERAL PUBLIC LICENSE",
    "FreeType Project LICENSE", "SIL OPEN FONT LICENSE", "MIT License"]) {
    assert.ok(text.toLowerCase().includes(words.toLowerCase()), words);
  }
  for (const line of readFileSync(join(support.project, "web/sources"), "utf8").split("\n")) {
    if (line && !line.startsWith("#")) assert.ok(text.includes(line.split(" ")[2]), line);
  }
});

test("no file tells where it was built", () => {
  for (const name of files.filter((file) => /\.(wasm|js|html|css)$/.test(file))) {
    assert.ok(!read(name).includes(support.project), name);
  }
});

// Links as the build does; returns the lines of its messages.
function link(...command) {
  writeFileSync(join(scratch, "morvane.js"), "");
  const result = spawnSync(join(support.project, "web/link"), command,
    { cwd: scratch, encoding: "utf8",
      env: { ...process.env, NODE_PATH: "/usr/share/nodejs", EM_FROZEN_CACHE: "1" } });
  assert.equal(result.status, 1);
  assert.ok(!existsSync(join(scratch, "morvane.js")), "the next build would not link again");
  return result.stderr.trim().split("\n");
}

test("a virtual function that waits fails the link with one line", () => {
  writeFileSync(join(scratch, "waits.cpp"), `
    #include <emscripten.h>
    EM_ASYNC_JS(void, pageSleep, (int ms), {});
    struct Mode { virtual void update() = 0; };
    struct Slow : Mode { void update() override { pageSleep(1); } };
    struct Fast : Mode { void update() override {} };
    int main(int count, char**) {
        Mode* mode = count > 1 ? static_cast<Mode*>(new Slow) : new Fast;
        mode->update();
        pageSleep(1);
    }`);
  assert.deepEqual(link("emcc", "-fno-inline", "-O1", "waits.cpp", "-sASYNCIFY=1",
    "-sASYNCIFY_IGNORE_INDIRECT=1", "-sASYNCIFY_ADVISE=1", "-o", "morvane.js"),
  ["web/link: only main may wait in the browser, but these functions can wait: Slow::update main"]);
});

test("a link that fails ends with one line", () => {
  assert.deepEqual(link("sh", "-c", "echo undefined symbol; exit 1"),
    ["undefined symbol", "web/link: the program cannot be linked, for the reason above"]);
  assert.deepEqual(link("true"),
    ["web/link: only main may wait in the browser, but these functions can wait: none"]);
});

test("no file of own code is longer than 300 lines", () => {
  const folder = join(support.project, "web");
  const own = readdirSync(folder, { recursive: true })
    .filter((name) => statSync(join(folder, name)).isFile());
  const isCode = (line) => !/^\s*($|\/\/|\/\*|\*|#(?!include|define|if|e))/.test(line);
  let sum = 0;
  for (const name of own.filter((file) => !/\.svg$|^sources$/.test(file))) {
    const lines = readFileSync(join(folder, name), "utf8").split("\n");
    assert.ok(lines.length <= 300, name);
    sum += lines.filter(isCode).length;
  }
  console.log(`own code of the browser edition: ${sum} lines without comments and blank lines`);
});
