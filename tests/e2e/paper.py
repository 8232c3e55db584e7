"""What the print server of cups-lib.sh has printed, as its pages tell it."""

import os
import re
import subprocess

from bus import wait
from till import FOLDER

PAPER = f"{FOLDER}/cups/paper.pdf"


def printed():
    """The lines on paper, one blank between cells; the page is taken away."""
    def done():
        jobs = subprocess.run(["lpstat", "-W", "not-completed", "-o"], capture_output=True).stdout
        return not jobs and os.path.exists(PAPER) and os.path.getsize(PAPER) > 0
    wait("the printed page", done)
    text = subprocess.run(["pdftotext", "-layout", PAPER, "-"], check=True, capture_output=True,
                          text=True).stdout
    os.remove(PAPER)
    lines = [re.sub(" +", " ", line).strip() for line in text.replace("\f", "").splitlines()]
    return [line for line in lines if line]
