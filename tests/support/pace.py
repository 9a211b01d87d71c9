#!/usr/bin/env python3
# How long a test may take, by how fast the machine works at the moment. As a program it prints a number of seconds,
# raised to that pace.
# SPDX-License-Identifier: MIT
import math
import sys
import time

ROUNDS = 200_000
USUAL = 0.03  # seconds for these rounds on an idle machine of the slower kind


def pace():
    """How many times slower than usual this machine works now; 1 at least."""
    begin = time.monotonic()
    total = 0
    for number in range(ROUNDS):
        total += number % 7
    return max(1.0, (time.monotonic() - begin) / USUAL)


if __name__ == "__main__":
    print(math.ceil(int(sys.argv[1]) * pace()))
