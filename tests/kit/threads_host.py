"""A host that edits the rules on a thread, then on another one: threads_host.py FOLDER DATABASE"""

import sys
import threading

from rules_host import Kit

kit = Kit(*sys.argv[1:3])
for _ in range(2):
    thread = threading.Thread(target=lambda: print(
        "thread", threading.get_native_id(), "result", kit.show_rules("1", ""), flush=True))
    thread.start()
    thread.join()
