#!/usr/bin/env python3
"""Makes the wave files of the program's five sound events in the folder Sounds. Same script, same bytes."""

import math
import pathlib
import random
import struct
import wave

RATE = 44100


def envelope(at, length, attack, decay):
    """Rises as half a cosine, falls off exponentially, and ends in a cosine so that nothing clicks."""
    rise = 0.5 - 0.5 * math.cos(math.pi * min(at / attack, 1.0))
    end = 0.5 - 0.5 * math.cos(math.pi * min((length - at) / (0.25 * length), 1.0))
    return rise * end * math.exp(-at / decay)


def times(length):
    return [i / RATE for i in range(round(length * RATE))]


def tap(length, pitch, noise_share, seed):
    """A finger on wood: a sinking low tone with a breath of smoothed noise at its start."""
    noise = random.Random(seed)
    smooth = 0.0
    phase = 0.0
    samples = []
    for at in times(length):
        smooth += 0.18 * (noise.uniform(-1, 1) - smooth)
        phase += 2 * math.pi * pitch * (1 + 0.5 * math.exp(-at / 0.006)) / RATE
        tone = math.sin(phase) + 0.25 * math.sin(2 * phase)
        body = tone * envelope(at, length, 0.002, length / 5)
        breath = smooth * envelope(at, length, 0.001, length / 12)
        samples.append(body * (1 - noise_share) + 3 * breath * noise_share)
    return samples


def bell(at, length, pitch):
    if at < 0:
        return 0.0
    tone = math.sin(2 * math.pi * pitch * at)
    overtone = 0.2 * math.sin(4 * math.pi * pitch * at) * math.exp(-at / 0.02)
    return (tone + overtone) * envelope(at, length, 0.008, length / 3)


def two_bells(length, first, second):
    """Two soft tones; the second starts while the first one still rings."""
    start = 0.35 * length
    return [
        bell(at, length, first) + (bell(at - start, length - start, second) if at >= start else 0.0)
        for at in times(length)
    ]


def save(path, samples, peak_dbfs):
    loudest = max(abs(sample) for sample in samples)
    scale = 32767 * 10 ** (peak_dbfs / 20) / loudest
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(sample * scale)) for sample in samples))


def main():
    folder = pathlib.Path(__file__).resolve().parent.parent / "Sounds"
    folder.mkdir(exist_ok=True)
    save(folder / "ButtonMove.wav", tap(0.030, 880, 0.15, 1), -26)
    save(folder / "ButtonClick.wav", tap(0.060, 420, 0.35, 2), -18)
    save(folder / "KeyDown.wav", tap(0.035, 620, 0.55, 3), -24)
    # A fifth up when something opens, the same fifth down when it closes.
    save(folder / "FormLoad.wav", two_bells(0.240, 523.25, 783.99), -20)
    save(folder / "FormUnload.wav", two_bells(0.220, 783.99, 523.25), -20)


if __name__ == "__main__":
    main()
