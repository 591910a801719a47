"""A display, a session bus, an accessibility bus, a window manager and a home, all of their own."""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:dir=%s</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""

# The keys of the window manager that the tests press; nothing of a user's own set-up.
WINDOW_MANAGER_CONFIG = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><followMouse>no</followMouse></focus>
  <desktops><number>1</number><popupTime>0</popupTime></desktops>
  <keyboard>
    <keybind key="A-F4"><action name="Close"/></keybind>
    <keybind key="A-F9"><action name="Iconify"/></keybind>
  </keyboard>
</openbox_config>
"""

PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def _end_with_parent():
    _libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL)


def demo_home_script():
    here = os.path.dirname(os.path.abspath(__file__))
    return os.path.normpath(os.path.join(here, "../../../scripts/make-demo-home"))


class World:
    """Made once per test; everything in it ends with it, and lies below one temporary folder."""

    def __init__(self, program, control, blocked=False):
        self.program = program
        self.control = control
        self.children = []
        # A short path: the names of sockets are limited.
        self.root = tempfile.mkdtemp(prefix="zolva-e2e-", dir="/tmp")
        self.home = os.path.join(self.root, "home")
        self.env = {}
        self.outer_env = {}
        try:
            self._make_home(blocked)
            self._start()
        except BaseException:
            self.close()
            raise

    def _make_home(self, blocked):
        args = [demo_home_script(), self.home, "--size", "small"]
        if blocked:
            args.append("--blocked")
        subprocess.run(args, check=True, stderr=subprocess.DEVNULL)
        for name in ("run", "tmp", "bus", "home/.cache"):
            os.mkdir(os.path.join(self.root, name), 0o700)
        home = self.home
        self.env = {
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LANG": "C.UTF-8",
            "HOME": home,
            "XDG_CONFIG_HOME": home + "/.config",
            "XDG_DATA_HOME": home + "/.local/share",
            "XDG_STATE_HOME": home + "/.local/state",
            "XDG_CACHE_HOME": home + "/.cache",
            "XDG_RUNTIME_DIR": os.path.join(self.root, "run"),
            "TMPDIR": os.path.join(self.root, "tmp"),
            "GSETTINGS_BACKEND": "memory",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_QPA_PLATFORM": "xcb",
            "LIBGL_ALWAYS_SOFTWARE": "1",
        }
        # What is around the program keeps its files elsewhere.
        outside = os.path.join(self.root, "outside")
        os.mkdir(outside)
        self.outer_env = {"PATH": self.env["PATH"], "LANG": "C.UTF-8", "HOME": outside,
                          "XDG_RUNTIME_DIR": self.env["XDG_RUNTIME_DIR"],
                          "GSETTINGS_BACKEND": "memory"}
        for name in ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS"):
            if name in os.environ:
                self.env[name] = os.environ[name]
        # What the drawing libraries keep to their end is not ours.
        self.env["ASAN_OPTIONS"] = self.env.get("ASAN_OPTIONS", "") + ":detect_leaks=0"

    def _start(self):
        self._tell_all("DISPLAY", self._start_display())
        self._tell_all("DBUS_SESSION_BUS_ADDRESS", self._start_bus())
        self.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        config = os.path.join(self.root, "window-manager.xml")
        with open(config, "w", encoding="utf-8") as out:
            out.write(WINDOW_MANAGER_CONFIG)
        ready = os.path.join(self.root, "window-manager-ready")
        self.spawn(["openbox", "--config-file", config, "--startup", "touch " + ready])
        self._until(lambda: os.path.exists(ready), "the window manager")

    def _tell_all(self, name, value):
        self.env[name] = self.outer_env[name] = value

    def _start_display(self):
        reading, writing = os.pipe()
        self.spawn(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x940x24",
                    "-nolisten", "tcp", "-noreset"], pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading) as told:
            number = told.readline().strip()
        if not number:
            raise RuntimeError("the display did not start")
        return ":" + number

    def _start_bus(self):
        config = os.path.join(self.root, "bus.xml")
        with open(config, "w", encoding="utf-8") as out:
            out.write(BUS_CONFIG % os.path.join(self.root, "bus"))
        bus = self.spawn(["dbus-daemon", "--config-file=" + config, "--print-address=1",
                          "--nofork", "--nopidfile"], stdout=subprocess.PIPE)
        address = bus.stdout.readline().decode().strip()
        if not address:
            raise RuntimeError("the session bus did not start")
        return address

    @staticmethod
    def _until(holds, what):
        deadline = time.monotonic() + 20
        while not holds():
            if time.monotonic() > deadline:
                raise RuntimeError("%s did not start" % what)
            time.sleep(0.02)

    def spawn(self, args, stdout=None, pass_fds=(), log=None, env=None):
        """A process that ends with the world, silent unless it is to be heard."""
        with open(log or os.devnull, "ab") as out:
            child = subprocess.Popen(args, env=env or self.outer_env, cwd=self.root, stdin=subprocess.DEVNULL,
                                     stdout=stdout or out, stderr=out, pass_fds=pass_fds,
                                     preexec_fn=_end_with_parent)
        self.children.append(child)
        return child

    def start_program(self, bound=False, delay_ms=0):
        """The program. `bound` makes permission bits bind it even for root; with a delay, every
        move of a file takes that long, so that a run lasts."""
        command = [self.program]
        if bound:
            command = self.bound_by_modes() + command
        if delay_ms:
            inject = "inject=renameat2:delay_enter=%d" % (delay_ms * 1000)
            command = ["strace", "-D", "-f", "--seccomp-bpf", "-qqq", "-o", "/dev/null",
                       "-e", "trace=renameat2", "-e", inject] + command
        return self.spawn(command, log=self.log_path(), env=self.env)

    @staticmethod
    def bound_by_modes():
        """What to put before a command so that no right overrides permission bits in it."""
        if os.geteuid() != 0:
            return []
        rights = "-dac_override,-dac_read_search,-fowner"
        return ["setpriv", "--bounding-set", rights, "--inh-caps", rights, "--"]

    def log_path(self):
        return os.path.join(self.root, "said")

    def said(self):
        """All that the program wrote to its output; it has nothing to say there."""
        try:
            with open(self.log_path(), encoding="utf-8", errors="replace") as said:
                return said.read()
        except FileNotFoundError:
            return ""

    def ask_control(self, *args):
        """What the command line tool of the same build prints, in this home."""
        done = subprocess.run([self.control, *args], env=self.env, check=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        return done.stdout.decode()

    def close(self):
        for child in reversed(self.children):
            if child.poll() is None:
                child.terminate()
                try:
                    child.wait(5)
                except subprocess.TimeoutExpired:
                    child.kill()
                    child.wait()
            if child.stdout:
                child.stdout.close()
        for folder, folders, _ in os.walk(self.root):
            for name in folders:
                path = os.path.join(folder, name)
                if not os.path.islink(path):
                    os.chmod(path, 0o700)
        shutil.rmtree(self.root, ignore_errors=True)
