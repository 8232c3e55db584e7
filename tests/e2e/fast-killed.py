# The clients of one round of fast-killed.sh: each sends a charge, waits for its answer, sends the
# next; at a random moment the monitor is killed with whatever is under way.
#
#   fast-killed.py ADDRESS PORT PID ROUND SEED LONGEST_MS < AGAIN > NEWS
#
# AGAIN: the charges that former rounds have left without an answer, "ID queued" or "ID missing";
# they are sent first. NEWS: "ID added", "ID exists" or "ID unanswered"; the last line is "=" and the
# number of charges under way at the kill. PID 0: nobody is killed, and only AGAIN is sent.
import os
import random
import signal
import socket
import sys
import threading
import time

address, port, pid = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
round_number, seed, longest_ms = (int(a) for a in sys.argv[4:7])
CLIENTS = 8
LIMIT_S = 20
AMOUNTS = (500, 1000, 2000, 0)

again = [line.split() for line in sys.stdin.read().splitlines()]
news = {identifier: "unanswered" for identifier, _ in again}
faults = []
lock = threading.Lock()
linked = threading.Event()
killed = threading.Event()


def connect():
    end = time.monotonic() + LIMIT_S
    while not killed.is_set() and time.monotonic() < end:
        try:
            link = socket.create_connection((address, port), timeout=LIMIT_S)
            link.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            return link
        except ConnectionError:
            time.sleep(0.005)
    return None


def charges(number):
    for identifier, state in again[number::CLIENTS]:
        # What had not been stored before the kill is new, what had been is known.
        yield identifier, "OK|Added" if state == "missing" else "NOK|Already exists"
    count = 0
    while pid and not killed.is_set():
        count += 1
        yield f"R{round_number}-{number}-{count}", "OK|Added"


def work(number):
    link = connect()
    if link is None:
        return
    linked.set()
    for count, (identifier, expected) in enumerate(charges(number)):
        with lock:
            news[identifier] = "sent"
        try:
            link.sendall(f"C|{identifier}|{AMOUNTS[count % len(AMOUNTS)]}|A|{number}".encode())
            answer = link.recv(1024).decode("cp1252")
        except ConnectionError:
            return
        except TimeoutError:
            faults.append(f"{identifier}: neither an answer nor the end of the connection")
            return
        if not answer:
            return
        with lock:
            if answer != expected:
                faults.append(f"{identifier}: the answer is {answer}, not {expected}")
            news[identifier] = "added" if answer == "OK|Added" else "exists"


clients = [threading.Thread(target=work, args=(i,)) for i in range(CLIENTS)]
for client in clients:
    client.start()
if not linked.wait(LIMIT_S):
    faults.append("no connection")
under_way = 0
if pid:
    time.sleep(random.Random(seed).uniform(0, longest_ms / 1000))
    with lock:
        under_way = list(news.values()).count("sent")
        os.kill(pid, signal.SIGKILL)
    killed.set()
for client in clients:
    client.join()
for identifier, state in news.items():
    print(identifier, "unanswered" if state == "sent" else state)
print("=", under_way)
if faults:
    sys.exit("\n".join(faults))
