"""bashtyping.py HEX: types into an interactive bash with the script $SCRIPT, and prints its line.

HEX are the bytes to type. Control-G prints the line between two marks, as readline holds it.
"""

import os
import pty
import re
import select
import sys

RC = r"""
PS1=ready
bind 'set enable-bracketed-paste off'
. "$SCRIPT"
show() { printf '<<%s>>' "$READLINE_LINE"; }
bind -x '"\C-g": show'
"""


def read_until(terminal, pattern):
    seen = b""
    while not re.search(pattern, seen, re.S):
        if not select.select([terminal], [], [], 20)[0]:
            sys.exit("bash does not answer: %r" % seen)
        seen += os.read(terminal, 4096)
    return re.search(pattern, seen, re.S)


def main():
    open("rc", "w").write(RC)
    open("one-file", "w").close()
    child, terminal = pty.fork()
    if child == 0:
        os.environ["TERM"] = "dumb"
        os.execvp("bash", ["bash", "--noprofile", "--rcfile", "rc", "-i"])
    read_until(terminal, rb"ready")
    os.write(terminal, bytes.fromhex(sys.argv[1]))
    line = read_until(terminal, rb"<<(.*?)>>").group(1)
    os.write(terminal, b"\x15exit\n")
    os.waitpid(child, 0)
    print(line.decode())


main()
