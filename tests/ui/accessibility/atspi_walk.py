#!/usr/bin/python3
"""Reads every window of lumacfg as a screen reader does, over AT-SPI, in each language and at
twice the scale.

Each case starts the built program on a fresh copy of the demo station, with the window of the
case open (the main window, or the one a button opens; the logon window of an interactive start)
and held open for the walk. In English it waits until the window's accessible tree shows the
case's sample names, and fails on a sample name missing and on a list that does not say its
chosen entry as its text; in German, in Japanese and at twice the scale it waits until the
window shows as many controls as in English. In every condition it fails on any control that
takes the focus but has no name, on two controls of one role with one name in one window, and
on a label named by its frame's title (Qt's name for a label that shows nothing).
Only what is shown counts: a hidden widget is reported without the "showing" state, and screen
readers pass over it, so the walk does too.

    atspi_walk.py LUMACFG LUMACFG_CLI DEMO_STATION [CASE...]

Runs under an X server (DISPLAY) inside a private D-Bus session (dbus-run-session), which starts
the AT-SPI bus on the first request for it.
"""
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import pyatspi

PATIENCE_S = 90  # the slowest build (sanitizers) on a busy machine
POLL_S = 0.25
HOLD_S = "600"  # the program ends by itself at the latest after this


class Case:
    def __init__(self, name, samples, hardware=1, settings=(), click=None, station="demo",
                 descriptions=(), entries=(), walk_tray=False, interactive=False):
        self.name = name
        # Names (regular expressions) some shown object must have; (role, name) for one of a role.
        self.samples = samples
        self.hardware = hardware  # the registry's hardware model: 1 GPIB, 2 LAN
        self.settings = list(settings)  # `lumacfg-cli set` arguments applied first
        self.click = click  # the button path that opens the window
        self.station = station  # "demo", "unreadable" (a message box) or "none" (first start)
        self.descriptions = descriptions  # (name, description) pairs, both regular expressions
        self.entries = entries  # (list name, the chosen entry it says) pairs
        self.walk_tray = walk_tray  # the tray picture takes the focus and Right reaches position 2
        self.interactive = interactive  # started as from the menu: no option, so it logs on


# Each window is read in each language (LANGUAGE, its locale, and Qt's scale), English at twice
# the scale too; the sample names are the English ones, and in every other condition the window
# must show the same controls, each named and none twice.
CONDITIONS = [("en", "en_US.UTF-8", "1"), ("de", "de_DE.UTF-8", "1"), ("ja", "ja_JP.UTF-8", "1"),
              ("en", "en_US.UTF-8", "2")]
SETUP_BUTTONS = [("push button", "Instrument type setup"), ("push button", "Autosampler setup")]
# The entries of a list or a table are its content, not controls of the window: several may
# read alike ("Folder"), and an empty cell has no name.
ENTRY_ROLES = {"list item", "table cell", "tree item"}
CASES = [
    Case("main window, GPIB",
         [("text", "ICP-MS Address"), ("combo box", "Type"), ("combo box", "Autosampler")]
         + SETUP_BUTTONS + [("text", "Prohibited mass %d" % i) for i in range(1, 11)],
         entries=[("Type", "Peristaltic Pump"), ("Autosampler", "None")]),
    Case("main window, LAN", ["IP address, part %d of 4" % i for i in range(1, 5)], hardware=2),
    Case("Miscellaneous", [("text", "Flow Rate"), ("check box", "Sample Pump")], hardware=2,
         click="Cd_Misc"),
    Case("file selection", [("combo box", "Look in:"), ("combo box", "Files of type:"), "Cancel"],
         hardware=2, click="Cd_Browse"),
    Case("wait window", [("progress bar", "Waiting")], hardware=2, click="Cd_Tlbar"),
    Case("ASX500",
         [("combo box", "Tray Type"), ("combo box", "Rack ID 9"),
          ("image", "Tray picture, Position 1 of \\d+: .+")], settings=["ALS_TYPE=1"],
         click="Cd_AutoSet",
         descriptions=[("Tray picture.*", "(?s)Tray .+\\nPosition 1 of \\d+: .+")],
         walk_tray=True),
    Case("ASX", [("combo box", "COM Port for ALS"), ("combo box", "Rack ID 4")],
         settings=["ALS_TYPE=2"], click="Cd_AutoSet"),
    Case("VAS", [("combo box", "Sample Tray"), ("text", "Rinse Port")],
         settings=["ALS_TYPE=5", "SAMPLE_DEPTH=40"], click="Cd_AutoSet"),
    Case("Custom Trays", [("list", "Trays"), ("combo box", "DEFRACK1 \\(a rack\\)")],
         settings=["ALS_TYPE=1"], click="Cd_AutoSet/btnConfigTray"),
    Case("Custom Racks", [("list", "Racks"), ("push button", "New"), ("image", "Tray picture.*")],
         settings=["ALS_TYPE=1"],
         click="Cd_AutoSet/btnConfigRack"),
    Case("first-start window", [("text", "Data system folder"), ("push button", "Browse...")],
         station="none"),
    Case("message box", ["OK", ".*cannot read .*lumagen\\.ist.*"], station="unreadable"),
    # The demo station has "Security" on: an interactive start asks who is there first.
    Case("logon window", [("text", "User name"), "Password", ("push button", "OK"),
                          ("push button", "Cancel")], interactive=True),
]


def station_environment(case, condition, lumacfg_cli, demo, work):
    """A fresh station for the case; the program's environment for it, in the condition."""
    language, locale, scale = condition
    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_ACCESSIBILITY="1",
               QT_QPA_PLATFORM="xcb", LUMACFG_CLI=lumacfg_cli, LANGUAGE=language, LANG=locale,
               QT_SCALE_FACTOR=scale)
    for variable in ("LC_ALL", "LC_MESSAGES", "LUMACFG_LOGON"):
        env.pop(variable, None)
    station = tempfile.mkdtemp(dir=work)
    if case.station == "none":
        env.pop("LUMACFG_PROGRAM_DIR", None)
        env["LUMACFG_REGISTRY"] = os.path.join(station, "no-store", "registry.reg")
        return env
    shutil.copytree(demo, station, dirs_exist_ok=True)
    registry = os.path.join(station, "registry.reg")
    with open(registry, encoding="latin-1") as file:
        text = re.sub(r'"HardWare"=dword:[0-9a-f]*', '"HardWare"=dword:%08x' % case.hardware,
                      file.read())
    with open(registry, "w", encoding="latin-1") as file:
        file.write(text)
    env.update(LUMACFG_PROGRAM_DIR=os.path.join(station, "LUMAEXE"), LUMACFG_REGISTRY=registry,
               LUMACFG_AUDIT_LOG=os.path.join(station, "audit.log"), LUMACFG_LOCK_DIR=station)
    if case.settings:
        subprocess.run([lumacfg_cli, "set"] + case.settings, env=env, check=True,
                       stdout=subprocess.DEVNULL)
    if case.station == "unreadable":
        os.makedirs(os.path.join(station, "LUMAEXE", "lumagen.ist"), exist_ok=True)
    return env


def application_of(pid):
    desktop = pyatspi.Registry.getDesktop(0)
    for app in desktop:
        if app is not None and app.get_process_id() == pid:
            return app
    return None


def shown(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def walk(node, frame=""):
    """Every object under node that is shown, node first, each with the title of the frame (a
    panel) it stands in."""
    yield node, frame
    if node.getRole() == pyatspi.ROLE_PANEL:
        frame = node.name or frame
    for child in node:
        if child is not None and shown(child):
            yield from walk(child, frame)


def entry_of(node):
    """The chosen entry a list says (its text), "" for anything else."""
    if node.getRole() != pyatspi.ROLE_COMBO_BOX:
        return ""
    try:
        return node.queryText().getText(0, -1)
    except NotImplementedError:
        return ""


def read_windows(app):
    """For each shown window: a list of (role, name, description, focusable, entry, frame) of
    what it shows."""
    windows = []
    for window in app:
        if window is None or not shown(window):
            continue
        windows.append([(o.getRoleName(), o.name or "", o.description or "",
                         o.getState().contains(pyatspi.STATE_FOCUSABLE), entry_of(o), frame)
                        for o, frame in walk(window)])
    return windows


def sample_faults(case, windows):
    faults = []
    named = [(role, name) for window in windows for (role, name, *_) in window]
    for sample in case.samples:
        role, pattern = sample if isinstance(sample, tuple) else (None, sample)
        if not any(re.fullmatch(pattern, name) and role in (None, r) for r, name in named):
            faults.append("no %s named %r" % (role or "object", pattern))
    for sample_name, sample_description in case.descriptions:
        if not any(re.fullmatch(sample_name, name) and re.fullmatch(sample_description, text)
                   for window in windows for (_, name, text, *_) in window):
            faults.append("no object %r described as %r" % (sample_name, sample_description))
    for list_name, entry in case.entries:
        said = [e for window in windows for (role, name, _, _, e, _) in window
                if role == "combo box" and name == list_name]
        if said != [entry]:
            faults.append("the list %r says %r, not %r" % (list_name, said, entry))
    return faults


def controls(window):
    """The window's controls: what takes the focus, the entries of lists and tables left out."""
    return [(role, name) for role, name, _, focusable, *_ in window
            if focusable and role not in ENTRY_ROLES]


def shape_of(windows):
    """How many controls each window shows, whatever their names."""
    return sorted(len(controls(window)) for window in windows)


def naming_faults(windows):
    faults = []
    for window in windows:
        seen = set()
        for role, name in controls(window):
            if not name.strip():
                faults.append("a %s takes the focus but has no name" % role)
            elif (role, name) in seen:
                faults.append("two of role %s are named %r" % (role, name))
            seen.add((role, name))
        faults += ["a label in the frame %r is named after the frame" % frame
                   for role, name, _, _, _, frame in window
                   if role == "label" and frame and name == frame]
    return faults


def tray_walk_faults(app, deadline):
    """Gives the tray picture the focus and presses Right: its name says position 2."""
    XK_RIGHT = 0xFF53
    picture = next(o for window in app if shown(window) for o, _ in walk(window)
                   if (o.name or "").startswith("Tray picture"))
    picture.queryComponent().grabFocus()
    while time.monotonic() < deadline:
        if picture.getState().contains(pyatspi.STATE_FOCUSED):
            pyatspi.Registry.generateKeyboardEvent(XK_RIGHT, None, pyatspi.KEY_SYM)
            break
        time.sleep(POLL_S)
    while time.monotonic() < deadline:
        if re.match(r"Tray picture, Position 2 of \d+: ", picture.name or ""):
            return []
        time.sleep(POLL_S)
    return ["the tray picture did not move to position 2 by the keyboard: %r" % picture.name]


def read_case(case, condition, shape, lumacfg, lumacfg_cli, demo, work):
    """The faults of the case's window in the condition ([] when none) and its shape. In the
    first condition the window is read once its samples are there; in another, once it shows as
    many controls as in the first (`shape`)."""
    env = station_environment(case, condition, lumacfg_cli, demo, work)
    command = [lumacfg, "--screenshot", os.path.join(work, "window.png"), "--hold", HOLD_S]
    if case.click:
        command += ["--click", case.click]
    if case.station == "unreadable":
        command = [lumacfg, "--quit-after-shown"]  # the message box waits for its OK
    if case.interactive:
        command = [lumacfg]
    # Its messages go to a file: a pipe nobody reads while it runs could fill and stop it.
    errors = tempfile.TemporaryFile(dir=work)
    program = subprocess.Popen(command, env=env, stdout=subprocess.DEVNULL, stderr=errors,
                               start_new_session=True)
    try:
        deadline = time.monotonic() + PATIENCE_S
        faults = ["the program's accessible tree never appeared"]
        while time.monotonic() < deadline and program.poll() is None:
            try:
                app = application_of(program.pid)
                windows = read_windows(app) if app is not None else []
                if windows and shape is None:
                    faults = sample_faults(case, windows)
                    if not any(f.startswith("no ") for f in faults):
                        faults += naming_faults(windows)
                        if case.walk_tray and not faults:
                            faults = tray_walk_faults(app, deadline)
                        return faults, shape_of(windows)
                elif windows:
                    if shape_of(windows) == shape:
                        return naming_faults(windows), shape
                    faults = ["it shows %s controls per window, in English %s"
                              % (shape_of(windows), shape)]
            except Exception as error:  # an object went away while read: read again
                faults = ["the tree could not be read: %s" % error]
            time.sleep(POLL_S)
        if program.poll() is not None:
            errors.seek(0)
            faults.append("the program ended early (%d): %s"
                          % (program.returncode, errors.read().decode(errors="replace")))
        return faults, None
    finally:
        stop(program)
        errors.close()


def stop(program):
    """Ends the program and what it started (its process group), by a signal."""
    for ending in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(program.pid, ending)
        except ProcessLookupError:
            break  # the whole group has ended
        try:
            program.wait(10)
            break
        except subprocess.TimeoutExpired:
            continue
    program.wait()


def main(arguments):
    if len(arguments) < 3:
        print(__doc__, file=sys.stderr)
        return 2
    lumacfg, lumacfg_cli, demo = (os.path.abspath(a) for a in arguments[:3])
    chosen = arguments[3:]
    pyatspi.Registry.getDesktop(0)  # the registry runs before the first program asks for it
    failed = 0
    with tempfile.TemporaryDirectory() as work:
        for case in CASES:
            if chosen and case.name not in chosen:
                continue
            shape = None  # the English window's, which the other conditions must match
            for condition in CONDITIONS:
                faults, shape = read_case(case, condition, shape, lumacfg, lumacfg_cli, demo,
                                          work)
                print("%s (%s, scale %s): %s" % (case.name, condition[0], condition[2],
                                                 "ok" if not faults else "FAILED"))
                for fault in faults:
                    print("    " + fault)
                failed += bool(faults)
                if shape is None:
                    break  # without the English window there is nothing to compare with
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
