"""The live state of the machine, against what the machine says itself."""

import os
import re
import shutil
import sys
import time

from driver.case import PATIENCE, WindowCase

BUSY = [sys.executable, "-c", "while True: pass"]


def memory():
    """Total and in use, in bytes."""
    with open("/proc/meminfo", encoding="ascii") as lines:
        fields = {line.split(":")[0]: int(line.split()[1]) * 1024 for line in lines}
    return fields["MemTotal"], fields["MemTotal"] - fields["MemAvailable"]


def cpu_times():
    """Ticks that were used, and all."""
    with open("/proc/stat", encoding="ascii") as lines:
        user, nice, system, idle, wait, irq, soft, stolen = map(int, lines.readline().split()[1:9])
    used = user + nice + system + irq + soft + stolen
    return used, used + idle + wait


class StatusCase(WindowCase):

    def tile(self, name):
        """What a screen reader says to a tile's name, or nothing."""
        try:
            found = list(self.window().find_all("label", name))
            return found[0].description if found else ""
        except IndexError:
            return ""

    def wait_tile(self, name, pattern=".", seconds=PATIENCE):
        return self.wait(lambda: re.search(pattern, self.tile(name)), "the tile " + name, seconds)

    def listen(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.bus.next_event()

    def streams(self):
        """The runs of the tool that this program has started and that go on."""
        path = "/proc/%d/task/%d/children" % (self.process.pid, self.process.pid)
        with open(path, encoding="ascii") as children:
            pids = children.read().split()
        found = []
        for pid in pids:
            try:
                with open("/proc/%s/cmdline" % pid, "rb") as line:
                    words = line.read().split(b"\0")
            except FileNotFoundError:
                continue
            if b"status" in words:
                found.append(words[-2].decode())
        return found


class Status(StatusCase):

    def test_its_figures_are_those_of_the_machine(self):
        self.start()
        self.go("Status")
        self.wait_tile("CPU")

        health = re.fullmatch(r"(\d+) / 100\. (.+)", self.tile("Health"))
        self.assertTrue(health and 0 <= int(health[1]) <= 100, self.tile("Health"))

        total, used = memory()
        told = re.fullmatch(r"([\d.]+) of (\d+) GB\. .+", self.tile("Memory"))
        self.assertEqual(int(told[2]), round(total / 1e9))
        self.assertAlmostEqual(float(told[1]), used / 1e9, delta=1)

        told = re.fullmatch(r"\d+%\. Load ([\d.]+) · ([\d.]+) · ([\d.]+)", self.tile("CPU"))
        for one, real in zip(told.groups(), os.getloadavg()):
            self.assertAlmostEqual(float(one), real, delta=max(1.0, real / 4))

        place = os.statvfs(self.world.home)
        free, size = place.f_bavail * place.f_frsize, place.f_blocks * place.f_frsize
        told = re.fullmatch(r"(\d+) GB\. (\d+)% of (\d+) GB", self.tile("Free space"))
        self.assertAlmostEqual(int(told[1]), free / 1e9, delta=2)
        self.assertAlmostEqual(int(told[2]), free / size * 100, delta=2)
        self.assertEqual(int(told[3]), round(size / 1e9))

        footer = next(line for line in self.window().said() if "Polled live" in line)
        self.assertRegex(footer, r"^label: Polled live from mo\. .+ · uptime .+\. "
                                 r"Zolva reads status only\.$")

    def test_a_busy_processor_is_seen(self):
        self.start()
        self.go("Status")
        self.wait_tile("CPU")
        for _ in range(os.cpu_count()):
            self.world.spawn(BUSY)
        self.wait_tile("CPU", r"^(9\d|100)%")
        # Over the same seconds.
        before = cpu_times()
        time.sleep(3)
        used, whole = (now - then for now, then in zip(cpu_times(), before))
        told = int(re.match(r"\d+", self.tile("CPU"))[0])
        self.assertAlmostEqual(told, used / whole * 100, delta=10)
        chart = self.node("chart", "Last 60 seconds")
        self.assertRegex(chart.description,
                         r"^CPU \d+%, highest (9\d|100)%\. Memory \d+%, highest \d+%$")

    def test_the_page_says_no_more_than_its_tiles_chart_and_footer(self):
        self.start()
        self.go("Status")
        self.wait_tile("CPU")
        page = [re.sub(r" \| .*", "", line) for line in self.window().said()
                if line not in self.sidebar("Status")]
        self.assertEqual(page[:-1], ["heading: Status", "label: Health", "label: CPU",
                                     "label: Memory", "label: Free space",
                                     "chart: Last 60 seconds"])
        self.assertIn("Polled live from mo.", page[-1])

    def test_a_reader_hears_once_of_each_tile_and_not_of_all_its_parts(self):
        # Nothing else is told: no load is above that.
        self.world.ask_control("prefs", "set", "diskThreshold", "100")
        self.start()
        self.go("Status")
        self.wait_tile("CPU")
        for _ in range(os.cpu_count()):
            self.world.spawn(BUSY)
        self.wait_tile("CPU", r"^(9\d|100)%")
        self.listen(2)  # to what came before
        before, since = self.bus.events, time.monotonic()
        self.listen(5)
        samples = int(time.monotonic() - since) + 2
        # Four tiles, the chart, and now and then the footer.
        self.assertLessEqual(self.bus.events - before, samples * 5 + 1)

    def test_the_tool_runs_only_while_the_screen_is_in_sight(self):
        window = self.start()
        self.assertEqual(self.streams(), [])
        self.go("Status")
        self.wait_tile("CPU")
        self.assertEqual(self.streams(), ["1s"])
        self.bus.type_key("Alt", "F9")
        self.wait(lambda: not self.streams(), "the end of the tool")
        self.assert_ends(self.world.start_program())
        self.wait(lambda: "active" in window.states, "the window in front again")
        self.wait(self.streams, "the tool once more")
        self.go("Home")
        self.wait(lambda: not self.streams(), "the end of the tool")

    def test_a_busy_minute_warns_and_leads_to_the_settings(self):
        self.world.ask_control("prefs", "set", "diskThreshold", "50")
        self.start()
        self.go("Status")
        for _ in range(os.cpu_count()):
            self.world.spawn(BUSY)
        toast = self.node("alert message", "CPU has been above 50% for a minute.")
        self.button("Adjust threshold", inside=toast).press()
        self.wait_for_screen("Settings")


class Missing(StatusCase):
    """A program of which the tool can be taken away."""

    def setUp(self):
        super().setUp()
        place = os.path.dirname(os.path.dirname(self.world.program))
        moved = os.path.join(self.world.root, "program")
        os.makedirs(os.path.join(moved, "bin"))
        program = os.path.join(moved, "bin", "zolva")
        try:
            os.link(self.world.program, program)
        except OSError:
            shutil.copy2(self.world.program, program)
        self.world.program = program
        self.tool = os.path.join(moved, "share/zolva/mole")
        shutil.copytree(os.path.join(place, "share/zolva/mole"), self.tool)

    def test_retry_reads_on_as_soon_as_the_tool_is_there_again(self):
        self.start()
        os.rename(self.tool, self.tool + ".away")
        self.go("Status")
        card = self.node("alert message", "mo isn’t installed")
        self.assertEqual(self.tile("CPU"), "")
        self.button("Retry", inside=card).press()
        card = self.node("alert message", "mo isn’t installed")
        os.rename(self.tool + ".away", self.tool)
        self.button("Retry", inside=card).press()
        self.wait_tile("CPU")
        self.assertEqual(list(self.window().find_all("alert message")), [])

    def test_a_tool_that_complains_is_heard(self):
        with open(os.path.join(self.tool, "bin/mole"), "w", encoding="ascii") as tool:
            tool.write("#!/bin/sh\necho 'the sensors are asleep' >&2\nexit 3\n")
        self.start()
        self.go("Status")
        self.node("alert message", "the sensors are asleep")

    def test_without_any_tool_everything_else_goes_on(self):
        shutil.rmtree(self.tool)
        self.start()
        self.node("label", "Zolva %s\nmo — · Not found" % self.versions()[0])
        self.go("Status")
        self.node("alert message", "mo isn’t installed")
        self.go("Home")
        self.button("Scan").press()
        self.button("Review Clean")
