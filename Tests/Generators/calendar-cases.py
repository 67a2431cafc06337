#!/usr/bin/env python3
"""Writes what local calendars make of instants around clock changes, worked out independently of
the program with Python's zoneinfo. Usage: calendar-cases.py > TABLE, where TABLE is
../OakfenCore/Support/calendar-cases.tsv.

Instants are seconds since 1970-01-01T00:00:00Z. Lines: ZONE INSTANT LOCAL-TIME START-OF-DAY
END-OF-DAY START-OF-MONTH END-OF-MONTH, then DAYS and the instant so many days on, MONTHS and the
instant so many months on, and OTHER with the whole days and the whole months up to it.

A local time that doesn't exist is the first instant after it, one that exists twice the earlier. A
whole step doesn't pass the other instant, and there are no more of them than the dates
differ by."""

from calendar import monthrange
from datetime import datetime, timedelta, timezone
from random import Random
from zoneinfo import ZoneInfo

ZONES = ["America/Toronto", "America/St_Johns", "America/Havana", "America/Sao_Paulo",
         "Europe/Dublin", "Asia/Kolkata", "Pacific/Apia", "America/Asuncion"]
FIRST = int(datetime(1970, 1, 3, tzinfo=timezone.utc).timestamp())
LAST = int(datetime(2024, 12, 28, tzinfo=timezone.utc).timestamp())
DAY = 86400
random = Random(20260101)


def offset(zone, instant):
    local = datetime.fromtimestamp(instant, timezone.utc).astimezone(zone)
    return int(local.utcoffset().total_seconds())


def local_time(zone, instant):
    """The local clock as a time without a zone."""
    return datetime.fromtimestamp(instant, timezone.utc).replace(tzinfo=None) + timedelta(
        seconds=offset(zone, instant))


def changes(zone):
    """The instants at which the offset changes, found by looking at it every few hours."""
    found, step = [], 6 * 3600
    for start in range(FIRST, LAST, step):
        if offset(zone, start) != offset(zone, start + step):
            found.append(change_between(zone, start, start + step))
    return found


def change_between(zone, low, high):
    before = offset(zone, low)
    while high - low > 1:
        middle = (low + high) // 2
        low, high = (middle, high) if offset(zone, middle) == before else (low, middle)
    return high


def instant_of(zone, local):
    """The instant of a local time, by trying every offset in force nearby."""
    guess = int(local.replace(tzinfo=timezone.utc).timestamp())
    offsets = {offset(zone, guess + hours * 3600) for hours in range(-48, 49)}
    fits = [guess - each for each in offsets if local_time(zone, guess - each) == local]
    if fits:
        return min(fits)
    low = min(guess - each for each in offsets)
    high = max(guess - each for each in offsets)
    return change_between(zone, low, high)


def midnight(zone, date):
    return instant_of(zone, datetime(date.year, date.month, date.day))


def adding_days(zone, instant, days):
    if days == 0:
        return instant
    return instant_of(zone, local_time(zone, instant) + timedelta(days=days))


def adding_months(zone, instant, months):
    if months == 0:
        return instant
    local = local_time(zone, instant)
    index = local.year * 12 + local.month - 1 + months
    year, month = index // 12, index % 12 + 1
    day = min(local.day, monthrange(year, month)[1])
    return instant_of(zone, local.replace(year=year, month=month, day=day))


def whole_steps(zone, start, end, estimate, adding):
    step = -1 if estimate > 0 else 1
    passes = (lambda at: at > end) if start <= end else (lambda at: at < end)
    if (start <= end) != (estimate >= 0):
        return 0
    while estimate != 0 and passes(adding(zone, start, estimate)):
        estimate += step
    return estimate


def row(name, instant):
    zone = ZoneInfo(name)
    local = local_time(zone, instant)
    tomorrow = local + timedelta(days=1)
    next_month = (local.replace(day=1) + timedelta(days=32)).replace(day=1)
    days = random.choice([1, -1, 2, 7, -14, random.randint(-400, 400)])
    months = random.choice([1, -1, 6, 12, random.randint(-60, 60)])
    other = instant + random.choice([1, -1]) * random.choice(
        [random.randint(0, 4 * DAY), days * DAY + random.randint(-5400, 5400),
         random.randint(0, 800 * DAY)])
    other_local = local_time(zone, other)
    month_difference = ((other_local.year - local.year) * 12 + other_local.month - local.month)
    print(name, instant, local.isoformat(), midnight(zone, local), midnight(zone, tomorrow) - 1,
          midnight(zone, local.replace(day=1)), midnight(zone, next_month) - 1,
          days, adding_days(zone, instant, days), months, adding_months(zone, instant, months),
          other,
          whole_steps(zone, instant, other, (other_local.date() - local.date()).days, adding_days),
          whole_steps(zone, instant, other, month_difference, adding_months), sep="\t")


def main():
    for name in ZONES:
        zone = ZoneInfo(name)
        all_changes = changes(zone)
        random.shuffle(all_changes)
        for change in all_changes[:30]:
            for distance in (0, -1, random.randint(-DAY, DAY), random.randint(-3600, 3600)):
                row(name, change + distance)
        if name == "Pacific/Apia":
            skipped = int(datetime(2011, 12, 30, 10, tzinfo=timezone.utc).timestamp())
            for distance in range(-2 * DAY, 2 * DAY + 1, DAY // 4):
                row(name, skipped + distance)
        for _ in range(40):
            row(name, random.randint(FIRST + 90 * DAY, LAST - 90 * DAY))


if __name__ == "__main__":
    main()
