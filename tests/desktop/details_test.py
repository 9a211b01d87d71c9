#!/usr/bin/env python3
# Shows the details of the selected entry beside the views.
# SPDX-License-Identifier: MIT
from case import DesktopCase, main
from screen import until

PANE = 240  # pixels at the right that are the pane's, at least


class DetailsTest(DesktopCase):
    def pane(self):
        """What stands at the right edge, below the rows of the list."""
        picture = self.screen.at_rest()
        return [picture.rgb[3 * (y * picture.width + 1000 - PANE):3 * (y * picture.width + 1000)]
                for y in range(160, 600)]

    def test_the_pane_follows_the_selection_and_is_there_again_at_the_next_start(self):
        self.add("Adams", **{f"phone{number}": "555" for number in range(1, 6)})
        self.add("Baker")
        for keys in (("F9", "Down"), ("Down",)):
            with self.window() as program:
                empty = self.pane()
                self.screen.keys(*keys)
                until("the pane shows who is selected", lambda: self.pane() != empty)
                first = self.pane()
                self.screen.keys("Down")
                until("the pane follows", lambda: self.pane() != first)
                self.quit(program)


if __name__ == "__main__":
    main()
