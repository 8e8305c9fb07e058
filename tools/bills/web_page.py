# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""A page that a browser lays out and draws, with a browser's fonts, line breaks and PDF files.

It offers what page.Page offers. Which piece of text ended up where is asked of the browser."""
import collections
import html
import json
import math
import os
import re
import subprocess
import tempfile

import cv2
import numpy
import pdf_files
import rows
from page import DoesNotFit

# Tells where each line of each element `data-p` stands. A line ends where the next letter is
# further left; blanks at the ends of lines belong to nobody.
MEASURING = """<pre id=pieces hidden></pre><script>
const pieces = [];
for (const [of, element] of document.querySelectorAll('[data-p]').entries()) {
  const walker = document.createTreeWalker(element, NodeFilter.SHOW_TEXT);
  let line = null;
  while (walker.nextNode()) {
    const node = walker.currentNode;
    const size = parseFloat(getComputedStyle(node.parentElement).fontSize);
    for (let i = 0; i < node.length; ++i) {
      const range = document.createRange();
      range.setStart(node, i);
      range.setEnd(node, i + 1);
      const box = range.getClientRects()[0];
      if (!box) continue;
      if (line && box.left < line.right - size) line = null;
      if (!line && node.data[i] === ' ') continue;
      if (!line) pieces.push(line = {of, text: '', left: box.left, right: 0, size: 0, baseline: 0});
      line.text += node.data[i];
      if (node.data[i] !== ' ') line.right = box.right;
      if (size > line.size) {
        line.size = size;
        line.baseline = (box.top + box.bottom) / 2 + 0.35 * size;
      }
    }
  }
}
const root = document.documentElement;
document.getElementById('pieces').textContent =
    JSON.stringify({pieces, width: root.scrollWidth, height: document.body.offsetHeight});
</script>"""


def css_color(color):
    return "rgb({})".format(",".join(str(round(255 * part)) for part in color))


class WebPage:
    """`write` says what is on the page; then it has a height.

    Lines are broken once, when the page is measured: how wide letters are, and so where a browser
    breaks lines, depends on the scale and on whether it prints."""

    def __init__(self, look, width):
        self.look, self.width, self.height = look, width, 0
        self.pieces, self._style, self._body = [], "", ""

    def write(self, style, body):
        """`body` is HTML in which `data-p` marks the elements that hold pieces of text. Only a
        `<p data-p>`, which holds nothing but text, may be broken into lines."""
        families = ",".join(f"'{name.strip()}'" for name in self.look.family.split(","))
        style = (f"body {{ margin: 0; display: flow-root; font: {self.look.size}px/1.5 {families}; "
                 f"color: {css_color(self.look.text)}; -webkit-print-color-adjust: exact }} "
                 f"html {{ background: {css_color(self.look.ground)} }} "
                 f"[data-p] {{ white-space: nowrap }} {style}")
        self._style, self._body = style + " p[data-p] { white-space: normal }", body
        told = json.loads(html.unescape(re.search(
            r'<pre id="pieces"[^>]*>(.*?)</pre>', self._browse(1, 600, "--dump-dom").decode(),
            re.DOTALL)[1]))
        self.height = told["height"]
        self.pieces = [rows.Piece(piece["text"].rstrip(), piece["left"], piece["right"],
                                  piece["baseline"], piece["size"]) for piece in told["pieces"]]
        if told["width"] > self.width or any(
                piece.left < 4 or piece.right > self.width - 4 for piece in self.pieces):
            raise DoesNotFit(body)
        lines = collections.defaultdict(list)
        for piece in told["pieces"]:
            lines[piece["of"]].append(html.escape(piece["text"].rstrip()))
        marks = iter(range(len(told["pieces"])))

        def broken(element):
            mark = next(marks)
            return f"<p data-p>{'<br>'.join(lines[mark])}</p>" if element[1] else element[0]

        self._style = style
        self._body = re.sub(r"(<p data-p>).*?</p>|<\w+ data-p", broken, body)

    def _browse(self, scale, height, action, out=None):
        """What the browser writes into the file `out`, or without one to its standard output."""
        paper = f"@page {{ size: {self.width}px {math.ceil(self.height)}px; margin: 0 }}"
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "bill.html"), "w", encoding="utf-8") as file:
                file.write(f"<!DOCTYPE html><html lang=zh-CN><meta charset=utf-8><title>Bill</title>"
                           f"<style>{paper} {self._style}</style><body>{self._body}{MEASURING}")
            told = subprocess.run(
                ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                 "--no-pdf-header-footer", f"--user-data-dir={folder}/profile",
                 f"--force-device-scale-factor={scale}",
                 f"--window-size={self.width},{math.ceil(height)}",
                 f"{action}={out}" if out else action, "bill.html"],
                check=True, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
            if not out:
                return told
            with open(os.path.join(folder, out), "rb") as file:
                return file.read()

    def rows(self):
        """The texts in reading order; refuses a page whose rows are not plain to see."""
        return rows.in_reading_order(self.pieces)

    def smallest_size(self):
        return min(piece.size for piece in self.pieces)

    def picture(self, scale):
        """The page's pixels at that scale, blue first."""
        png = self._browse(scale, self.height, "--screenshot", "bill.png")
        return cv2.imdecode(numpy.frombuffer(png, numpy.uint8), cv2.IMREAD_COLOR)

    def document(self):
        """The page as the browser prints it: a PDF file of one page."""
        return pdf_files.dated(self._browse(1, self.height, "--print-to-pdf", "bill.pdf"))
