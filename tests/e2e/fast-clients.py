# Clients of the fast link that behave badly, one kind after the other; after each of them the monitor
# answers a good one at once and has given its descriptors back.
#
#   fast-clients.py ADDRESS PORT PID DATABASE FAST_LOG
#
# Sales of nothing are filed without the device. Ends with 1 and what was wrong.
import collections
import os
import socket
import sqlite3
import struct
import sys
import time

address, port, pid, database, fast_log = sys.argv[1], int(sys.argv[2]), sys.argv[3], sys.argv[4], sys.argv[5]
LIMIT_S = 30
AT_ONCE_S = 2.0  # other work goes on on the machine
db = sqlite3.connect(database, timeout=10, isolation_level=None)


def check(what, good):
    if not good:
        sys.exit(f"FAILED: {what}")


def equal(what, expected, actual):
    check(f"{what}: {actual!r}, not {expected!r}", expected == actual)


def wait(what, condition):
    end = time.monotonic() + LIMIT_S
    while not condition():
        check(f"{what}: nothing within {LIMIT_S} seconds", time.monotonic() < end)
        time.sleep(0.01)


def connect(small=False):
    link = socket.socket()
    if small:  # so are the monitor's buffers for it
        link.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 2048)
        link.setsockopt(socket.IPPROTO_TCP, socket.TCP_MAXSEG, 256)
    link.settimeout(LIMIT_S)
    link.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
    link.connect((address, port))
    return link


def say(link, message):
    link.sendall(message if isinstance(message, bytes) else message.encode("cp1252"))


def ask(link, message):
    say(link, message)
    return link.recv(4096).decode("cp1252")


def nothing_more(link, what):
    """The next answer is that of the next message."""
    equal(what, "NOK|Unknown command", ask(link, "ping|"))


def reset(link):
    link.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    link.close()


def descriptors():
    kinds = []
    for name in os.listdir(f"/proc/{pid}/fd"):
        try:
            kinds.append(os.readlink(f"/proc/{pid}/fd/{name}").split(":")[0])
        except FileNotFoundError:
            pass
    return collections.Counter(kinds)


def rows(condition, *values):
    """How often it has been sold or waits."""
    return db.execute(f"SELECT (SELECT count(*) FROM cola WHERE {condition}) +"
                      f" (SELECT count(*) FROM procesados WHERE {condition} AND estado='OK')",
                      values * 2).fetchone()[0]


def count_in_log(text):
    with open(fast_log, "rb") as log:
        return log.read().count(text)


def queue_empty():
    return db.execute("SELECT count(*) FROM cola").fetchone()[0] == 0


good = connect()
equal("the first answer", "OK|Added", ask(good, "C|GOOD-0|0"))
wait("the first sale", queue_empty)
good.close()
time.sleep(0.5)
at_rest = descriptors()
check("the database is not among the descriptors", database in at_rest)
serial = 0


def still_well(after):
    global serial
    serial += 1
    name = f"GOOD-{serial}"
    with connect() as link:
        # Messages are answered in the order in which they came, those of who has left too.
        equal(f"an answer after {after}", "NOK|Not found", ask(link, "S|NOBODY"))
    wait(f"the end of the queue after {after}", queue_empty)
    start = time.monotonic()
    with connect() as link:
        equal(f"the charge after {after}", "OK|Added", ask(link, f"C|{name}|0"))
        answered = time.monotonic() - start
        check(f"the answer after {after} has taken {answered:.2f} s", answered < AT_ONCE_S)
        wait(f"the sale after {after}", lambda: ask(link, f"S|{name}") == "OK|OK")
    equal(f"the sales after {after}", 1, rows("id1=?", name))
    wait(f"the end of the queue after {after}", queue_empty)
    # None but those of the beginning; threads that rest give some of those back.
    wait(f"the descriptors {descriptors() - at_rest} too many after {after}", lambda: not descriptors() - at_rest)


# ---- come and gone, politely and not, with and without a word
for i in range(300):
    link = connect()
    if i % 3 == 1:
        say(link, f"S|VANISH-{i}")
    elif i % 3 == 2:
        say(link, f"C|VANISH-{i}|0")
    link.close() if i % 2 else reset(link)
still_well("300 that came and vanished")
# A farewell does not overtake the message; a reset may.
equal("the sales of those who left politely", 50,
      rows("id1 LIKE 'VANISH-%' AND CAST(substr(id1, 8) AS INTEGER) % 2 = 1"))
equal("the sales of those who left", rows("id1 LIKE 'VANISH-%'"),
      db.execute("SELECT count(DISTINCT id1) FROM procesados WHERE id1 LIKE 'VANISH-%'").fetchone()[0])

# ---- half open: nothing more will come of them, and the monitor closes its side too
half = []
for i in range(100):
    link = connect()
    if i % 2:
        say(link, f"C|HALF-{i}|0")
    link.shutdown(socket.SHUT_WR)
    half.append(link)
for link in half:
    told = link.recv(100)
    check(f"a half-open client is told {told}", told in (b"", b"OK|Added"))
    check("a half-open connection stays", told == b"" or link.recv(100) == b"")
    link.close()
still_well("100 half-open connections")
equal("the sales of the half-open", 50, rows("id1 LIKE 'HALF-%'"))

# ---- 500 that say nothing
idle = [connect() for _ in range(500)]
wait("500 connections", lambda: (descriptors() - at_rest).total() == 500)
with connect() as link:
    start = time.monotonic()
    equal("an answer beside 500", "NOK|Not found", ask(link, "S|NOBODY"))
    check("an answer beside 500 has taken its time", time.monotonic() - start < AT_ONCE_S)
equal("an answer to the last of 500", "NOK|Not found", ask(idle[-1], "S|NOBODY"))
equal("an answer to the first of 500", "NOK|Not found", ask(idle[0], "S|NOBODY"))
for link in idle:
    link.close()
still_well("500 idle connections")

# ---- messages of odd sizes and bytes
with connect() as link:
    # A megabyte comes in many pieces: the first is the message, the others have no separator.
    equal("the answer to a megabyte", "OK|Added", ask(link, "C|MEGABYTE|0|" + "x" * (1 << 20)))
    nothing_more(link, "the answers to a megabyte")
    wait("the sale of a megabyte", lambda: ask(link, "S|MEGABYTE") == "OK|OK")
    equal("what is kept of a megabyte", ("x" * 50,),
          db.execute("SELECT id2 FROM procesados WHERE id1='MEGABYTE'").fetchone())
    say(link, "y" * (1 << 20))
    nothing_more(link, "the answers to a megabyte without a separator")
    equal("the answer to 10,000 fields", "OK|Added", ask(link, "C|FIELDS|0|A|1|B|C|D" + "|E" * 10000))
    nothing_more(link, "the answers to 10,000 fields")
    wait("the sale of 10,000 fields", lambda: ask(link, "S|FIELDS") == "OK|OK")
    equal("what is kept of 10,000 fields", ("A", 1, "B", "C", "D"),
          db.execute("SELECT id2, idcaja, terminal, vendedor, formapago FROM procesados WHERE id1='FIELDS'").fetchone())
    equal("the answer to 10,000 separators", "NOK|Amount too big", ask(link, "C" + "|" * 10000))

    # No text of the books holds a NUL, behind which anything could hide.
    equal("the answer to byte 0", "NOK|Failed", ask(link, b"C|BYTE-0|0|<\0>"))
    for byte in range(1, 256):
        message = b"C|BYTE-%d|0|<" % byte + bytes([byte]) + b">"
        equal(f"the answer to byte {byte}", "OK|Added", ask(link, message))
    wait("the sales of all bytes", lambda: rows("id1 LIKE 'BYTE-%'") == 255 and queue_empty())
    for byte in range(1, 256):
        kept = db.execute("SELECT CAST(id2 AS BLOB) FROM procesados WHERE id1=?", (f"BYTE-{byte}",)).fetchone()[0]
        try:
            expected = bytes([byte]).decode("cp1252")
        except UnicodeDecodeError:
            continue  # no character of the code page
        expected = "<" if byte == ord("|") else f"<{expected}>"
        equal(f"byte {byte} in the books", expected, kept.decode())
    every = bytes(range(256))
    equal("the answer to all bytes at once", "NOK|Unknown command", ask(link, every + b"|" + every))
    say(link, every.replace(b"|", b""))
    nothing_more(link, "the answers to all bytes without a separator")
still_well("messages of odd sizes and bytes")

# ---- one message in many packets: each is a message of its own
with connect() as link:
    answers = ""
    for byte in b"C|SPLIT|0":
        before = count_in_log(b" R: ")
        say(link, bytes([byte]))
        wait("a byte in the log", lambda: count_in_log(b" R: ") == before + 1)
        if byte == ord("|"):
            equal("the answer to a separator alone", "NOK|Unknown command", link.recv(100).decode())
    nothing_more(link, "the answers to a split message")
    equal("the sales of a split message", 0, rows("id1='SPLIT'"))
    # ---- many messages in one packet are one
    equal("the answer to a hundred charges at once", "NOK|Amount too big",
          ask(link, "".join(f"C|MANY-{i}|1" for i in range(100))))
    equal("the answer to a hundred questions at once", "NOK|Not found",
          ask(link, "".join(f"S|GOOD-{i}" for i in range(100))))
    nothing_more(link, "the answers to many messages at once")
    equal("the sales of many messages at once", 0, rows("id1 LIKE 'MANY-%'"))
still_well("split and joined messages")

# ---- one that asks and never reads; the others are answered all the same
def waiting_to_be_read(link):
    """Bytes that the monitor has written and the client's machine does not take."""
    mine = link.getsockname()[1]
    with open(f"/proc/{pid}/net/tcp", encoding="ascii") as table:
        for line in table.readlines()[1:]:
            fields = line.split()
            if int(fields[1].split(":")[1], 16) == port and int(fields[2].split(":")[1], 16) == mine:
                return int(fields[4].split(":")[0], 16)
    return 0


answer = b"NOK|Unknown command"
before = count_in_log(answer)
deaf = connect(small=True)
with connect() as link:
    for asked in range(3000):
        say(deaf, "deaf|")
        time.sleep(0.001)
        if asked % 300 == 0:
            start = time.monotonic()
            equal("an answer beside one that never reads", "NOK|Not found", ask(link, "S|NOBODY"))
            check("an answer beside one that never reads takes its time", time.monotonic() - start < AT_ONCE_S)
check("the monitor's answers have not piled up", waiting_to_be_read(deaf) > 1000)
still = connect()
equal("an answer to a new client", "NOK|Not found", ask(still, "S|NOBODY"))
still.close()
# It changes its mind: all that was answered comes, and nothing is damaged.
expected = (count_in_log(answer) - before) * len(answer)
told = b""
while len(told) < expected:
    more = deaf.recv(1 << 20)
    check("the connection of one that reads late has ended", more)
    told += more
check("the answers read late are damaged", told == answer * (expected // len(answer)))
for _ in range(1000):
    say(deaf, "deaf|")
reset(deaf)
still_well("one that never reads")
