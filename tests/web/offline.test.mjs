// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// After the first visit, the game plays without a network, and a new version replaces all files.

import assert from "node:assert/strict";
import { cpSync, mkdtempSync, readFileSync, readdirSync, renameSync, rmSync, writeFileSync }
  from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, before, test } from "node:test";
import * as support from "./support.mjs";

const scratch = mkdtempSync(join(tmpdir(), "morvane-site-"));
const copy = join(scratch, "site");
const oldVersion = readdirSync(support.site).find((name) => /^[0-9a-f]{12}$/.test(name));
const newVersion = "feedfacecafe";
let server, browser;

before(async () => {
  cpSync(support.site, copy, { recursive: true });
  server = await support.serve(copy);
  browser = await support.launchChromium();
});
after(async () => {
  await browser.close();
  server.stop();
  rmSync(scratch, { recursive: true });
});

const isStored = (page) => page.waitForFunction(async () =>
  (await navigator.serviceWorker.getRegistrations()).some((one) => one.active), { timeout: 60000 });
const versionsOnPage = (page) => page.evaluate(() => [...new Set(
  performance.getEntriesByType("resource").map((entry) => /\/([0-9a-f]{12})\//.exec(entry.name))
    .filter(Boolean).map((match) => match[1]))]);

// A site whose files have other contents and another name, as web/assemble would write it.
function publish() {
  renameSync(join(copy, oldVersion), join(copy, newVersion));
  for (const name of ["index.html", "sw.js", "manifest.webmanifest", `${newVersion}/files.js`]) {
    const file = join(copy, name);
    writeFileSync(file, readFileSync(file, "utf8").replaceAll(oldVersion, newVersion));
  }
  const worker = join(copy, "sw.js");
  writeFileSync(worker, readFileSync(worker, "utf8")
    .replace(/"sha256-[^"]+"/g, () => '""')); // the test's files have new hashes
}

test("after the first visit the game plays without a network", async () => {
  const page = await support.openPage(browser, server.address);
  await isStored(page);
  const { port } = new URL(server.address);
  server.stop();
  await support.wait(500);
  await page.goto(server.address);
  await support.ready(page);
  await support.startGame(page);
  assert.deepEqual(await versionsOnPage(page), [oldVersion]);
  await page.close();
  server = await support.serve(copy, Number(port));
});

test("a new version is stored whole, then used whole", async () => {
  publish();
  const page = await browser.newPage();
  await page.goto(server.address);
  await page.waitForFunction((version) =>
    document.querySelector("script[src]").getAttribute("src").startsWith(version),
  { timeout: 60000 }, newVersion);
  await support.ready(page);
  await support.startGame(page);
  assert.deepEqual(await versionsOnPage(page), [newVersion]);
  assert.deepEqual(await page.evaluate(() => caches.keys()), [`morvane ${newVersion}`]);
  await page.close();
});

test("a version that cannot be stored whole does not replace the one at hand", async () => {
  const worker = join(copy, "sw.js");
  writeFileSync(worker, readFileSync(worker, "utf8").replaceAll(newVersion, "badbadbadbad"));
  const page = await support.openPage(browser, server.address);
  await support.wait(2000);
  assert.deepEqual(await versionsOnPage(page), [newVersion]);
  await support.startGame(page);
  await page.close();
});
