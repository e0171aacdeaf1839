"""What is measured: the run, its parts, and the peers, all over the same made-up dictionaries."""
import dataclasses
import json
import pathlib
import shutil
import subprocess

GLOSSARY_RUN = "whole run, two glossaries"
PURIFIED_RUN = "whole run, purified database"
TEXT_RUN = "whole run, untranslated text"
PO_RUN = "whole run, two PO files"
GLOSSARY_STEPS = "its `sqlite` steps alone, two glossaries"
TEXT_STEPS = "its `sqlite` steps alone, untranslated text"
PLAIN_GLOSSARY = "plain sqlite3 shell, scripts of two glossaries"
PLAIN_TEXT = "plain sqlite3 shell, scripts of an untranslated text"
MSGMERGE = "msgmerge --no-fuzzy-matching -C"
HASH_JOIN = "mawk hash join of the bare files"
BYTES = "reading and writing the bytes"


@dataclasses.dataclass
class Build:
    """Folders of the benchmark's own programs and of those to be measured."""
    bench: pathlib.Path
    programs: pathlib.Path


@dataclasses.dataclass
class Contender:
    """A command that is measured again and again, and what it leaves."""
    name: str
    command: list
    folder: pathlib.Path  # current directory of the command
    leaves: list          # file patterns in the folder, removed before each measurement


class Workbench:
    """The dictionaries of one size, with every contender made ready for them."""

    def __init__(self, build, scratch, reference, untranslated, known_percent=50, long_strings=False):
        self.bench = build.bench
        self.programs = build.programs
        kind = ["long"] if long_strings else []
        self.folder = scratch / "-".join([f"{reference}x{untranslated}k{known_percent}", *kind])
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        sizes = [str(reference), str(untranslated), str(known_percent), *kind]
        subprocess.run([self.bench / "generate_dictionaries", self.folder, *sizes], check=True)
        self.runner = self._copy_programs("programs")

    def file(self, name):
        return str(self.folder / name)

    def _copy_programs(self, name):
        """A program's folder of its own, so that no temporary file lands in the build."""
        folder = self.folder / name
        folder.mkdir()
        for program in ("lexmill-run", "batch", "sqlite"):
            shutil.copy2(self.programs / program, folder)
        return folder

    def _run(self, runner, to_do, refer, final, *options):
        return [str(runner / "lexmill-run"), self.file(to_do), self.file(refer), self.file(final),
                "--preset", "full", *options]

    def run(self, name, to_do, refer, final):
        return Contender(name, self._run(self.runner, to_do, refer, final), self.folder, [final])

    def save_purified(self):
        """Saves the purified database of the reference as ref.db."""
        subprocess.run(self._run(self.runner, "todo.glo", "ref.glo", "first.glo",
                                 "--set", "chkSaveRefDB=1",
                                 "--set", "txtSaveRefDB=" + self.file("ref.db")),
                       check=True, stdout=subprocess.DEVNULL)

    def scripts(self, name, to_do, refer, final):
        """A folder with the scripts that a run wrote, and nothing else of it."""
        keeper = self._copy_programs(name + "-keeper")
        subprocess.run(self._run(keeper, to_do, refer, final, "--set", "chkaKeepTmpFile=1"),
                       check=True, stdout=subprocess.DEVNULL)
        folder = self.folder / name
        folder.mkdir()
        for pattern in ("*.sql", "*.bat"):
            for file in keeper.glob(pattern):
                file.rename(folder / file.name)
        shutil.rmtree(keeper)
        return folder

    def steps(self, name, scripts, shell):
        """The batch scripts in `scripts`, with `shell` as their `sqlite`."""
        folder = scripts.parent / f"{scripts.name}-{pathlib.Path(shell).name}"
        folder.mkdir()
        for file in scripts.iterdir():
            (folder / file.name).symlink_to(file)
        (folder / "sqlite").symlink_to(shell)
        # The script that drops no table of the other comes first: it is the one that loads R.
        batches = sorted(folder.glob("*.bat"), key=lambda path: path.stat().st_size, reverse=True)
        batch = self.programs / "batch"
        line = " && ".join(f"{batch} {path.name}" for path in batches)
        return Contender(name, ["sh", "-c", line], folder, ["*.db", "*.txt", "*-journal"])

    def merge(self):
        merge = "msgmerge --no-fuzzy-matching -C ref.po empty.po todo.pot -o merged.po"
        return Contender(MSGMERGE, ["sh", "-c", merge], self.folder, ["merged.po"])

    def catalog_contenders(self):
        return [self.run(PO_RUN, "todo.pot", "ref.po", "out.po"), self.merge()]

    def peers(self):
        awk = ("FNR == NR { known[$1] = $2; next } $1 == $2 && $1 in known "
               "{ print $1 FS known[$1] }")
        join = f"mawk -F '\\t' '{awk}' ref.glo todo.glo >joined.glo"
        copy = "cat ref.glo todo.glo >copied.glo"
        return [Contender(HASH_JOIN, ["sh", "-c", join], self.folder, ["joined.glo"]),
                Contender(BYTES, ["sh", "-c", copy], self.folder, ["copied.glo"])]

    def glossary_contenders(self):
        scripts = self.scripts("glossary", "todo.glo", "ref.glo", "kept.glo")
        return [self.run(GLOSSARY_RUN, "todo.glo", "ref.glo", "out.glo"),
                self.steps(PLAIN_GLOSSARY, scripts, shutil.which("sqlite3")),
                self.steps(GLOSSARY_STEPS, scripts, self.programs / "sqlite")]

    def runs(self):
        self.save_purified()
        scripts = self.scripts("text", "todo.u.txt", "ref.a.txt", "kept.u.txt")
        return [*self.glossary_contenders(),
                self.run(PURIFIED_RUN, "todo.glo", "ref.db", "out-purified.glo"),
                self.run(TEXT_RUN, "todo.u.txt", "ref.a.txt", "out.u.txt"),
                self.steps(PLAIN_TEXT, scripts, shutil.which("sqlite3")),
                self.steps(TEXT_STEPS, scripts, self.programs / "sqlite")]

    def contenders(self):
        return [*self.runs(), *self.catalog_contenders(), *self.peers()]

    def measure(self, contender):
        """One measurement: {"seconds", "cpu", "peaks": {program: bytes}}."""
        for pattern in contender.leaves:
            for file in contender.folder.glob(pattern):
                file.unlink()
        done = subprocess.run([self.bench / "measure", *contender.command], cwd=contender.folder,
                              capture_output=True, check=True, encoding="utf-8",
                              errors="replace")
        result = json.loads(done.stdout)
        if result["exit"] != 0:
            raise SystemExit(f"{contender.name} failed:\n{done.stderr}")
        peaks = {}
        for program, peak in result.pop("processes"):
            peaks[program] = max(peak, peaks.get(program, 0))
        return {**result, "peaks": peaks}

    def remove(self):
        shutil.rmtree(self.folder)
