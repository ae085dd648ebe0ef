// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Measures how fast the page is, on an idle machine: node tests/web/measure.mjs [SECONDS]
// Needs a built site and the packages of package.json.

import { launchChromium, serve, startBattle, viewport, wait } from "./support.mjs";

const seconds = Number(process.argv[2] || 30);
const keys = ["a", "w", "Tab", "ArrowLeft", "ArrowUp", "Enter"];

async function main() {
  const server = await serve();
  const browser = await launchChromium();
  const page = await browser.newPage();
  await page.setViewport(viewport);
  await page.evaluateOnNewDocument(() => {
    // Presses Play by itself, so that the first frame is timed from the navigation on.
    const observer = new MutationObserver(() => {
      const play = document.getElementById("play");
      if (!play || play.disabled) return;
      observer.disconnect();
      window.readyAt = performance.now();
      const { page: driver } = window.morvane;
      const { present, sleep, nextEvent } = driver;
      window.shown = [];
      window.work = [];
      let awakeSince = performance.now(), sum = 0;
      driver.sleep = async (ms) => {
        sum += performance.now() - awakeSince;
        await sleep(ms);
        awakeSince = performance.now();
      };
      driver.present = (...picture) => {
        present(...picture);
        window.shown.push(performance.now());
      };
      let isPumping = false;
      driver.nextEvent = () => {
        if (!isPumping) { window.work.push(sum); sum = 0; }
        const event = nextEvent();
        isPumping = Boolean(event);
        return event;
      };
      play.click();
    });
    observer.observe(document, { subtree: true, childList: true, attributes: true });
  });
  await page.goto(server.address);
  await page.waitForFunction(() => window.shown && window.shown.length > 5);
  const start = await page.evaluate(() => [window.readyAt, window.shown[0]].map(Math.round));
  console.log(`ready ${start[0]} ms after navigation, first frame after ${start[1]} ms`);

  await startBattle(page);
  await wait(1000);
  for (const key of keys) await page.keyboard.down(key);
  await page.evaluate(() => { window.shown.length = 0; window.work.length = 0; });
  await wait(seconds * 1000);
  const result = await page.evaluate(() => {
    const { shown, work } = window;
    const gaps = shown.slice(1).map((time, i) => time - shown[i]).sort((a, b) => a - b);
    const sorted = work.slice(1).sort((a, b) => a - b);
    const at = (list, part) => list[Math.floor(part * (list.length - 1))].toFixed(2);
    return `${(1000 * gaps.length / (shown[shown.length - 1] - shown[0])).toFixed(2)} frames a ` +
      `second; between frames: median ${at(gaps, 0.5)}, 99 % ${at(gaps, 0.99)}, longest ` +
      `${at(gaps, 1)} ms; work per frame: median ${at(sorted, 0.5)}, 99 % ${at(sorted, 0.99)}, ` +
      `longest ${at(sorted, 1)} ms; missing samples of sound: ${window.morvane.sound.dropouts}`;
  });
  console.log(result);

  const memory = () => page.evaluate(() => window.morvane.program()._sbrk(0));
  const sizes = [];
  for (let battle = 0; battle < 10; ++battle) {
    await page.keyboard.press("Escape", { delay: 50 });
    await page.waitForFunction(() => !window.morvane.isBattle());
    await startBattle(page);
    sizes.push(await memory());
  }
  console.log(`end of the game's heap in 10 battles: ${sizes.join(" ")}`);
  await browser.close();
  server.stop();
}

main();
