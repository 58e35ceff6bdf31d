"""The library and the command on a terminal: what waits for a person, and that nothing in a deck's name commands it.

Usage: terminal_test.py LIBRARY NAS2ZDT
"""

import ctypes
import os
import pty
import re
import signal
import sys
import tempfile
import termios

library_path, command = sys.argv[1:]
library = ctypes.CDLL(library_path)
folder = os.fsencode(tempfile.mkdtemp())
ENTER = b"Press Enter to go on. "
PROMPT = b"NASTRAN deck: "
signal.alarm(60)  # a test that waits for what never comes fails

try:
    for end in os.openpty():
        os.close(end)
except OSError:  # a root without /dev/pts
    print("skipped: no terminals here")
    sys.exit(77)


class Terminal:
    """A process on a terminal of its own."""

    def __init__(self, run):
        self.shown = b""
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            modes = termios.tcgetattr(0)
            modes[3] &= ~termios.ECHO
            termios.tcsetattr(0, termios.TCSANOW, modes)
            run()
            os._exit(0)

    def read(self):
        try:
            piece = os.read(self.terminal, 1000)
        except OSError:  # the process has gone
            piece = b""
        self.shown += piece
        return piece

    def answer(self, question, text):
        """Waits for the question at the end of what is shown and types the text."""
        while not self.shown.endswith(question):
            assert self.read(), self.shown
        os.write(self.terminal, text)

    def end(self):
        """Gives all that was shown."""
        while self.read():
            pass
        assert os.waitpid(self.pid, 0)[1] == 0, self.shown
        os.close(self.terminal)
        plain = self.shown.replace(b"\r\n", b"\n")
        assert not re.search(rb"[\x00-\x09\x0b-\x1f\x7f-\x9f]", plain), plain
        return plain


def call():
    """Calls the library and tells the result and the line of input that it left."""
    result = library.ConvertFile()
    os.write(2, b"%d, " % result + os.read(0, 100))


def call_without_screen():
    os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
    os.write(2, b"ready\n")
    call()


deck = os.path.join(folder, b"d\x1b[2J\xc2\x9b\x9beck.dat")
with open(deck, "wb") as file:
    file.write(b"BEGIN BULK\nGRID,1\nENDDATA\n")

host = Terminal(call)
host.answer(ENTER, b"\n")
host.answer(PROMPT, b"no\x1b[2J.dat\n")
host.answer(PROMPT, deck + b"\n")
host.answer(ENTER, b"\nleft\n")
shown = host.end()
assert b"no?[2J.dat: " in shown and b"d?[2J??eck.dat\n" in shown, shown
assert shown.endswith(b"\n" + ENTER + b"0, left\n"), shown

host = Terminal(call)
host.answer(ENTER, b"\x04")  # the end of input is an answer too
host.answer(PROMPT, b"\nleft\n")
assert host.end().endswith(PROMPT + b"1, left\n")

host = Terminal(call_without_screen)  # who doesn't see a question isn't asked to answer it
host.answer(b"ready\r\n", deck + b"\nleft\n")
assert host.end() == b"ready\n0, left\n"

shown = Terminal(lambda: os.execv(command, [command, deck])).end()
assert b"d?[2J??eck.dat\n" in shown and ENTER not in shown, shown
print("1 passed, 0 failed")
