// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { players, symbols } from "./keys.js";

// Buttons of the standard mapping.
const south = 0, east = 1, west = 2, north = 3, leftTrigger = 6, rightTrigger = 7;
const start = 9, crossUp = 12, crossDown = 13, crossLeft = 14, crossRight = 15;
const stickThreshold = 0.4;

// The symbols of the keys that a gamepad presses. In the menu, any gamepad moves the focus and
// chooses.
function symbolsOf(pad, keys, isBattle) {
  const isPressed = (...numbers) =>
    numbers.some((number) => pad.buttons[number] && pad.buttons[number].pressed);
  const [x = 0, y = 0] = pad.axes;
  const up = y < -stickThreshold || isPressed(crossUp);
  const sail = isPressed(south, leftTrigger);
  const fire = isPressed(east, west, rightTrigger);
  const pressed = isBattle ? {
    [keys.left]: x < -stickThreshold || isPressed(crossLeft),
    [keys.right]: x > stickThreshold || isPressed(crossRight),
    [keys.sail]: sail || up,
    [keys.fire]: fire,
    [keys.teleport]: isPressed(north),
  } : { up, down: y > stickThreshold || isPressed(crossDown), enter: sail || fire };
  pressed.escape = isPressed(start);
  return Object.keys(pressed).filter((name) => pressed[name]).map((name) => symbols[name]);
}

// The first two gamepads press the keys of the two players. poll() is called at least once a frame.
export class Gamepads {
  constructor(input, isBattle) {
    this.input = input;
    this.isBattle = isBattle;
    this.wasBattle = false;
    this.resting = new Set(); // gamepads ignored until all their controls are released
  }

  connected() {
    const pads = navigator.getGamepads ? [...navigator.getGamepads()] : [];
    return pads.filter((pad) => pad && pad.connected).slice(0, players.length);
  }

  poll() {
    const pads = this.connected();
    const isBattle = pads.length > 0 && this.isBattle();
    // The press that chose "New game" must not fire.
    if (isBattle !== this.wasBattle) this.resting = new Set(players);
    this.wasBattle = isBattle;
    players.forEach((keys, index) => {
      const pressed = pads[index] ? symbolsOf(pads[index], keys, isBattle) : [];
      if (pressed.length === 0) this.resting.delete(keys);
      this.input.hold(this.resting.has(keys) ? [] : pressed, `gamepad ${index}`);
    });
  }
}
