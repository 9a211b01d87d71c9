# A desktop whose mail program is a script that keeps what it is asked to open.
# SPDX-License-Identifier: MIT
import urllib.parse


class MailProgram:
    """Lies in a folder of its own; `environment` makes it the user's mail program."""

    def __init__(self, folder):
        self.received = folder / "received"
        applications = folder / "data/applications"
        applications.mkdir(parents=True)
        composer = folder / "composer.sh"
        composer.write_text(f"#!/bin/sh\nprintf %s \"$1\" >'{self.received}.part'\n"
                            f"mv '{self.received}.part' '{self.received}'\n")
        composer.chmod(0o700)
        (applications / "composer.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Composer\nExec={composer} %u\n"
            "MimeType=x-scheme-handler/mailto;\n")
        (folder / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/mailto=composer.desktop\n")
        self.environment = {"BROWSER": "no-such-browser", "XDG_CONFIG_HOME": str(folder),
                            "XDG_DATA_HOME": str(folder / "data"), "XDG_CURRENT_DESKTOP": "X-Generic"}

    def message(self):
        """The recipients, and the fields of the message."""
        uri = urllib.parse.urlsplit(self.received.read_text())
        assert uri.scheme == "mailto", uri
        return urllib.parse.unquote(uri.path), urllib.parse.parse_qs(uri.query)
