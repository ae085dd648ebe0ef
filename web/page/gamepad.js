// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { players, symbols } from "./keys.js";

// Buttons of the standard mapping.
const south = 0, east = 1, west = 2, north = 3, leftTrigger = 6, rightTrigger = 7;
const start = 9, crossUp = 12, crossDown = 13, crossLeft = 14, crossRight = 15;
const stickThreshold = 0.4;

function actions(pad) {
  const pressed = (...numbers) =>
    numbers.some((number) => pad.buttons[number] && pad.buttons[number].pressed);
  const [x = 0, y = 0] = pad.axes;
  return {
    left: x < -stickThreshold || pressed(crossLeft),
    right: x > stickThreshold || pressed(crossRight),
    forward: y < -stickThreshold || pressed(crossUp),
    back: y > stickThreshold || pressed(crossDown),
    sail: pressed(south, leftTrigger),
    fire: pressed(east, west, rightTrigger),
    teleport: pressed(north),
    menu: pressed(start),
  };
}

function keysInBattle(act, keys) {
  return [
    act.left && keys.left, act.right && keys.right, (act.sail || act.forward) && keys.sail,
    act.fire && keys.fire, act.teleport && keys.teleport, act.menu && "escape",
  ];
}

// In the menu, any gamepad moves the focus and chooses.
function keysInMenu(act) {
  return [
    act.forward && "up", act.back && "down", (act.sail || act.fire) && "enter",
    act.menu && "escape",
  ];
}

// The first two gamepads press the keys of the two players. poll() is called at least once a frame.
export class Gamepads {
  constructor(input, isBattle) {
    this.input = input;
    this.isBattle = isBattle;
    this.wasBattle = false;
    this.resting = new Set(); // gamepads ignored until all their controls are released
    this.onChange = () => {}; // (number of gamepads)
    for (const name of ["gamepadconnected", "gamepaddisconnected"]) {
      window.addEventListener(name, () => this.onChange(this.connected().length));
    }
  }

  connected() {
    const pads = navigator.getGamepads ? [...navigator.getGamepads()] : [];
    return pads.filter((pad) => pad && pad.connected).slice(0, players.length);
  }

  poll() {
    const pads = this.connected();
    const isBattle = pads.length > 0 && this.isBattle();
    if (isBattle !== this.wasBattle) { // the press that chose "New game" must not fire
      players.forEach((_, index) => this.resting.add(index));
    }
    this.wasBattle = isBattle;
    players.forEach((keys, index) => {
      const act = pads[index] ? actions(pads[index]) : {};
      const names = (isBattle ? keysInBattle(act, keys) : keysInMenu(act)).filter(Boolean);
      if (names.length === 0) this.resting.delete(index);
      const wanted = this.resting.has(index) ? [] : names.map((name) => symbols[name]);
      this.input.hold(new Set(wanted), `gamepad ${index}`);
    });
  }
}
