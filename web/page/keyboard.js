// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { symbolOf, symbols } from "./keys.js";

const device = "keyboard";
const browsersKeys = new Set(["F5", "F11", "F12"]);

// Sends the keyboard's keys to the game while isPlaying() is true, and always lights the key caps.
export class Keyboard {
  constructor(input, isPlaying) {
    this.input = input;
    this.isPlaying = isPlaying;
    this.byPlace = false;
    this.held = new Map(); // physical key -> the symbol that was sent when it went down
    window.addEventListener("keydown", (event) => this.down(event));
    window.addEventListener("keyup", (event) => this.up(event));
    window.addEventListener("blur", () => this.releaseAll());
  }

  down(event) {
    if (browsersKeys.has(event.key) || event.ctrlKey || event.altKey || event.metaKey) return;
    const isOverPage = event.target instanceof Element && event.target.closest("dialog, footer");
    if (this.isPlaying() && !isOverPage) {
      event.preventDefault(); // Tab must not move the focus, Space and arrows must not scroll
    }
    const symbol = symbolOf(event, this.byPlace);
    const key = event.code || event.key;
    if (symbol === 0 || event.repeat || this.held.has(key)) return;
    this.held.set(key, symbol);
    if (this.isPlaying() && !isOverPage) {
      this.input.press(symbol, device + key);
    } else {
      this.input.onKey(symbol, true);
    }
  }

  up(event) {
    const key = event.code || event.key;
    const symbol = this.held.get(key);
    if (symbol === undefined) return;
    this.held.delete(key);
    this.input.release(symbol, device + key);
    this.input.onKey(symbol, false);
  }

  releaseAll() {
    for (const symbol of this.held.values()) this.input.onKey(symbol, false);
    this.held.clear();
  }
}

// Lights up key caps and touch buttons while their key is down.
export function lightKeyCaps(input) {
  const caps = new Map();
  for (const cap of document.querySelectorAll("[data-key]")) {
    const symbol = symbols[cap.dataset.key];
    caps.set(symbol, [...caps.get(symbol) || [], cap]);
  }
  input.onKey = (symbol, isDown) => {
    for (const cap of caps.get(symbol) || []) cap.classList.toggle("down", isDown);
  };
}
