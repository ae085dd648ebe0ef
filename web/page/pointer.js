// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const wheelUp = 4;
const wheelDown = 5;

// Sends pointer and wheel events of the canvas to the game, in pixels of the game's display.
export function connectPointer(input, canvas) {
  const point = (event) => {
    const box = canvas.getBoundingClientRect();
    input.point(Math.floor((event.clientX - box.left) * canvas.width / box.width),
      Math.floor((event.clientY - box.top) * canvas.height / box.height));
  };
  canvas.addEventListener("pointermove", point);
  canvas.addEventListener("pointerdown", (event) => {
    event.preventDefault();
    canvas.focus({ preventScroll: true });
    canvas.setPointerCapture(event.pointerId);
    point(event);
    input.button(event.button + 1, true);
  });
  canvas.addEventListener("pointerup", (event) => {
    point(event);
    input.button(event.button + 1, false);
  });
  canvas.addEventListener("contextmenu", (event) => event.preventDefault());
  canvas.addEventListener("wheel", (event) => {
    event.preventDefault();
    const button = event.deltaY < 0 ? wheelUp : wheelDown;
    input.button(button, true);
    input.button(button, false);
  }, { passive: false });
}
