#!/usr/bin/python3
"""Walks at random through the windows of the program by events of a real X server.

Usage: checks/walk_x.py PROGRAM SECONDS SEED, under a display with a window manager, as checks/walk --x starts it.

Clicks and types whatever comes to mind, and has the window manager raise, minimise, move, close and resize windows. The
program stays alive, no box that waits is behind the window that it shuts, and in the end the program closes by the
control of its main window. It prints what it did, and fails with the seed and the last events of a finding.
"""
import os
import random
import subprocess
import sys
import time

from Xlib import X, XK, Xatom, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

MAIN = 'VOR_KEL'
KEYS = ['Return', 'Escape', 'Tab', 'space', 'Up', 'Down', 'Left', 'Right', 'Home', 'End', 'BackSpace', 'Menu', 'F2']
LETTERS = 'abcdefghijklmnopqrstuvwxyz0123456789'
CLOSING = 30  # seconds in which the program must close
GONE = (error.BadWindow, error.BadDrawable, error.BadMatch)  # raised for a window that has just been closed


class Finding(Exception):
    pass


class Screen:
    """The windows of the program as the window manager sees them."""

    def __init__(self):
        self.display = display.Display()
        self.root = self.display.screen().root

    def atom(self, name):
        return self.display.intern_atom(name)

    def values(self, window, name):
        found = window.get_full_property(self.atom(name), X.AnyPropertyType)
        return list(found.value) if found is not None else []

    def windows(self):
        """From the lowest to the highest; a window may vanish at any time."""
        return [self.display.create_resource_object('window', number)
                for number in self.values(self.root, '_NET_CLIENT_LIST_STACKING')]

    def title(self, window):
        found = window.get_full_property(self.atom('_NET_WM_NAME'), X.AnyPropertyType)
        return found.value.decode(errors='replace') if found is not None else ''

    def is_minimised(self, window):
        return self.atom('_NET_WM_STATE_HIDDEN') in self.values(window, '_NET_WM_STATE')

    def is_modal(self, window):
        return self.atom('_NET_WM_STATE_MODAL') in self.values(window, '_NET_WM_STATE')

    def ask(self, window, kind, *data):
        """Asks the window manager for something."""
        message = event.ClientMessage(window=window, client_type=self.atom(kind),
                                      data=(32, (list(data) + [0] * 5)[:5]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def key(self, name, modifier=None):
        code = self.display.keysym_to_keycode(XK.string_to_keysym(name))
        shift = self.display.keysym_to_keycode(XK.string_to_keysym(modifier)) if modifier else None
        if shift:
            xtest.fake_input(self.display, X.KeyPress, shift)
        xtest.fake_input(self.display, X.KeyPress, code)
        xtest.fake_input(self.display, X.KeyRelease, code)
        if shift:
            xtest.fake_input(self.display, X.KeyRelease, shift)
        self.display.flush()

    def type(self, text):
        for sign in text:
            name = {'/': 'slash', '.': 'period', '_': 'underscore'}.get(sign, sign)
            self.key(name, 'Shift_L' if sign in '/_' or sign.isupper() else None)

    def click(self, window):
        size = window.get_geometry()
        place = window.translate_coords(self.root, 0, 0)
        # The server tells where the root is, seen from the window.
        x = -place.x + random.randrange(max(1, size.width))
        y = -place.y + random.randrange(max(1, size.height))
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(self.display, X.ButtonPress, 1)
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        self.display.flush()


class Walk:
    def __init__(self, program, seed):
        random.seed(seed)
        self.screen = Screen()
        self.program = [program]
        self.events = self.starts = self.boxes = 0
        self.last = []
        self.start()

    def start(self):
        self.starts += 1
        self.running = subprocess.Popen(self.program)
        for _ in range(300):
            time.sleep(0.1)
            if self.mine():
                return
        raise Finding('the program shows no window')

    def mine(self):
        found = []
        for window in self.screen.windows():
            try:
                if self.screen.title(window).startswith(MAIN):
                    found.append(window)
            except error.BadWindow:
                pass
        return found

    def note(self, what):
        self.events += 1
        self.last = (self.last + [what])[-40:]

    def step(self):
        windows = self.mine()
        if not windows:
            return
        modal = [window for window in windows if self.screen.is_modal(window)]
        box = modal[-1] if modal else None
        title = self.screen.title(box) if box else ''
        if box and 'File' in title and random.random() < 0.6:
            return self.answer_file(title)
        window = random.choice(windows)
        what = random.choices(['key', 'click', 'menu', 'raise', 'lower', 'minimise', 'move', 'close'],
                              [30, 25, 15, 12, 5, 4, 5, 4])[0]
        self.note(f'{what} {self.screen.title(window)}')
        getattr(self, what + '_')(window)

    def answer_file(self, title):
        """Only files of its own folder are named: nobody knows where random letters lead."""
        name = random.choice(sorted(os.listdir('.')) + ['nuovo.dat', 'manca.dat', 'stampa.pdf'])
        self.note(f'file {name} {title}')
        if random.random() < 0.3:
            return self.screen.key('Escape')
        self.screen.key('a', 'Control_L')
        self.screen.type(os.path.join(os.getcwd(), name))
        self.screen.key('Return')

    def key_(self, _):
        if random.random() < 0.3:
            return self.screen.type(random.choice(LETTERS))
        self.screen.key(random.choice(KEYS))

    def click_(self, window):
        if 'File' not in self.screen.title(window):
            self.screen.click(window)

    def menu_(self, _):
        self.screen.key(random.choice('dfags'), 'Alt_L')
        for _ in range(random.randrange(8)):
            self.screen.key('Down')
        self.screen.key('Return')

    def raise_(self, window):
        if random.random() < 0.5:
            return self.screen.ask(window, '_NET_ACTIVE_WINDOW', 2)
        window.configure(stack_mode=X.Above)

    def lower_(self, window):
        window.configure(stack_mode=X.Below)

    def minimise_(self, window):
        self.screen.ask(window, 'WM_CHANGE_STATE', 3)

    def move_(self, window):
        size = random.choice([(20, 20), (300, 200), (1500, 1200)])
        window.configure(x=random.randrange(-200, 900), y=random.randrange(-50, 700), width=size[0], height=size[1])

    def close_(self, window):
        # The program is closed seldom: to start it again takes its time.
        if self.screen.title(window) != MAIN or random.random() < 0.1:
            self.screen.ask(window, '_NET_CLOSE_WINDOW')

    def check(self):
        code = self.running.poll()
        if code is not None:
            if code != 0:
                raise Finding(f'the program has ended with {code}')
            self.start()
        hidden = self.stays_hidden()
        if hidden and 'minimised' in hidden[1]:
            # Whoever clicks at the window that is shut gets the box that it waits for.
            self.screen.ask(hidden[0], '_NET_ACTIVE_WINDOW', 2)
            time.sleep(0.2)
            self.screen.click(hidden[0])
            hidden = self.stays_hidden()
        if hidden:
            raise Finding(hidden[1])

    def stays_hidden(self):
        """The window manager may still be at it; what stays hidden for some seconds counts."""
        for _ in range(30):
            hidden = self.hidden_box()
            if not hidden:
                return None
            time.sleep(0.1)
        return hidden

    def hidden_box(self):
        """A box that waits behind the window that it belongs to, or minimised, and that window."""
        heights = {window.id: height for height, window in enumerate(self.screen.windows())}
        for window in self.mine():
            if not self.screen.is_modal(window) or window.id not in heights:
                continue
            self.boxes += 1
            number = window.get_full_property(Xatom.WM_TRANSIENT_FOR, X.AnyPropertyType)
            if number is None or number.value[0] not in heights:
                continue
            owner = self.screen.display.create_resource_object('window', number.value[0])
            if heights[window.id] < heights[owner.id]:
                return owner, f'"{self.screen.title(window)}" waits behind "{self.screen.title(owner)}"'
            if self.screen.is_minimised(window) and not self.screen.is_minimised(owner):
                return owner, f'"{self.screen.title(window)}" waits minimised above "{self.screen.title(owner)}"'
        return None

    def close(self):
        """What waits is given up, then the main window is closed by its control."""
        began = time.time()
        while self.running.poll() is None:
            if time.time() - began > CLOSING:
                raise Finding('the program does not close: ' + ', '.join(map(self.screen.title, self.mine())))
            try:
                self.give_up()
            except GONE:
                pass
            time.sleep(0.3)
        if self.running.returncode != 0:
            raise Finding(f'the program has closed with {self.running.returncode}')

    def give_up(self):
        windows = self.mine()
        if not windows:
            return
        top = ([window for window in windows if self.screen.is_modal(window)] or windows)[-1]
        self.screen.ask(top, '_NET_ACTIVE_WINDOW', 2)
        time.sleep(0.2)
        self.screen.key('Escape')
        self.screen.ask(top, '_NET_CLOSE_WINDOW')
        time.sleep(0.2)
        if self.screen.is_modal(top):
            self.screen.key('Return')  # a question wants an answer

    def run(self, seconds):
        end = time.time() + seconds
        while time.time() < end:
            try:
                self.step()
                time.sleep(0.05)
                self.check()
            except GONE:
                pass
        self.close()


def main():
    seconds, seed = float(sys.argv[2]), int(sys.argv[3])
    walk = Walk(sys.argv[1], seed)
    try:
        walk.run(seconds)
    except Finding as finding:
        print(f'Finding: seed {seed}, event {walk.events}: {finding}', *walk.last, sep='\n  ')
        walk.running.kill()
        sys.exit(1)
    print(f'walk by X: {walk.events} events, seed {seed}, {walk.starts} starts, {walk.boxes} looks at boxes, no finding')


main()
