#!/usr/bin/env python3
# Listens to what the program plays, at a sound server of its own: in the dialog that chooses a sound, and at a reminder.
# SPDX-License-Identifier: MIT
import array
import html
import math
import re
import subprocess
import wave

from case import DesktopCase, main
from screen import PATIENCE, running, until
from views import area, close, dialog

RATE = 8000  # samples a second
LENGTH = 5 * PATIENCE  # seconds: it doesn't end before somebody stops it
LOUD = 1000  # of 32767
EAR_SPAN = RATE // 10  # samples that are looked at together
SINK = "ears"
REMINDER = "Reminder of 1 to-do"
TO_DO = "Fish & <b>chips</b>"
SERVICE = ["--dest=org.freedesktop.Notifications", "--object-path=/org/freedesktop/Notifications"]
# The middle of the dialog's buttons: pixels from the left, and from the bottom.
PLAY, STOP = (104, 19), (130, 19)


class Ears:
    """A sound server; its environment is what programs need that play."""

    def __init__(self, home, stack):
        self.environment = {"PULSE_SERVER": f"unix:{home.folder}/run/sound"}
        everybody = {**home.environment, **self.environment}
        server = ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                  "--disallow-exit", f"--load=module-null-sink sink_name={SINK} rate={RATE}",
                  f"--load=module-native-protocol-unix auth-anonymous=1 socket={home.folder}/run/sound"]
        stack.enterContext(running(server, home.environment))
        self.call = lambda *words: subprocess.run(["pactl", *words], env=everybody, capture_output=True, text=True)
        until("the sound server", lambda: SINK in self.call("list", "short", "sinks").stdout)
        recorder = ["parec", f"--device={SINK}.monitor", "--format=s16le", "--channels=1", f"--rate={RATE}",
                    "--latency-msec=50"]
        self.recorder = stack.enterContext(running(recorder, everybody, stdout=subprocess.PIPE))

    def peak(self):
        """The loudest of the next samples."""
        samples = array.array("h", self.recorder.stdout.read(2 * EAR_SPAN))
        return max(map(abs, samples))

    def streams(self):
        return self.call("list", "short", "sink-inputs").stdout.split("\n")[:-1]

    def hear(self, what):
        until(f"{what} is heard", lambda: self.peak() > LOUD)
        assert self.streams(), "what is heard comes from nobody"

    def hear_nothing_after(self, what):
        until(f"it is silent after {what}", lambda: self.peak() == 0 and not self.streams())


class SoundTest(DesktopCase):
    def setUp(self):
        super().setUp()
        self.ears = Ears(self.home, self)
        self.sound = self.home.folder / "ring.wav"
        with wave.open(str(self.sound), "wb") as file:
            file.setparams((1, 2, RATE, 0, "NONE", ""))
            period = array.array("h", (int(20000 * math.sin(math.tau * i / 20)) for i in range(20)))
            file.writeframes(period.tobytes() * (RATE * LENGTH // len(period)))

    def press(self, dialog, button):
        """One of the dialog's own buttons, which stand below the files."""
        left, _, _, bottom = area(self.screen, dialog)
        self.screen.click(left + button[0], bottom - button[1])

    def is_playing_after_press(self, choice):
        """A press may only have closed the list of names that the dialog proposes."""
        if not self.ears.streams():
            self.press(choice, PLAY)
            self.screen.at_rest()
        return self.ears.streams()

    def choose_sound(self):
        """Turns reminders on and chooses a sound for them, which is played and stopped before."""
        options = dialog(self.screen, "ctrl+comma")
        self.screen.keys("ctrl+shift+Tab", "ctrl+shift+Tab", "Tab", "space")  # the page before the last, and its first box
        choice = dialog(self.screen, "alt+c")
        self.screen.type(str(self.sound))
        until("something plays", lambda: self.is_playing_after_press(choice))
        self.ears.hear("the sound in the dialog")
        self.press(choice, STOP)
        self.ears.hear_nothing_after("the stop")
        self.screen.focus("Open")
        close(self.screen, choice, "Return", back="Options")
        close(self.screen, options, "Return")

    def remind(self):
        """The window, in which a reminder with its sound is due."""
        return self.window("--now", "2026-11-25T10:00", **self.ears.environment)

    def ask_service(self, method):
        """What the desktop's notification service answers; empty while there is none."""
        return subprocess.run(["gdbus", "call", "--session", *SERVICE, f"--method=org.{method}"], capture_output=True,
                              text=True, env=self.home.environment).stdout

    def test_a_sound_is_tried_chosen_and_played_by_a_reminder(self):
        with self.window(**self.ears.environment):
            self.assertEqual(self.ears.peak(), 0)
            self.choose_sound()
            until("the options are kept", lambda: re.search("alarm-set +yes", self.home.orvo("options")))
        self.home.orvo("todo", "add", TO_DO, "--due", "2026-11-25")
        with self.remind():
            until("the reminder", lambda: self.screen.window(REMINDER))
            self.ears.hear("the reminder")
        self.ears.hear_nothing_after("the end")
        self.home.orvo("todo", "add", TO_DO, "--due", "2026-11-25")  # the first one was told
        with running(["dunst"], self.environment()):
            until("the notification service", lambda: self.ask_service("freedesktop.Notifications.GetServerInformation"))
            with self.remind():
                self.ears.hear("the reminder beside a notification")
            self.ask_service("dunstproject.cmd0.NotificationCloseAll")
            shown = until("the notification", lambda: self.ask_service("dunstproject.cmd0.NotificationListHistory"))
            self.assertIn(html.escape(TO_DO), shown)  # the service reads markup


if __name__ == "__main__":
    main()
