#!/usr/bin/env python3
"""Writes arithmetic on decimal numbers and its results, worked out independently of the program
with Python's decimal numbers. Usage: decimal-cases.py > ../OakfenCore/Support/decimal-cases.tsv

Numbers are written as COEFFICIENTeEXPONENT, what is no number as NaN. Lines: + - * / A B RESULT;
compare A B -1|0|1; round A SCALE then the results plain, down, up and bankers; parse TEXT RESULT
and json TEXT RESULT, where a text that is refused has the result "none"; print A TEXT; double A
NEAREST, in the shortest digits that name it."""

import decimal
import re
from decimal import Decimal
from random import Random

# 38 digits and exponents from -128 to 127; clamping gives large numbers their lowest exponent.
LIMITS = dict(prec=38, Emin=-128 + 37, Emax=127 + 37, clamp=1, capitals=0, traps=[])
CONTEXT = decimal.Context(rounding=decimal.ROUND_HALF_UP, **LIMITS)
EXACT = decimal.Context(prec=2000, Emin=-99999, Emax=99999, traps=[decimal.Inexact])
MODES = [decimal.ROUND_HALF_UP, decimal.ROUND_FLOOR, decimal.ROUND_CEILING,
         decimal.ROUND_HALF_EVEN]
random = Random(20260101)


def make(coefficient, exponent):
    return Decimal(coefficient).scaleb(exponent, EXACT)


def canonical(value):
    """The coefficient and the largest exponent that the range allows."""
    sign, digits, exponent = value.as_tuple()
    coefficient = int("".join(map(str, digits)))
    if coefficient == 0:
        return 0, 0
    while coefficient % 10 == 0 and exponent < 127:
        coefficient //= 10
        exponent += 1
    return -coefficient if sign else coefficient, exponent


def written(value):
    if not value.is_finite():
        return "NaN"
    coefficient, exponent = canonical(value)
    return f"{coefficient}e{exponent}"


def plain(value):
    text = format(value, "f")
    text = text.rstrip("0").rstrip(".") if "." in text else text
    return "0" if text in ("-0", "") else text


def everyday():
    return make(random.randint(-10_000_000, 10_000_000), random.choice([-2, -2, -2, -4, 0]))


def digits(count):
    return random.randint(10 ** (count - 1), 10**count - 1) * random.choice([1, -1])


def long_number():
    return make(digits(random.randint(15, 38)), random.randint(-30, 8))


def extreme():
    exponent = random.choice([-128, -127, -100, -65, -64, 63, 64, 100, 126, 127])
    coefficient = random.choice([1, -1, 5, 49, -50, 51, 10**38 - 1, -(10**38 - 1), 10**37,
                                 digits(random.randint(1, 38)), digits(19)])
    return make(coefficient, exponent)


def around_a_half():
    """A sum or a product with these often falls on, just above or just below a half."""
    count = random.randint(1, 38)
    half = random.choice([5, 50, 500, 49, 51, 499, 501, 5 * 10**(count - 1), 5 * 10**count - 1])
    return make(half * random.choice([1, -1]), random.randint(-45, 5))


def nines():
    return make(int("9" * random.randint(1, 38)) * random.choice([1, -1]), random.randint(-40, 10))


def any_number():
    chosen = random.choice([everyday, everyday, long_number, long_number, extreme, around_a_half,
                            nines, lambda: Decimal(0)])
    while True:
        value = chosen()
        if value.is_zero() or -128 <= canonical(value)[1]:
            if abs(canonical(value)[0]) < 10**38:
                return value


def write(*cells):
    print(*cells, sep="\t")


def write_arithmetic(count):
    operations = {"+": CONTEXT.add, "-": CONTEXT.subtract, "*": CONTEXT.multiply,
                  "/": CONTEXT.divide}
    for name, operation in operations.items():
        for _ in range(count):
            a, b = any_number(), any_number()
            if name == "-" and random.random() < 0.1:
                b = CONTEXT.plus(a + random.choice([-1, 1]) * make(1, canonical(a)[1]))
                b = b if b.is_finite() else a
            write(name, written(a), written(b), written(operation(a, b)))


def write_comparisons(count):
    for _ in range(count):
        a = any_number()
        b = random.choice([any_number(), a, EXACT.minus(a), CONTEXT.next_plus(a), everyday()])
        if b.is_finite():
            write("compare", written(a), written(b), int(EXACT.compare(a, b)))


def rounded(value, scale, mode):
    if value.is_zero() or canonical(value)[1] >= -scale:
        return value
    wide = decimal.Context(prec=2000, Emin=-99999, Emax=99999, rounding=mode)
    return CONTEXT.plus(value.quantize(Decimal(1).scaleb(-scale), context=wide))


def write_roundings(count):
    for _ in range(count):
        value = any_number()
        exponent = canonical(value)[1]
        scale = random.choice([0, 2, 2, 2, 4, -3, -exponent - 1, -exponent - 2,
                               -exponent - random.randint(1, 45)])
        if random.random() < 0.3:  # halves
            value = make(random.randint(-99, 99) * 10 + 5, -3)
            scale = 2
        results = [written(rounded(value, scale, mode)) for mode in MODES]
        write("round", written(value), scale, *results)


def read(text):
    if len(text) > 600 or not text:
        return "none"
    value = CONTEXT.create_decimal(text)
    return written(value) if value.is_finite() else "none"


def random_text(alphabet):
    return "".join(random.choice(alphabet) for _ in range(random.randint(0, 9)))


def write_texts(count):
    grammar = re.compile(r"-?([0-9]+\.?[0-9]*|\.[0-9]+)")
    json_grammar = re.compile(r"-?(0|[1-9][0-9]*)(\.[0-9]+)?([eE][+-]?[0-9]+)?")
    for _ in range(count):
        value = any_number()
        text = random.choice([
            plain(value), "0" * random.randint(0, 4) + plain(abs(value)), plain(value) + ".",
            plain(value).replace("0.", "."), random_text("0123456789.-"),
            plain(value) + "".join(str(random.randint(0, 9)) for _ in range(random.randint(1, 9)))])
        if len(text) < 120:
            write("parse", text, read(text) if grammar.fullmatch(text) else "none")
        mantissa, exponent = plain(value), random.choice([0, 2, -2, 40, -40, 130, -130, 170, 400])
        text = random.choice([plain(value), f"{mantissa}e{exponent}", f"{mantissa}E{exponent:+}",
                              random_text("0123456789.-+eE"), f"{digits(40)}e{exponent - 40}"])
        if len(text) < 120:
            write("json", text, read(text) if json_grammar.fullmatch(text) else "none")
        if len(plain(value)) < 180:
            write("print", written(value), plain(value))
        write("double", written(value), repr(float(value)))


def main():
    write_arithmetic(550)
    write_comparisons(400)
    write_roundings(550)
    write_texts(350)


if __name__ == "__main__":
    main()
