// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The queue of events that the game reads. Keyboard, gamepads and touch controls press the same
// keys; a key goes up when no device holds it any more.

const keyEvent = 1;
const motionEvent = 2;
const buttonEvent = 3;
const focusEvent = 4;
const quitEvent = 5;

export class Input {
  constructor() {
    this.events = [];
    this.holders = new Map(); // key symbol -> the devices that hold it
    this.onKey = () => {}; // (symbol, isDown)
  }

  press(symbol, device) {
    const holders = this.holders.get(symbol) || new Set();
    this.holders.set(symbol, holders.add(device));
    if (holders.size === 1) this.send(symbol, 1);
  }

  release(symbol, device) {
    const holders = this.holders.get(symbol);
    if (!holders || !holders.delete(device) || holders.size > 0) return;
    this.holders.delete(symbol);
    this.send(symbol, 0);
  }

  tap(symbol) {
    this.send(symbol, 1);
    this.send(symbol, 0);
  }

  // Makes the device hold exactly these keys.
  hold(wanted, device) {
    for (const [symbol, holders] of [...this.holders]) {
      if (holders.has(device) && !wanted.has(symbol)) this.release(symbol, device);
    }
    for (const symbol of wanted) {
      const holders = this.holders.get(symbol);
      if (!holders || !holders.has(device)) this.press(symbol, device);
    }
  }

  send(symbol, isDown) {
    this.events.push([keyEvent, isDown, symbol, 0]);
    this.onKey(symbol, isDown === 1);
  }

  point(x, y) {
    this.events.push([motionEvent, x, y, 0]);
  }

  button(number, isDown) {
    this.events.push([buttonEvent, isDown ? 1 : 0, number, 0]);
  }

  // Without the focus, releases of keys no longer arrive, so this releases every key.
  blur() {
    for (const symbol of this.holders.keys()) this.onKey(symbol, false);
    this.holders.clear();
    this.events.push([focusEvent, 0, 0, 0]);
  }

  focus() {
    this.events.push([focusEvent, 1, 0, 0]);
  }

  quit() {
    this.events.push([quitEvent, 0, 0, 0]);
  }

  next() {
    return this.events.shift();
  }

  clear() {
    this.events.length = 0;
    this.holders.clear();
  }
}
