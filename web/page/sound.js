// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const chunksAhead = 2;

// The game's sound device. A worklet asks for a chunk whenever it has too few samples left.
export class Sound {
  constructor(workletUrl) {
    this.workletUrl = workletUrl;
    this.volume = 1;
    this.context = null;
    this.gain = null;
    this.dropouts = 0;
    this.onState = () => {}; // (a message for the player, empty if there is no problem)
  }

  open(frequency, channels, samples, mix) {
    if (!window.AudioContext || !window.AudioWorkletNode) {
      this.onState("No sound: this browser does not support it. The game plays silently.");
      return false;
    }
    try {
      this.context = new AudioContext({ sampleRate: frequency });
    } catch (problem) {
      this.onState("No sound: there is no sound device to open. The game plays silently.");
      return false;
    }
    const { context } = this;
    context.onstatechange = () => this.report(context);
    this.gain = new GainNode(context, { gain: this.volume });
    this.gain.connect(context.destination);
    context.audioWorklet.addModule(this.workletUrl)
      .then(() => this.connect(context, channels, samples, mix))
      .catch(() => this.onState("No sound: it could not be started. The game plays silently."));
    setTimeout(() => this.report(context), 1000);
    return true;
  }

  connect(context, channels, samples, mix) {
    if (context.state === "closed") return;
    const node = new AudioWorkletNode(context, "mixer", {
      numberOfInputs: 0,
      outputChannelCount: [channels],
      processorOptions: { channels, samples, ahead: chunksAhead },
    });
    node.port.onmessage = (event) => {
      this.dropouts = event.data;
      const chunk = mix();
      if (chunk) node.port.postMessage(chunk, [chunk.buffer]);
    };
    node.connect(this.gain);
  }

  report(context) {
    if (context !== this.context) return;
    const isWaiting = context.state === "suspended" && !document.hidden;
    this.onState(isWaiting ? "The sound starts when you next press a key or click." : "");
  }

  setVolume(volume) {
    this.volume = volume;
    if (this.gain) this.gain.gain.value = volume;
  }

  pause() {
    if (this.context) this.context.suspend();
  }

  // Call this whenever the player does something, because browsers do not allow sound earlier.
  wake() {
    if (this.context && this.context.state === "suspended" && !document.hidden) {
      this.context.resume().catch(() => {});
    }
  }

  close() {
    if (this.context) this.context.close();
    this.context = null;
    this.gain = null;
    this.onState("");
  }
}
