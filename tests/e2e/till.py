"""A till's folder as the other programs of the shop see it: tables by the sqlite3 shell, log,
registry tree, the money of the recycler; and the texts that an operator reads."""

import glob
import os
import subprocess

from bus import check, one_line, wait

FOLDER = os.environ["ZV_TILL"]
BIN = os.environ["ZV_BIN"]


def sql(statement):
    """Rows as the shell prints them, columns parted by "|"."""
    out = subprocess.run(["sqlite3", "-cmd", ".timeout 5000", f"{FOLDER}/ZVMonito2.mdb", statement],
                         check=True, capture_output=True, text=True)
    return out.stdout.splitlines()


def log():
    """The lines of the log without version and time."""
    lines = []
    for path in sorted(glob.glob(f"{FOLDER}/Debug/ZVMonitor*.log")):
        with open(path, encoding="cp1252", newline="") as file:
            lines += [line.split(" - ", 2)[-1] for line in file.read().splitlines()]
    return lines


def registry(name):
    """A value of the monitor's, or nothing where it does not stand."""
    try:
        with open(f"{FOLDER}/Registro/HKLM/Software/Zorvex/ZVMonitor/{name}", encoding="utf-8") as file:
            return file.read()
    except FileNotFoundError:
        return None


def money():
    """What the recycler holds, in cents."""
    out = subprocess.run([f"{BIN}/ZVSimulador", "--carpeta", f"{FOLDER}/simulador", "--saldo"],
                         check=True, capture_output=True, text=True)
    return int(out.stdout)


def put_sale(amount, id1, **columns):
    columns = {"fecha": "2026-03-14 10:20:30", "importe": amount, "id1": id1, **columns}
    values = ", ".join(f"'{value}'" for value in columns.values())
    sql(f"INSERT INTO cola ({', '.join(columns)}) VALUES ({values})")


def wait_rows(what, statement, rows, limit=20):
    try:
        wait(what, lambda: sql(statement) == rows, limit)
    except AssertionError:
        check(what, rows, sql(statement))


class Texts:
    """The texts of a language file, or the built-in Spanish ones without it."""

    def __init__(self, path=None):
        self.texts = {}
        section = ""
        for line in open(path, encoding="utf-8-sig") if path else []:
            line = line.rstrip("\n")
            if line.startswith("["):
                section = line.strip("[]").lower()
            elif "=" in line and not line.startswith(";"):
                key, value = line.split("=", 1)
                self.texts[section, key.lower()] = value.strip(" ")

    def text(self, key, spanish, section="COMMON"):
        return self.texts.get((section.lower(), key.lower()), spanish.strip(" "))

    def caption(self, screen, key, spanish):
        """The name that a control has on the bus."""
        return one_line(self.text(key, spanish, screen))
