"""Prints the locale of each category: at the start, after a rule was read, after the editor was
shown. locale_host.py FOLDER DATABASE [LOCALE]
"""

import ctypes
import locale
import sys

from read_rules import describe
from rules_host import Kit

CATEGORIES = ("LC_CTYPE", "LC_NUMERIC", "LC_TIME", "LC_COLLATE", "LC_MONETARY", "LC_MESSAGES")
libc = ctypes.CDLL(None)
libc.setlocale.restype = ctypes.c_char_p


def report():
    print("LOCALE", *(f"{name}={libc.setlocale(getattr(locale, name), None).decode()}"
                      for name in CATEGORIES), flush=True)


libc.setlocale(locale.LC_ALL, sys.argv[3].encode())
kit = Kit(*sys.argv[1:3])
report()
describe(kit, "1")
print()
report()
print("result", kit.show_rules("1", ""), flush=True)
report()
