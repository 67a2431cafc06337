#!/usr/bin/env python3
"""Writes a portfolio of many rows and the positions that it leaves, worked out independently of the
program with Python's decimal numbers. Usage: worked-portfolio.py > worked-portfolio.tsv

Lines: price SYMBOL PRICE; row DAY SYMBOL ACTION SHARES PRICE COMMISSION AMOUNT; then
holding SYMBOL SHARES BASIS REALIZED, in the order of value, and cash TOTAL."""

from decimal import ROUND_HALF_UP, Decimal, getcontext
from random import Random

getcontext().prec = 38
getcontext().rounding = ROUND_HALF_UP
ACTIONS = ["buy", "buy", "buy", "sell", "sell", "dividend", "interest", "reinvest", "sharesIn",
           "sharesOut"]


def plain(value):
    text = format(value, "f")
    return text.rstrip("0").rstrip(".") if "." in text else text


def cents(value):
    return value.quantize(Decimal("0.01"))


def main():
    random = Random(7)
    prices = {"AAA": Decimal("12.34"), "BBB": Decimal("101.5"), "CCC": Decimal("0.875"),
              "DDD": Decimal("55")}
    for symbol, price in prices.items():
        print("price", symbol, plain(price), sep="\t")
    rows = []
    for day in range(1, 61):
        action = "buy" if day <= 4 else random.choice(ACTIONS)
        symbol = list(prices)[day % 4]
        shares = Decimal(random.randrange(1, 5000)) / 100 if action not in (
            "dividend", "interest") else Decimal(0)
        price = Decimal(random.randrange(50, 20000)) / 100
        commission = Decimal(random.choice([0, 495, 999])) / 100
        amount = Decimal(random.randrange(1, 9000)) / 100
        rows.append((day, symbol, action, shares, price, commission, amount))
        print("row", day, symbol, action, *map(plain, rows[-1][3:]), sep="\t")

    cash = Decimal(0)
    held = {symbol: [Decimal(0)] * 3 for symbol in prices}
    for _, symbol, action, shares, price, commission, amount in rows:
        owned, basis, realized = held[symbol]
        if action in ("buy", "reinvest", "sharesIn"):
            cost = shares * price + (commission if action == "buy" else 0)
            held[symbol] = [owned + shares, basis + cost, realized]
            cash -= cost if action == "buy" else 0
        elif action in ("sell", "sharesOut"):
            sold = min(owned, shares)
            removed = basis * sold / owned if owned > 0 else Decimal(0)
            if action == "sell":
                realized += sold * price - commission - removed
                cash += shares * price - commission
            held[symbol] = [owned - sold, basis - removed, realized]
        else:
            cash += amount
    order = sorted(prices, key=lambda symbol: -held[symbol][0] * prices[symbol])
    for symbol in order:
        owned, basis, realized = held[symbol]
        print("holding", symbol, plain(owned), plain(cents(basis)), plain(cents(realized)), sep="\t")
    print("cash", plain(cash), sep="\t")


main()
