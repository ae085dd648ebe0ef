// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// SDL's symbols of the keys that the game knows, except for the letters that it takes from text.
export const symbols = {
  tab: 9, enter: 13, escape: 27, space: 32, delete: 127, up: 273, down: 274, right: 275, left: 276,
  a: 97, d: 100, w: 119, z: 122,
};

// The keys of the two players.
export const players = [
  { left: "a", right: "d", sail: "w", fire: "space", teleport: "z" },
  { left: "left", right: "right", sail: "up", fire: "enter", teleport: "delete" },
];

const unknown = 0; // the game treats all keys that it does not know alike
const keypadEnter = 271;

const named = {
  Backspace: 8, Tab: symbols.tab, Enter: symbols.enter, Escape: symbols.escape,
  " ": symbols.space, Delete: symbols.delete, ArrowUp: symbols.up, ArrowDown: symbols.down,
  ArrowRight: symbols.right, ArrowLeft: symbols.left,
};

// By letter: the symbol of the letter on the key. By place, and for letters outside ASCII: the
// symbol of the letter that the key has on a US keyboard.
export function symbolOf(event, byPlace) {
  if (event.code.startsWith("Numpad")) return keypadEnter;
  if (event.key in named) return named[event.key];
  const letter = /^Key(.)$/.exec(event.code);
  const isLetterOnKey = !byPlace && /^[!-~]$/.test(event.key);
  const text = isLetterOnKey ? event.key : letter && letter[1];
  return text ? text.toLowerCase().charCodeAt(0) : unknown;
}
