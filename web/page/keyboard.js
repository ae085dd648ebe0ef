// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { symbolOf, symbols } from "./keys.js";

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
  }

  down(event) {
    if (browsersKeys.has(event.key) || event.ctrlKey || event.altKey || event.metaKey) return;
    const symbol = symbolOf(event, this.byPlace);
    if (!this.isPlaying() || event.target.closest("dialog, footer")) {
      this.input.onKey(symbol, true);
      return;
    }
    event.preventDefault(); // Tab must not move the focus, Space and arrows must not scroll
    if (event.repeat) return;
    this.held.set(event.code || event.key, symbol);
    this.input.hold(this.held.values(), "keyboard");
  }

  up(event) {
    this.input.onKey(symbolOf(event, this.byPlace), false);
    if (this.held.delete(event.code || event.key)) {
      this.input.hold(this.held.values(), "keyboard");
    }
  }

  releaseAll() {
    this.held.clear();
    for (const cap of document.querySelectorAll(".down")) cap.classList.remove("down");
  }
}

// Lights up key caps and touch buttons while their key is down.
export function lightKeyCaps(symbol, isDown) {
  for (const cap of document.querySelectorAll("[data-key]")) {
    if (symbols[cap.dataset.key] === symbol) cap.classList.toggle("down", isDown);
  }
}
