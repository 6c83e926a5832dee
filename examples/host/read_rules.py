#!/usr/bin/python3
"""read_rules.py FOLDER DATABASE RULE prints the description of the rule, without a window."""
import sys
import uuid
from ctypes import CFUNCTYPE, c_int32, c_void_p, cast, pointer, string_at

from rules_host import RULE_UI, Kit, call

I_RULE_READER = uuid.UUID("2e9c6a10-5d43-4b7b-8a60-1f0d7c35b204").bytes_le


def describe(kit, rule):
    def write(_, text, __):
        length = kit.server.SysStringLen(c_void_p(text))
        print(string_at(text, 2 * length).decode("utf-16-le"), end="")
        return 0

    # An IDescriptionSink: QueryInterface, AddRef, Release and Write.
    unused = CFUNCTYPE(c_int32, c_void_p)(lambda _: 1)
    used = CFUNCTYPE(c_int32, c_void_p, c_void_p, c_int32)(write)
    table = (c_void_p * 4)(*(cast(each, c_void_p) for each in (unused, unused, unused, used)))
    reader = kit.create(RULE_UI, I_RULE_READER)
    call(reader, 3)
    call(reader, 4, kit.text(rule), cast(pointer(pointer(table)), c_void_p))
    call(reader, 2)


if __name__ == "__main__":
    describe(Kit(*sys.argv[1:3]), sys.argv[3])
    print()
