"""A till's folder as the other programs of the shop see it: tables by the sqlite3 shell, log,
registry tree, the money of the recycler; and the texts that an operator reads."""

import difflib
import glob
import os
import subprocess

from bus import Failed, check, one_line, wait

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


def kept_lines():
    """The log without what the device client tells for itself, and without levels."""
    return [line for line in log() if not line.startswith((">>>", "ZVGETLEVELS", "INICIADO"))]


class Books:
    """What tables, log, registry and recycler must hold."""

    def __init__(self):
        self.balance = money()
        self.records = []  # of procesados
        self.entries = []  # of Accesos
        self.lines = kept_lines()  # of the log
        self.user = ""  # who is there

    def moved(self, cents):
        self.balance += cents

    def record(self, tag, sale, taken, given, state, id1, error="", *, terminal="ZV", row=0,
               balance=None, seller="", pay="", user=None):
        balance = self.balance if balance is None else balance
        self.records.append(f"{sale}|{taken}|{given}|{balance}|{state}|{id1}|{terminal}|{seller}|{pay}"
                            f"|{error[:50]}|{row}|{self.user if user is None else user}")
        self.wrote(f"ADDPROC_OK_{len(self.records)}_{tag}")

    def entered(self, place):
        self.entries.append(f"{self.user}|{place}")
        self.wrote(f"APUNTA_ACCESS_{self.user}-{place}")

    def wrote(self, *lines):
        self.lines += lines

    def agree(self):
        """The program has come to its end with an operation, and its books are these."""
        wait_rows("procesados", "SELECT importeVenta, cobrado, devuelto, saldoZV, estado, id1, terminal,"
                  " vendedor, formapago, error, idcola, usuario FROM procesados ORDER BY idZV",
                  self.records)
        wait_rows("Accesos", "SELECT usuario, lugar FROM Accesos ORDER BY rowid", self.entries)
        check("the money of the recycler", self.balance, money())
        wait("Saldo_Exit", lambda: registry("Saldo_Exit") == str(self.balance))
        wait("the busy mark", lambda: registry("Activo") in (None, "0"))
        try:
            wait("the log", lambda: kept_lines() == self.lines, 5)
        except Failed:
            told = difflib.unified_diff(self.lines, kept_lines(), "expected", "the log", lineterm="", n=1)
            raise Failed("\n".join(told)) from None
