#!/usr/bin/python3
"""Times the editor beside the toolkit's bare text widget and two other editors, which need not be there, all of them
driven by the same X events on one virtual display, one after the other. `scripts/setup.sh bench` installs what it needs.

    bench/editors.py [FOLDER OF THE BUILD] [MEGABYTES ...]     (build/release; 0 1 10 50, 0 is a letter)

Each program opens a file by Ctrl+O, its path and Enter. What is timed:

open    from Enter to the moment when the middle of the text area looks for the first time as it does at the end
key     from a key's press to the report of the X server that a place larger than a caret was drawn in the text area;
        the first of 20 keys at that place, the median and the longest
resize  from the request for another width (ten steps) to the report that two thirds of the window have been drawn
memory  what the process holds with the file open and at rest
A dash: not within a minute, or never; one of the editors opens long lines for reading only.
"""
import os
import select
import shutil
import signal
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time

from Xlib import X, XK, Xatom, display, protocol
from Xlib.ext import damage, xtest

PATIENCE = 60
KEYS = 20
WIDTH, HEIGHT = 900, 640
TEXT_TOP, TEXT_BOTTOM, CARET = 130, HEIGHT - 50, 16  # what lies higher are bars, lower a status bar
LINE = "The old miller went down to the river, and it was near dusk."


class Screen:
    def __init__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp"],
                                       pass_fds=[write], stderr=subprocess.DEVNULL)
        self.name = ":" + os.read(read, 16).decode().strip()
        self.display = display.Display(self.name)
        self.root = self.display.screen().root
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=dict(os.environ, DISPLAY=self.name))
        self.wait(lambda: self.property(self.root, "_NET_SUPPORTING_WM_CHECK"))
        self.display.damage_query_version()

    def end(self):
        self.display.close()
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()

    def wait(self, look, patience=PATIENCE):
        end = time.monotonic() + patience
        while time.monotonic() < end:
            found = look()
            if found:
                return found
            time.sleep(0.01)
        raise TimeoutError

    def property(self, window, name):
        found = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        return list(found.value) if found else []

    def active(self):
        number = (self.property(self.root, "_NET_ACTIVE_WINDOW") or [0])[0]
        return number if number in self.property(self.root, "_NET_CLIENT_LIST") else 0

    def key(self, name, *modifiers):
        symbol = XK.string_to_keysym(name)
        code = self.display.keysym_to_keycode(symbol)
        held = [self.display.keysym_to_keycode(XK.string_to_keysym(modifier)) for modifier in modifiers]
        if self.display.keycode_to_keysym(code, 0) != symbol:
            held.append(self.display.keysym_to_keycode(XK.XK_Shift_L))
        for each in held + [code]:
            xtest.fake_input(self.display, X.KeyPress, each)
        for each in [code] + held[::-1]:
            xtest.fake_input(self.display, X.KeyRelease, each)
        self.display.flush()

    def type(self, text):
        for letter in text:
            self.key({"/": "slash", ".": "period", "_": "underscore", "-": "minus"}.get(letter, letter))

    def click(self, window, x, y, button):
        place = window.translate_coords(self.root, 0, 0)
        xtest.fake_input(self.display, X.MotionNotify, x=x - place.x, y=y - place.y)
        xtest.fake_input(self.display, X.ButtonPress, button)
        xtest.fake_input(self.display, X.ButtonRelease, button)
        self.display.sync()


class Program:
    asks_for_place = False  # whether its file dialog takes a path only behind Ctrl+L

    def __init__(self, screen, command, home, environment):
        self.screen, self.display = screen, screen.display
        folders = {name: os.path.join(home, name.split("_")[1].lower())
                   for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME")}
        os.chmod(home, 0o700)
        self.process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                        env=dict(PATH=os.environ["PATH"], LANG="C.UTF-8", HOME=home, XDG_RUNTIME_DIR=home,
                                                 DISPLAY=screen.name, SDL_AUDIODRIVER="dummy", **folders, **environment))
        self.window = self.display.create_resource_object("window", screen.wait(screen.active))
        self.damage = None
        self.rest()
        self.resize(WIDTH)
        self.rest()
        self.damage = self.window.damage_create(damage.DamageReportRawRectangles)
        self.rest()

    def end(self):
        self.process.kill()
        self.process.wait()
        self.screen.wait(lambda: not self.screen.active())

    def resize(self, width):
        self.window.configure(width=width, height=HEIGHT)
        self.display.flush()

    def work(self):
        with open(f"/proc/{self.process.pid}/stat") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return fields[0], fields[11], fields[12]

    def rest(self, quiet=0.4):
        """Waits until the program has slept for that long without using the processor."""
        since, last = time.monotonic(), None
        end = since + PATIENCE
        while time.monotonic() - since < quiet:
            now = self.work()
            if now != last or now[0] != "S":
                since, last = time.monotonic(), now
            if since > end:
                raise TimeoutError
            time.sleep(0.02)
        self.reports()

    def reports(self):
        self.display.sync()
        found = []
        while self.display.pending_events():
            event = self.display.next_event()
            if self.damage and event.type == self.display.extension_event.DamageNotify:
                found.append(event.area)
        return found

    def until_drawn(self, act, is_all):
        """Milliseconds from an act until what was drawn since, rectangle by rectangle, is all of it."""
        self.reports()
        drawn = []
        start = time.monotonic()
        act()
        while time.monotonic() < start + PATIENCE:
            select.select([self.display.fileno()], [], [], 0.5)
            now = time.monotonic()
            while self.display.pending_events():
                event = self.display.next_event()
                if event.type == self.display.extension_event.DamageNotify:
                    drawn.append(event.area)
            if is_all(drawn):
                return (now - start) * 1000
        raise TimeoutError

    def picture(self):
        return self.window.get_image(200, 250, 300, 100, X.ZPixmap, 0xFFFFFF).data

    def open(self, path):
        self.screen.key("o", "Control_L")
        self.screen.wait(lambda: self.screen.active() not in (0, self.window.id))
        self.rest()
        if self.asks_for_place:
            self.screen.key("l", "Control_L")
            self.rest()
        self.screen.type(path)
        self.rest()
        self.reports()
        looks, quiet = [], 0
        start = time.monotonic()
        self.screen.key("Return")
        before = self.work()
        while quiet < 25:
            if time.monotonic() > start + PATIENCE:
                raise TimeoutError
            select.select([self.display.fileno()], [], [], 0.02)
            if self.reports() or not looks:
                looks.append((time.monotonic(), self.picture()))
            now = self.work()
            quiet = quiet + 1 if now == before and now[0] == "S" else 0
            before = now
        if self.screen.active() != self.window.id:
            raise TimeoutError
        last = self.picture()
        return next(moment for moment, look in looks if look == last) * 1000 - start * 1000

    def go(self, place):
        if place == "middle":
            self.screen.click(self.window, WIDTH - 6, HEIGHT // 2, 2)  # on the scroll bar, which jumps there
            self.rest()
            self.screen.click(self.window, 300, HEIGHT // 2, 1)
        else:
            self.screen.key({"start": "Home", "end": "End"}[place], "Control_L")
            self.rest()
            for _ in range(10):
                self.screen.key({"start": "Down", "end": "Up"}[place])
        self.rest()

    def keys(self):
        def is_drawn(drawn):
            return any(area.width > CARET and area.y + area.height > TEXT_TOP and area.y < TEXT_BOTTOM for area in drawn)

        times = []
        before = self.window.get_image(0, TEXT_TOP, WIDTH, TEXT_BOTTOM - TEXT_TOP, X.ZPixmap, 0xFFFFFF).data
        for _ in range(KEYS):
            times.append(self.until_drawn(lambda: self.screen.key("x"), is_drawn))
            self.rest(0.05)
        if before == self.window.get_image(0, TEXT_TOP, WIDTH, TEXT_BOTTOM - TEXT_TOP, X.ZPixmap, 0xFFFFFF).data:
            raise RuntimeError("the keys went elsewhere")
        return times

    def resizes(self):
        times = []
        for step in range(10):
            width = WIDTH - 20 * (step + 1)
            is_all = lambda drawn: sum(area.width * area.height for area in drawn) > width * HEIGHT * 2 / 3
            times.append(self.until_drawn(lambda: self.resize(width), is_all))
            self.rest(0.1)
        return times

    def memory(self):
        with open(f"/proc/{self.process.pid}/statm") as file:
            return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") / (1 << 20)


def prepare_own(screen, command, home):
    """The first start makes the store; what greets at a first start is switched off in it."""
    program = Program(screen, command, home, {})
    program.process.send_signal(signal.SIGTERM)
    program.process.wait()
    store = sqlite3.connect(os.path.join(home, "data/quillshift/settings.db"))
    store.execute("update value set data = cast(case when type = 1 then '0' else 0 end as blob)"
                  " where name in ('FirstRun', 'Welcome', 'WorkBegin')")
    store.commit()
    store.close()


def prepare_mousepad(home):
    """Its lines are wrapped as those of the others are."""
    folder = os.path.join(home, "config/glib-2.0/settings")
    os.makedirs(folder)
    with open(os.path.join(folder, "keyfile"), "w") as file:
        file.write("[org/xfce/mousepad/preferences/view]\nword-wrap=true\n")


def text_of(megabytes, is_line, has_blanks):
    size = int(megabytes * (1 << 20)) or 4096
    if not is_line:
        return (LINE + "\n") * (size // (len(LINE) + 1))
    line = LINE + " " if has_blanks else LINE.replace(" ", "x")
    return "A letter.\n" * 3 + (line * (size // len(line) + 1))[:size] + "\nThe end.\n"


def measure(screen, make, path, places, resizes):
    """The figures of one program over one file, as columns."""
    home = tempfile.mkdtemp()
    columns = {}
    program = None
    try:
        program = make(home)
        columns["open"] = "-"
        columns["open"] = f"{program.open(path):.0f}"
        program.rest(1)
        columns["memory"] = f"{program.memory():.0f}"
        for place in places:
            columns[place] = "-"
            program.go(place)
            times = program.keys()
            columns[place] = f"{times[0]:.1f}/{statistics.median(times):.1f}/{max(times):.1f}"
        if resizes:
            columns["resize"] = "-"
            times = program.resizes()
            columns["resize"] = f"{statistics.median(times):.0f}/{max(times):.0f}"
    except TimeoutError:
        pass
    finally:
        if program:
            program.end()
        shutil.rmtree(home, ignore_errors=True)
    return columns


def programs(screen, build):
    own = [os.path.join(build, "quillshift")]

    def make_own(home):
        prepare_own(screen, own, home)
        return Program(screen, own, home, {})

    def make_mousepad(home):
        prepare_mousepad(home)
        program = Program(screen, ["mousepad", "--disable-server"], home,
                          {"GSETTINGS_BACKEND": "keyfile", "GTK_OVERLAY_SCROLLING": "0"})
        program.asks_for_place = True
        return program

    yield "this editor", make_own
    yield "bare widget", lambda home: Program(screen, [os.path.join(build, "bench/bare_editor")], home, {})
    if shutil.which("featherpad"):
        yield "featherpad", lambda home: Program(screen, ["featherpad", "--standalone"], home, {})
    if shutil.which("mousepad"):
        yield "mousepad", make_mousepad


def main():
    build = sys.argv[1] if sys.argv[1:] else "build/release"
    sizes = [float(size) for size in sys.argv[2:]] or [0, 1, 10, 50]
    places = ["start", "middle", "end"]
    cases = [(f"{size:g} MB" if size else "a letter", (size, False, False), places if size else places[:1], size <= 10)
             for size in sizes]
    if not sys.argv[2:]:
        cases += [("a line of 1 MB", (1, True, True), ["start"], False),
                  ("without blanks", (1, True, False), ["start"], False)]
    screen = Screen()
    folder = tempfile.mkdtemp()
    try:
        print("milliseconds (keys: first/median/longest, resize: median/longest) and megabytes")
        print(f"{'':15}{'':13}" + "".join(f"{name:>22}" for name in ("open", "memory", *places, "resize")))
        for name, shape, where, resizes in cases:
            path = os.path.join(folder, "text.txt")
            with open(path, "w") as file:
                file.write(text_of(*shape))
            for title, make in programs(screen, build):
                columns = measure(screen, make, path, where, resizes)
                print(f"{name:15}{title:13}" + "".join(f"{columns.get(column, ''):>22}" for column in
                                                         ("open", "memory", *places, "resize")), flush=True)
    finally:
        shutil.rmtree(folder)
        screen.end()


main()
