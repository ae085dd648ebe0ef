// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Plays the chunks of interleaved 16-bit samples that the page sends, and asks for the next chunks
// in time, so that a few chunks are always ready or on their way.
registerProcessor("mixer", class extends AudioWorkletProcessor {
  constructor(options) {
    super();
    Object.assign(this, options.processorOptions);
    this.chunks = [];
    this.position = 0; // of the next sample in the first chunk
    this.requested = 0;
    this.dropouts = 0; // samples that were missing after the first chunk
    this.hasBegun = false;
    this.port.onmessage = (event) => {
      this.chunks.push(event.data);
      this.requested -= 1;
    };
  }

  process(inputs, [output]) {
    for (let i = 0; i < output[0].length; ++i) this.playSample(output, i);
    while (this.chunks.length + this.requested < this.ahead + 1) {
      this.requested += 1;
      this.port.postMessage(this.dropouts);
    }
    return true;
  }

  playSample(output, i) {
    const chunk = this.chunks[0];
    if (!chunk) {
      if (this.hasBegun) this.dropouts += 1;
      return;
    }
    this.hasBegun = true;
    for (let channel = 0; channel < this.channels; ++channel) {
      output[channel][i] = chunk[this.position++] / 32768;
    }
    if (this.position >= chunk.length) {
      this.chunks.shift();
      this.position = 0;
    }
  }
});
