// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const displayWidth = 800;
const displayHeight = 600;
const snap = 0.06; // a scale this close above a whole number is rounded down to it

// The canvas. Shows the game's display as large as the room allows, at 4:3.
export class Screen {
  constructor(stage, canvas) {
    this.stage = stage;
    this.canvas = canvas;
    this.context = canvas.getContext("2d", { alpha: false });
    this.frames = 0;
    new ResizeObserver(() => this.fit()).observe(stage.parentElement);
  }

  // Fits the stage into the room that the style sheet leaves; both sides are whole device pixels.
  fit() {
    this.stage.style.width = "";
    this.stage.style.height = "";
    const ratio = window.devicePixelRatio || 1;
    const style = getComputedStyle(this.stage);
    const width = parseFloat(style.width) * ratio;
    const height = parseFloat(style.height) * ratio;
    let scale = Math.min(width / displayWidth, height / displayHeight);
    const whole = Math.floor(scale);
    if (whole >= 1 && scale - whole < snap * whole) scale = whole;
    this.stage.style.width = `${Math.floor(scale * displayWidth) / ratio}px`;
    this.stage.style.height = `${Math.floor(scale * displayHeight) / ratio}px`;
    this.canvas.style.imageRendering = scale === whole ? "pixelated" : "auto";
  }

  present(pixels, width, height) {
    this.context.putImageData(new ImageData(pixels, width, height), 0, 0);
    this.frames += 1;
  }
}

export async function toggleFullScreen() {
  if (document.fullscreenElement) {
    await document.exitFullscreen();
    return;
  }
  await document.documentElement.requestFullscreen({ navigationUI: "hide" });
  // If the browser allows it, Escape goes to the game; holding Escape then leaves full screen.
  if (navigator.keyboard && navigator.keyboard.lock) {
    await navigator.keyboard.lock(["Escape"]).catch(() => {});
  }
}
