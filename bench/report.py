"""Turns measurements into the tables of docs/performance.md."""
import math
import os
import pathlib
import platform
import subprocess

import contenders as names

MEGABYTE = 1e6
# Entries of the reference and of the untranslated dictionary, and the most of any process, in MB.
PEAK_GOALS = [((1_000_000, 100_000), 32), ((1_000_000, 1_000_000), 64)]
# Entries of the reference, and the most of msgmerge's processor time; the most of any process, in MB.
CATALOG_GOALS = [(300_000, 0.35), (1_000_000, 0.30)]
CATALOG_PEAK = 48


def machine():
    """The machine in a few words, and how busy it was."""
    model = platform.processor()
    for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 1e9
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True)
    return (f"{os.cpu_count()} cores of {model}, {memory:.0f} GB, {platform.system()} "
            f"{platform.release()}, {compiler.stdout.splitlines()[0]}; load average before the "
            f"measurements {os.getloadavg()[0]:.1f}")


def grouped(number):
    return f"{number:,}"


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows])


def peak(figures):
    return max(figures["peaks"].values())


def peaks_text(figures):
    """The peaks of every program, the largest first."""
    ordered = sorted(figures["peaks"].items(), key=lambda item: -item[1])
    return ", ".join(f"{name} {size / MEGABYTE:.1f}" for name, size in ordered if name != "sh")


def exponent(small, large, ratio):
    return math.log(large / small) / math.log(ratio)


def runs_table(results, other=names.PLAIN_GLOSSARY, of="Of the plain shell, two glossaries"):
    """results: {reference entries: {contender: figures}}; the ratio is that to `other`."""
    rows = []
    for entries, figures in results.items():
        base = figures[other]["cpu"]
        for name, figure in figures.items():
            rows.append([grouped(entries), name, f"{figure['cpu']:.3f}", f"{figure['cpu'] / base:.2f}",
                         f"{figure['seconds']:.3f}", peaks_text(figure)])
    return table(["Entries", "What", "Processor s", of, "Wall s", "Peak MB"], rows)


def growth_table(results):
    small, large = min(results), max(results)
    rows = []
    for name, figure in results[large].items():
        before = results[small][name]
        rows.append([name,
                     f"{exponent(before['cpu'], figure['cpu'], large / small):.2f}",
                     f"{exponent(before['seconds'], figure['seconds'], large / small):.2f}",
                     f"{exponent(peak(before), peak(figure), large / small):.2f}"])
    return table(["What", "Processor time", "Wall time", "Memory"], rows)


class Goals:
    """Rows of what is aimed at, what is measured, and whether it is met."""

    def __init__(self):
        self.rows = []

    def ratio(self, what, figures, name, other, most):
        wall = figures[name]["seconds"] / figures[other]["seconds"]
        cpu = figures[name]["cpu"] / figures[other]["cpu"]
        self.add(what, f"{most:.2f}", f"{cpu:.2f}", round(cpu, 2) <= most, f"{wall:.2f}")

    def most(self, what, value, most, unit=""):
        self.add(what, f"{most}{unit}", f"{value:.2f}{unit}", value <= most)

    def add(self, what, goal, measured, met, wall=""):
        self.rows.append([what, "at most " + goal, measured, "yes" if met else "**no**", wall])

    def table(self):
        return table(["What", "Goal", "Measured", "Met", "Wall time"], self.rows)

    def runs(self, at, figures):
        """The goals of the runs over dictionaries of one kind and size."""
        self.ratio("whole run, two glossaries, of the plain shell" + at, figures,
                   names.GLOSSARY_RUN, names.PLAIN_GLOSSARY, 0.35)
        self.ratio("its `sqlite` steps, of the plain shell" + at, figures,
                   names.GLOSSARY_STEPS, names.PLAIN_GLOSSARY, 0.18)
        self.ratio("with a purified database, of the whole run" + at, figures,
                   names.PURIFIED_RUN, names.GLOSSARY_RUN, 0.28)
        self.ratio("untranslated text, of the plain shell" + at, figures,
                   names.TEXT_RUN, names.PLAIN_TEXT, 0.40)


    def catalogs(self, catalogs):
        """The goals of the runs of PO files."""
        for entries, most in CATALOG_GOALS:
            figures = catalogs[entries]
            self.ratio(f"PO, of msgmerge, {grouped(entries)} entries", figures, names.PO_RUN,
                       names.MSGMERGE, most)
        peaks = [peak(figures[names.PO_RUN]) for figures in catalogs.values()]
        self.most("peak of any process, PO", max(peaks) / MEGABYTE, CATALOG_PEAK, " MB")


def goals_table(results, long_strings, many_hits, catalogs, peaks):
    goals = Goals()
    for kind, measured in (("", results), (" of longer strings", long_strings)):
        for entries in [entries for entries in measured if entries >= 300_000]:
            goals.runs(f", {grouped(entries)} entries{kind}", measured[entries])
    small, large = min(results), max(results)
    goals.ratio(f"whole run, of msgmerge, {grouped(large)} entries", results[large],
                names.GLOSSARY_RUN, names.MSGMERGE, 0.20)
    goals.catalogs(catalogs)
    if small < large:
        run, before = results[large][names.GLOSSARY_RUN], results[small][names.GLOSSARY_RUN]
        growth = f"from {grouped(small)} to {grouped(large)} entries, as exponent"
        goals.most("growth of processor time " + growth,
                   exponent(before["cpu"], run["cpu"], large / small), 1.05)
        goals.most("growth of memory " + growth,
                   exponent(peak(before), peak(run), large / small), 0.1)
    for ((reference, untranslated), most), (_, measured) in zip(PEAK_GOALS, peaks):
        goals.most(f"peak of any process, {grouped(reference)} x {grouped(untranslated)}",
                   measured / MEGABYTE, most, " MB")
    goals.ratio("100,000 untranslated strings that nearly all match, of the plain shell",
                many_hits, names.GLOSSARY_RUN, names.PLAIN_GLOSSARY, 0.35)
    return goals.table()
