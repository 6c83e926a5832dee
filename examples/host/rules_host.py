#!/usr/bin/python3
"""rules_host.py FOLDER DATABASE USER RULE opens the rule editor; "" is a new rule.

FOLDER holds the libraries of the kit: pkg-config --variable=libdir kvexmessagerules
"""
import sys
import uuid
from ctypes import CDLL, CFUNCTYPE, POINTER, byref, c_int32, c_void_p, cast, pointer

UTILITY, ADDRESS_BOOK, CONFIGURATION, I_CONFIGURATION = (
    uuid.UUID(f"7b1f4e52-0c6a-4f0e-9d31-52a86e17c4{end}").bytes_le for end in ("02", "05", "07", "06"))
RULE_UI, I_RULE_UI = (
    uuid.UUID(f"2e9c6a10-5d43-4b7b-8a60-1f0d7c35b2{end}").bytes_le for end in ("01", "02"))


def call(this, index, *arguments):
    """Calls the function at `index` of the object's table: 2 is Release, 3 the first of its own."""
    table = cast(this, POINTER(POINTER(c_void_p))).contents
    return check(CFUNCTYPE(c_int32, c_void_p, *map(type, arguments))(table[index])(this, *arguments))


def check(result):
    if result < 0:
        raise OSError(f"0x{result & 0xFFFFFFFF:08X}")
    return result


class Kit:
    """The rule editor, with the utility object and the address book of the suite."""

    def __init__(self, folder, database, component=b"libKVEXMessageRules.so"):
        """Without a `component`, the registered one counts."""
        self.server = CDLL(f"{folder}/libKVEXClassServer.so")
        self.server.SysAllocUtf8.restype = c_void_p
        for served in (UTILITY, ADDRESS_BOOK, CONFIGURATION):
            check(self.server.CoLoadServer(b"libKVEXHostSuite.so", served))
        if component:
            check(self.server.CoLoadServer(component, RULE_UI))
        suite = self.create(CONFIGURATION, I_CONFIGURATION)
        call(suite, 3, self.text(database), c_void_p(), c_void_p())
        call(suite, 2)

    def text(self, string):
        """This short program frees no text."""
        return c_void_p(self.server.SysAllocUtf8(string.encode(), len(string.encode())))

    def create(self, served, interface):
        this = c_void_p()
        check(self.server.CoCreateInstance(served, None, interface, byref(this)))
        return this

    def show_rules(self, user, rule):
        """99: the user may have edited something. 1: no edit was noted. 0: an error, in the log."""
        rules, result = self.create(RULE_UI, I_RULE_UI), c_int32()
        call(rules, 3, self.text(user), self.text(rule), pointer(result))
        call(rules, 2)
        return result.value


if __name__ == "__main__":
    print("result:", Kit(*sys.argv[1:3]).show_rules(*sys.argv[3:5]))
