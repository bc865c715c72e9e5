# The interactive session of the quillon program driven through a pseudo-terminal: the opening
# line, results, a session command, Tab completion, Ctrl-C abandoning a line, and the history
# file written on leaving. Usage: session_in_terminal.py PROGRAM WORK_DIR
import os, pty, select, sys, time

program, work = sys.argv[1], sys.argv[2]
home = os.path.join(work, "session_home")
os.makedirs(home, exist_ok=True)
history = os.path.join(home, ".quillon_history")
if os.path.exists(history):
    os.remove(history)

pid, fd = pty.fork()
if pid == 0:
    os.environ.update(HOME=home, TERM="dumb", INPUTRC="/dev/null")
    os.execv(program, [program])

seen = b""

def read_until(marker, timeout=10.0):
    global seen
    end = time.time() + timeout
    while marker not in seen:
        if time.time() > end:
            sys.exit("waited for %r; got %r" % (marker, seen))
        if select.select([fd], [], [], 0.1)[0]:
            try:
                seen += os.read(fd, 4096)
            except OSError:
                break

def send(text, marker):
    global seen
    seen = b""
    os.write(fd, text)
    read_until(marker)

read_until(b"quillon> ")
if b"Ctrl-D" not in seen:
    sys.exit("no opening line: %r" % seen)
send(b"2*x + 3*x\n", b"5*x")
send(b":mode 0x20003\n", b"quillon> ")
send(b"(a+b)^2\n", b"a^2+2*a*b+b^2")
send(b"@expandt\t", b"@expandtime")  # a catalogue name
send(b"\x03", b"quillon> ")           # Ctrl-C drops the line
send(b"myvariable + 1\n", b"1+myvariable")
send(b"myvar\t", b"myvariable")       # a symbol seen before
send(b"\x03", b"quillon> ")
send(b"7\n", b"7")
if b"myvariable7" in seen or b"expandtime" in seen:
    sys.exit("an abandoned line was kept: %r" % seen)
send(b"1+\n", b"syntax error")
send(b"quit\n", b"")
os.waitpid(pid, 0)
with open(history) as f:
    lines = f.read().splitlines()
if "2*x + 3*x" not in lines or "1+" not in lines:
    sys.exit("history not written: %r" % lines)
