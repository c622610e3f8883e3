# Invariants of many symmetric tensors to 17 digits, worked out with 130. The tests make the same random tensors again
# from the generator below, so only results are stored.
#
#     python3 tensors.py        (mpmath) writes tensors_float.bin, tensors_double.bin, tensors_plane.bin and
#                               tensors_special.txt
#
# tensors_float.bin: for each of 10,000 tensors with float components nine numbers: principal values, descending,
# tresca, mises, pressure, third invariant, in-plane principal values. Doubles, little-endian.
# tensors_double.bin: the same for 1,500 tensors with double components.
# tensors_plane.bin: the same for 1,000 tensors with float components, first without 13 and 23, then without 33 too.
# tensors_special.txt: six components and the same nine numbers, in hexadecimal.
import math
import struct

import mpmath
from mpmath import mpf

mpmath.mp.dps = 130

state = 0


def bits():
    """64 random bits (splitmix)."""
    global state
    mask = (1 << 64) - 1
    state = (state + 0x9E3779B97F4A7C15) & mask
    z = state
    z = ((z ^ (z >> 30)) * 0xBF58476D1CE4E5B9) & mask
    z = ((z ^ (z >> 27)) * 0x94D049BB133111EB) & mask
    return z ^ (z >> 31)


def unit():
    """From -1 up to 1, a multiple of 2^-52."""
    return (bits() >> 11) * 2.0**-52 - 1.0


def to_float(x):
    return struct.unpack("<f", struct.pack("<f", x))[0]


def random_tensor(index):
    kind = index % 5
    c = [unit() for _ in range(6)]
    if kind == 1:  # any size
        scale = int(bits() % 201) - 100
        c = [math.ldexp(x, scale) for x in c]
    elif kind == 2:  # each component its own size
        c = [math.ldexp(x, int(bits() % 31) - 15) for x in c]
    elif kind == 3:  # a little off hydrostatic
        small = -int(bits() % 24)
        p = unit()
        c = [p + math.ldexp(c[i], small) if i < 3 else math.ldexp(c[i], small) for i in range(6)]
    elif kind == 4:  # nearly uniaxial along a direction: two values close to zero
        small = -int(bits() % 20)
        v = [unit() for _ in range(3)]
        outer = [v[0] * v[0], v[1] * v[1], v[2] * v[2], v[0] * v[1], v[0] * v[2], v[1] * v[2]]
        c = [outer[i] + math.ldexp(c[i], small) for i in range(6)]
    return c


def invariants(c):
    a, b, g, d, e, f = (mpf(x) for x in c)
    values = sorted(mpmath.eigsy(mpmath.matrix([[a, d, e], [d, b, f], [e, f, g]]), eigvals_only=True), reverse=True)
    mean = (a + b + g) / 3
    x, y, z = a - mean, b - mean, g - mean
    mises = mpmath.sqrt(mpf(3) / 2 * (x * x + y * y + z * z + 2 * (d * d + e * e + f * f)))
    third = mpf(27) / 2 * (x * (y * z - f * f) - d * (d * z - f * e) + e * (d * f - y * e))
    inv3 = mpmath.sign(third) * mpmath.cbrt(abs(third))
    middle, radius = (a + b) / 2, mpmath.sqrt(((a - b) / 2) ** 2 + d * d)
    result = list(values) + [values[0] - values[2], mises, -mean, inv3, middle + radius, middle - radius]
    # What is zero comes out as the noise of 130 digits.
    size = max(abs(x) for x in (a, b, g, d, e, f))
    return [float(x) if abs(x) > size * mpf(10) ** -110 else 0.0 for x in result]


with open("tensors_float.bin", "wb") as out:
    state = 1
    for index in range(10000):
        tensor = [to_float(x) for x in random_tensor(index)]
        out.write(struct.pack("<9d", *invariants(tensor)))
with open("tensors_double.bin", "wb") as out:
    state = 2
    for index in range(1500):
        out.write(struct.pack("<9d", *invariants(random_tensor(index))))

with open("tensors_plane.bin", "wb") as out:
    state = 3
    for index in range(1000):
        a, b, g, d, _, _ = (to_float(x) for x in random_tensor(index))
        out.write(struct.pack("<9d", *invariants([a, b, g, d, 0, 0])))
        out.write(struct.pack("<9d", *invariants([a, b, 0, d, 0, 0])))

special = [
    [0, 0, 0, 0, 0, 0],
    [5, 5, 5, 0, 0, 0],
    [-5, -5, -5, 0, 0, 0],
    [1, 2, 3, 0, 0, 0],
    [0, 0, 0, 1, 0, 0],
    [0, 0, 0, 1, 1, 1],
    [1, 1, 1, 1, 1, 1],
    [2, 2, 2, -1, -1, -1],
    [100, 0, 0, 0, 0, 0],
    [0, -100, 0, 0, 0, 0],
    [3, 3, 1, 0, 0, 0],
    [1, 3, 3, 0, 0, 0],
    [4, 1, 0.25, 2, 1, 0.5],
    [1, 4, 9, 2, 3, 6],
    [1, 1, 0, 1, 0, 0],
    [1, 1, 0, -1, 0, 0],
    [2, -1, -1, 0, 0, 3],
    [10, 10, 10, 2.0**-20, 2.0**-20, 2.0**-20],
    [10, 10, 10 + 2.0**-20, 0, 0, 0],
    [10, 10, 10, 2.0**-60, 0, 2.0**-61],
    [1, 1, 1, 0, 0, 2.0**-149],
    [1, 1 + 2.0**-23, 1, 2.0**-24, 2.0**-30, 2.0**-40],
    [1, 1, 2, 2.0**-24, 2.0**-24, 0],
    [2, 1, 1, 2.0**-12, 2.0**-12, 2.0**-24],
]
for scale in (1e-30, 1e30, 2.0**-120, 2.0**120):
    special += [[to_float(scale * x) for x in c] for c in
                ([1, 2, 3, 0.5, 0.25, 0.125], [1, 1, 1, 1, 1, 1], [1, -1, 0, 0, 0.5, 0], [3, 2, 2, 1e-3, 1e-4, 1e-5])]
special += [[to_float(x) for x in c] for c in
            ([1e30, 1, 1e-30, 0, 0, 0], [1e30, 1e-30, 1e-30, 1e-30, 1e-30, 1e-30], [1e20, 1, 1e-20, 1e5, 1e-3, 1e-12],
             [1e10, 1e5, 1, 1e6, 1e3, 1e2], [1e-30, 1e30, 1e-30, 1e15, 1e14, 1], [1e30, 1e30, 1e30, 1, 1, 1],
             [3.4e38, 3.4e38, 3.4e38, 3.4e38, 3.4e38, 3.4e38], [3.4e38, -3.4e38, 3.4e38, 0, 3.4e38, 1],
             [1e-45, 0, 0, 1e-45, 0, 0], [1e-45, 2e-45, 3e-45, 1e-45, 1e-45, 1e-45])]
with open("tensors_special.txt", "w") as out:
    for c in special:
        print(*(float(x).hex() for x in c), *(float(x).hex() for x in invariants(c)), file=out)
