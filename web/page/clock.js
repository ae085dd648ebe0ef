// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The game's time in milliseconds. It stands still while the clock is paused.
export class Clock {
  constructor() {
    this.lost = 0; // time spent in pauses
    this.pausedAt = null;
    this.running = Promise.resolve(); // resolved when the clock is not paused
    this.channel = new MessageChannel();
  }

  now() {
    return (this.pausedAt === null ? performance.now() : this.pausedAt) - this.lost;
  }

  // Browsers delay a timer by 4 ms if another timer has set it, but not if a message has set it.
  async sleep(ms) {
    await new Promise((resolve) => {
      this.channel.port1.onmessage = () => setTimeout(resolve, ms);
      this.channel.port2.postMessage(0);
    });
    await this.running;
  }

  pause() {
    if (this.pausedAt !== null) return;
    this.pausedAt = performance.now();
    this.running = new Promise((resolve) => { this.endPause = resolve; });
  }

  resume() {
    if (this.pausedAt === null) return;
    this.lost += performance.now() - this.pausedAt;
    this.pausedAt = null;
    this.endPause();
  }
}
