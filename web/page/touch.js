// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import { symbols } from "./keys.js";

const device = "touch";

// The touch controls. A key is held while a finger is on its button, and a finger may slide from
// one button to the next. The controls appear at the first touch, or at once if the main pointer is
// coarse.
export function connectTouch(input) {
  const show = () => document.body.classList.add("touch");
  if (window.matchMedia("(pointer: coarse)").matches) show();
  window.addEventListener("touchstart", show, { passive: true, once: true });

  const update = (event) => {
    const wanted = new Set();
    for (const finger of event.touches) {
      const under = document.elementFromPoint(finger.clientX, finger.clientY);
      const button = under && under.closest(".pad [data-key]");
      if (button) wanted.add(symbols[button.dataset.key]);
    }
    input.hold(wanted, device);
    if (event.cancelable && event.target.closest("[data-key]")) event.preventDefault();
  };
  for (const pad of document.querySelectorAll(".pad")) {
    for (const name of ["touchstart", "touchmove", "touchend", "touchcancel"]) {
      pad.addEventListener(name, update, { passive: false });
    }
    pad.addEventListener("contextmenu", (event) => event.preventDefault());
    // A click with a mouse or from a screen reader taps the key.
    pad.addEventListener("click", (event) => {
      const button = event.target.closest("[data-key]");
      if (button) input.tap(symbols[button.dataset.key]);
    });
  }
}
