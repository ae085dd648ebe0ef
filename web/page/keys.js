// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// SDL's key symbols, and the keys of the keyboard that have them.

export const symbols = {
  backspace: 8, tab: 9, enter: 13, pause: 19, escape: 27, space: 32, delete: 127,
  up: 273, down: 274, right: 275, left: 276, insert: 277, home: 278, end: 279, pageup: 280,
  pagedown: 281, numlock: 300, capslock: 301, scrolllock: 302, rightshift: 303, leftshift: 304,
  rightctrl: 305, leftctrl: 306, rightalt: 307, leftalt: 308,
  a: 97, d: 100, w: 119, z: 122,
};

// The keys of the two players.
export const players = [
  { left: "a", right: "d", sail: "w", fire: "space", teleport: "z" },
  { left: "left", right: "right", sail: "up", fire: "enter", teleport: "delete" },
];

const keypadBase = 256;
const functionKeyBase = 281; // F1 is 282

const named = {
  Backspace: symbols.backspace, Tab: symbols.tab, Enter: symbols.enter, Pause: symbols.pause,
  Escape: symbols.escape, Space: symbols.space, Delete: symbols.delete,
  ArrowUp: symbols.up, ArrowDown: symbols.down, ArrowRight: symbols.right,
  ArrowLeft: symbols.left, Insert: symbols.insert, Home: symbols.home, End: symbols.end,
  PageUp: symbols.pageup, PageDown: symbols.pagedown, NumLock: symbols.numlock,
  CapsLock: symbols.capslock, ScrollLock: symbols.scrolllock,
  ShiftRight: symbols.rightshift, ShiftLeft: symbols.leftshift,
  ControlRight: symbols.rightctrl, ControlLeft: symbols.leftctrl,
  AltRight: symbols.rightalt, AltLeft: symbols.leftalt,
  NumpadDecimal: 266, NumpadDivide: 267, NumpadMultiply: 268, NumpadSubtract: 269,
  NumpadAdd: 270, NumpadEnter: 271, NumpadEqual: 272,
  Minus: 45, Equal: 61, BracketLeft: 91, BracketRight: 93, Backslash: 92, Semicolon: 59,
  Quote: 39, Backquote: 96, Comma: 44, Period: 46, Slash: 47,
};

// By place: the symbol that the key has on a US keyboard; 0 when SDL has none.
function symbolOfPlace(code) {
  if (code in named) return named[code];
  const match = /^(Key|Digit|Numpad|F)(\w+)$/.exec(code);
  if (!match) return 0;
  switch (match[1]) {
    case "Key": return match[2].toLowerCase().charCodeAt(0);
    case "Digit": return match[2].charCodeAt(0);
    case "Numpad": return match[2].length === 1 ? keypadBase + Number(match[2]) : 0;
    default: return functionKeyBase + Number(match[2]);
  }
}

// By letter: the symbol of the letter on the key. Keys without a letter, and letters outside ASCII,
// have the symbol of their place.
export function symbolOf(event, byPlace) {
  const isTyped = event.key.length === 1 && event.key > " " && event.key <= "~";
  if (byPlace || !isTyped || event.code.startsWith("Numpad")) {
    // The keys of virtual keyboards have no code for their place.
    return symbolOfPlace(event.code) || named[event.key === " " ? "Space" : event.key] || 0;
  }
  return event.key.toLowerCase().charCodeAt(0);
}
