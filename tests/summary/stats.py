#!/usr/bin/env python3
"""Recomputes what `sanovia-cli stats --json` says, from the exported file and with Python's own statistics."""
import csv, datetime, json, os, re, statistics, subprocess, sys, tempfile

CLI, SAMPLE = sys.argv[1:3]
WORDS = {"wellbeing": 4, "appetite": 2}
KEYS = ["measure", "unit", "n", "mean", "sd", "median", "min", "max", "first", "last", "norm", "below", "in", "above",
        "previous", "change"]
HEIGHT = 1.83


def norms(age):
    systolic = (110, 140) if 40 <= age < 60 else (110, 150)
    return {"temperature": (36.3, 37.3), "weight": (18.5 * HEIGHT ** 2, 25 * HEIGHT ** 2), "bmi": (18.5, 25),
            "systolic": systolic, "diastolic": (70, 90), "pulse": (64, 84) if 50 <= age < 60 else (69, 89),
            "ppressure": (30, 100), "hemoglobin": (12, 14), "crp": (0, 1), "esr": (15, 30), "albumin": (3.4, 5.4),
            "wbc": (4, 10)}


def near(one, other):
    if one is None or other is None:
        return one is other
    return abs(one - other) <= 1e-9 * max(1, abs(other))


def check(stats, days, first, last, norm):
    length = (last - first).days + 1
    before = [d for d in days if first - datetime.timedelta(length) <= d < first]
    within = [d for d in days if first <= d <= last]
    assert list(stats) == ["from", "to", "days", "daysWithEntries", "measures"], list(stats)
    assert (stats["from"], stats["to"], stats["days"]) == (str(first), str(last), length)
    assert stats["daysWithEntries"] == len(within)
    expected = [m for m in days.names if any(m in days[d] for d in within)]
    assert [m["measure"] for m in stats["measures"]] == expected, expected
    for m in stats["measures"]:
        name = m["measure"]
        pairs = [(str(d), days[d][name]) for d in within if name in days[d]]
        values = [v for _, v in pairs]
        at = lambda p: {"value": p[1], "date": p[0]}
        same = lambda got, pair: got["date"] == pair[0] and near(got["value"], pair[1]) and list(got) == list(at(pair))
        assert m["n"] == len(values) and same(m["first"], pairs[0]) and same(m["last"], pairs[-1]), m
        if name in WORDS:
            assert list(m) == KEYS + ["counts"], list(m)
            assert m["counts"] == {str(int(v)): values.count(v) for v in sorted(set(values))}, m
            assert all(m[k] is None for k in KEYS if k not in ("measure", "n", "first", "last")), m
            continue
        assert list(m) == KEYS, list(m)
        earlier = [days[d][name] for d in before if name in days[d]]
        mean = statistics.fmean(values)
        previous = statistics.fmean(earlier) if earlier else None
        assert near(m["mean"], mean) and near(m["median"], statistics.median(values)), m
        assert near(m["sd"], statistics.stdev(values) if len(values) > 1 else None), m
        assert same(m["min"], min(pairs, key=lambda p: p[1])) and same(m["max"], max(pairs, key=lambda p: p[1])), m
        assert near(m["previous"], previous) and near(m["change"], None if not earlier else mean - previous), m
        limits = norm.get(name)
        if limits is None:
            assert m["norm"] is m["below"] is m["in"] is m["above"] is None, m
            continue
        low, high = limits
        assert all(abs(got - want) < 1e-5 for got, want in zip((m["norm"]["low"], m["norm"]["high"]), limits)), m
        sides = [sum(v < low - 1e-6 for v in values), sum(v > high + 1e-6 for v in values)]
        assert (m["below"], m["in"], m["above"]) == (sides[0], len(values) - sum(sides), sides[1]), m


class Days(dict):
    names = []


def read(path):
    days = Days()
    with open(path, newline="") as stream:
        for row in csv.DictReader(stream):
            days.names = [name for name in row if name != "date"]
            values = {name: float(text) for name, text in row.items() if name != "date" and text}
            if "weight" in values:
                values["bmi"] = values["weight"] / HEIGHT ** 2
            days[datetime.date.fromisoformat(row["date"])] = values
    days.names.insert(days.names.index("weight") + 1, "bmi")
    return days


def main():
    with tempfile.TemporaryDirectory() as home:
        env = dict(os.environ, XDG_DATA_HOME=home, XDG_CONFIG_HOME=home, TZ="Europe/Berlin", LC_ALL="C.UTF-8")
        run = lambda *words: subprocess.run(words, env=env, check=True, capture_output=True, text=True).stdout
        sample = os.path.join(home, "sample.csv")
        run(SAMPLE, "--end", "2026-11-22", sample)
        run(CLI, "import", sample)
        run(CLI, "export", sample)
        days = read(sample)
        os.makedirs(os.path.join(home, "Quillmere"), exist_ok=True)
        for birthday, age in (("", None), ("userBirthday=1967-05-04 00:00:00 +0000\n", 59)):
            with open(os.path.join(home, "Quillmere", "Sanovia.conf"), "w") as conf:
                conf.write(f"[General]\nuserHeight={HEIGHT}\n{birthday}")
            norm = norms(age if age is not None else 59)
            if age is None:
                norm = {m: n for m, n in norm.items() if m not in ("systolic", "diastolic", "pulse", "ppressure")}
            for first, last in (("2025-11-23", "2026-11-22"), ("2026-09-01", "2026-11-22"), ("2026-11-16",) * 2,
                                ("2026-10-01", "2026-10-30")):
                stats = json.loads(run(CLI, "stats", "--json", "--from", first, "--to", last))
                check(stats, days, datetime.date.fromisoformat(first), datetime.date.fromisoformat(last), norm)
        env.update(LC_ALL="", LANG="en_US.UTF-8", LC_TIME="de_DE.UTF-8", LC_NUMERIC="de_DE.UTF-8")
        page = os.path.join(home, "page.html")
        run(CLI, "summary", "--from", "2026-10-01", "--to", "2026-10-30", page)
        with open(page, encoding="utf-8") as stream:
            text = stream.read()
        assert "1 Oct 2026" in text and "Okt" not in text, "months in the language of the page"
        assert re.search(r"\d\.\d\d ± \d\.\d\d<", text), "and its decimal sign"
        nothing = subprocess.run([CLI, "stats", "--json", "--from=2020-01-01", "--to=2020-01-02"], env=env,
                                 capture_output=True, text=True)
        assert nothing.returncode == 3 and nothing.stdout == "", nothing


main()
