// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const reserve = 0.2; // seconds: sound does not stop while the page is busy for so long
const period = 20; // milliseconds between two looks at the reserve
const safety = 0.05; // seconds from now in which a sound that begins anew begins

function bufferOf(chunk, channels, sampleRate) {
  const length = chunk.length / channels;
  const buffer = new AudioBuffer({ numberOfChannels: channels, length, sampleRate });
  for (let channel = 0; channel < channels; ++channel) {
    const samples = buffer.getChannelData(channel);
    for (let i = 0; i < length; ++i) samples[i] = chunk[i * channels + channel] / 32768;
  }
  return buffer;
}

// The game's sound device. Schedules chunks of samples, each at the end of the one before it.
export class Sound {
  constructor() {
    this.volume = 1;
    this.context = null;
    this.gain = null;
    this.timer = 0;
    this.dropouts = 0; // samples that came too late
    this.onState = () => {}; // (a message for the player, empty if there is no problem)
  }

  open(frequency, channels, samples, mix) {
    try {
      this.context = new AudioContext({ sampleRate: frequency });
    } catch (problem) {
      this.onState("No sound: this browser has no sound device. The game plays silently.");
      return false;
    }
    const { context } = this;
    this.gain = new GainNode(context, { gain: this.volume });
    this.gain.connect(context.destination);
    context.onstatechange = () => this.report(context);
    setTimeout(() => this.report(context), 1000);
    let end = 0; // of the last chunk, in samples since the context began
    this.timer = setInterval(() => {
      const now = context.currentTime * frequency;
      if (end < now) {
        const beginning = Math.ceil(now + safety * frequency);
        this.dropouts += end && beginning - end;
        end = beginning;
      }
      for (; end < now + reserve * frequency; end += samples) {
        const buffer = bufferOf(mix(), channels, frequency);
        const source = new AudioBufferSourceNode(context, { buffer });
        source.connect(this.gain);
        source.start(end / frequency);
      }
    }, period);
    return true;
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
    clearInterval(this.timer);
    if (this.context) this.context.close();
    this.context = null;
    this.onState("");
  }
}
