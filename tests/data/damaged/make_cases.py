#!/usr/bin/env python3
"""Writes the small damaged archives of this folder, one folder per case (run it here).

Each case is described in cases.tsv: what is opened, how many records are read, the message
shown and the file whose damage refuses every write ("-" when writes go ahead).
"""
import math
import os
import shutil
import struct

HERE = os.path.dirname(os.path.abspath(__file__))


def text(s, width):
    b = s.encode("cp1252")[:width]
    return b + b" " * (width - len(b))


def account(n, code, name="Conto"):
    return (struct.pack("<h", n) + bytes(2) + text(code, 10) + bytes(5) + text("Banche", 25)
            + text(name, 45) + text("", 45) + text("", 5) + text("", 25) + text("", 2)
            + text("", 15) + bytes(1) + text("Privati", 25))


def causale(n, code, description, sign):
    return struct.pack("<h", n) + text(code, 5) + text(description, 25) + text(sign, 1) \
        + text("N", 1) + bytes(12)


def movement(n, amount, sign="A", date="01/11/2026"):
    return (struct.pack("<h", n) + text(date, 10) + text("VER", 5) + struct.pack("<d", amount)
            + text("", 8) + text("Movimento", 30) + text(sign, 1) + text("N", 1) + text("", 15)
            + text("", 2) + text("", 5))


def count(n):
    return struct.pack("<h", n)


def category(n, code, name, group):
    return struct.pack("<h", n) + text(code, 5) + text(name, 25) + text("N", 1) + text(group, 25)


SOUND = {
    "Tipo.con": category(1, "BA", "Banche", "Privati"),
    "RecTipo.con": count(1),
    "CONTI.CON": account(1, "CC1") + account(2, "CC2"),
    "RecConti.CON": count(2),
    "Causali.CAP": causale(1, "VER", "Versamento", "A"),
    "RecCausa.CAP": count(1),
}

CASES = {
    "conti-contatore-negativo": {"RecConti.CON": count(-1)},
    "conti-oltre-capienza": {"RecConti.CON": count(1001)},
    "conti-numeri-sbagliati": {"CONTI.CON": account(1, "CC1") + account(5, "CC2")},
    "conti-tagliato": {"RecConti.CON": count(3),
                       "CONTI.CON": account(1, "CC1") + account(2, "CC2") + account(3, "CC3")[:100]},
    "causali-numeri-doppi": {"Causali.CAP": causale(1, "VER", "Versamento", "A")
                             + causale(1, "PRE", "Prelievo", "D"), "RecCausa.CAP": count(2)},
    "movimenti-contatore-negativo": {"CC1.MOC": movement(1, 10) + movement(2, 20),
                                     "CC1.MOR": count(-1)},
    "movimenti-oltre-capienza": {"CC1.MOC": movement(1, 10) + movement(2, 20),
                                 "CC1.MOR": count(20000)},
    "movimenti-numeri-doppi": {"CC1.MOC": movement(1, 10) + movement(1, 20) + movement(3, 30),
                               "CC1.MOR": count(3)},
    "movimenti-tagliati": {"CC1.MOC": movement(1, 10) + movement(2, 20), "CC1.MOR": count(5)},
    "movimenti-importo-non-numerico": {"CC1.MOC": movement(1, 5) + movement(2, math.nan),
                                       "CC1.MOR": count(2)},
    "movimenti-due-grafie": {"CC1.MOC": movement(1, 10), "CC1.MOR": count(1),
                             "cc1.moc": movement(1, 99)},
}

for case, files in CASES.items():
    folder = os.path.join(HERE, case)
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    for name, data in {**SOUND, **files}.items():
        with open(os.path.join(folder, name), "wb") as f:
            f.write(data)
