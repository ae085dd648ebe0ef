// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const keyEvent = 1, motionEvent = 2, buttonEvent = 3, focusEvent = 4, quitEvent = 5;

// The queue of events that the game reads: [kind, number, number] each. Keyboard, gamepads and
// touch controls press the same keys.
export class Input {
  constructor() {
    this.events = [];
    this.held = new Map(); // device -> the symbols of the keys that it holds
    this.down = new Set(); // the symbols of all keys that are held
    this.onKey = () => {}; // (symbol, isDown)
  }

  // Makes the device hold exactly these keys. A key goes up when no device holds it any more.
  hold(symbols, device) {
    this.held.set(device, [...symbols]);
    const before = this.down;
    this.down = new Set([...this.held.values()].flat());
    for (const symbol of before) if (!this.down.has(symbol)) this.send(symbol, false);
    for (const symbol of this.down) if (!before.has(symbol)) this.send(symbol, true);
  }

  tap(symbol) {
    this.send(symbol, true);
    this.send(symbol, false);
  }

  send(symbol, isDown) {
    this.events.push([keyEvent, isDown ? 1 : 0, symbol]);
    this.onKey(symbol, isDown);
  }

  point(x, y) {
    this.events.push([motionEvent, x, y]);
  }

  button(number, isDown) {
    this.events.push([buttonEvent, isDown ? 1 : 0, number]);
  }

  // Without the focus, releases of keys no longer arrive, so losing it releases every key.
  focus(hasFocus) {
    if (!hasFocus) {
      this.held.clear();
      this.down.clear();
    }
    this.events.push([focusEvent, hasFocus ? 1 : 0, 0]);
  }

  quit() {
    this.events.push([quitEvent, 0, 0]);
  }
}
