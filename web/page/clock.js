// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The game's time in milliseconds. It stands still while the clock is paused.
export class Clock {
  constructor() {
    this.lost = 0; // time spent in pauses
    this.pausedAt = null;
    this.resumed = null; // wakes the sleeper when the pause ends
    this.channel = new MessageChannel();
    this.channel.port1.onmessage = () => this.wait();
    this.sleeper = null;
  }

  now() {
    return (this.pausedAt === null ? performance.now() : this.pausedAt) - this.lost;
  }

  // Browsers delay a timer by 4 ms if another timer has set it, but not if a message has set it.
  sleep(ms) {
    return new Promise((resolve) => {
      this.sleeper = { resolve, ms };
      this.channel.port2.postMessage(0);
    });
  }

  wait() {
    const { resolve, ms } = this.sleeper;
    setTimeout(() => {
      if (this.pausedAt === null) resolve();
      else this.resumed = resolve;
    }, ms);
  }

  pause() {
    if (this.pausedAt === null) this.pausedAt = performance.now();
  }

  resume() {
    if (this.pausedAt === null) return;
    this.lost += performance.now() - this.pausedAt;
    this.pausedAt = null;
    const { resumed } = this;
    this.resumed = null;
    if (resumed) resumed();
  }
}
