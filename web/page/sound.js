// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const chunksAhead = 3;

function bufferOf(chunk, channels, sampleRate) {
  const length = chunk.length / channels;
  const buffer = new AudioBuffer({ numberOfChannels: channels, length, sampleRate });
  for (let channel = 0; channel < channels; ++channel) {
    const samples = buffer.getChannelData(channel);
    for (let i = 0; i < length; ++i) samples[i] = chunk[i * channels + channel] / 32768;
  }
  return buffer;
}

// The game's sound device. Plays chunks of samples one after the other; the end of a chunk requests
// the next one in time.
export class Sound {
  constructor() {
    this.volume = 1;
    this.context = null;
    this.gain = null;
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
    let end = 0; // seconds, of the last chunk
    const playNext = () => {
      const chunk = mix();
      if (!chunk) return;
      const late = context.currentTime - end;
      if (late > 0) {
        this.dropouts += end && Math.round(late * frequency);
        end = context.currentTime;
      }
      const buffer = bufferOf(chunk, channels, frequency);
      const source = new AudioBufferSourceNode(context, { buffer });
      source.connect(this.gain);
      source.onended = playNext;
      source.start(end);
      end += samples / frequency;
    };
    // The mixer is ready when the game sleeps for the first time.
    for (let i = 0; i < chunksAhead; ++i) setTimeout(playNext);
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
    if (this.context) this.context.close();
    this.context = null;
    this.onState("");
  }
}
