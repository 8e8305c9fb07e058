# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Documents by other programs, other kinds of scans, and such as would keep a reader busy for ever."""
import re

import cv2
import pdf_files
import pdf_writers
from pdf_files import Blank, Fax, LosslessScan, Packed, Scan
from sample_pdfs import truth_of

# What the standard encoding of PDF fonts calls letters that ASCII does not have.
STANDARD_ENCODING = {"•": b"\267", "–": b"\261", "¥": b"\245", "£": b"\243"}


def grey(page):
    """The page at 150 dots an inch."""
    return cv2.cvtColor(page.picture(1240 / page.width), cv2.COLOR_BGR2GRAY)


def invisible_text(page, size):
    """A content stream that puts the page's texts where they are, without showing them."""
    scale, lines = size[0] / page.width, [b"BT 3 Tr"]
    for piece in page.pieces:
        text = b"".join(STANDARD_ENCODING.get(letter) or letter.encode("ascii") for letter in piece.text)
        text = re.sub(rb"([()\\])", rb"\\\1", text)
        lines.append(b"/F %.2f Tf 1 0 0 1 %.2f %.2f Tm (%s) Tj" % (
            piece.size * scale, piece.left * scale, size[1] - piece.baseline * scale, text))
    return b"\n".join([*lines, b"ET"])


def add(samples):
    def bill(layout, seed="odd pdf"):
        page, truth, _ = samples.bill(f"{seed} {layout}", layout)
        return page, truth

    def keep(name, data, purpose, *truths):
        samples.add(f"pdf/{name}.pdf", data, purpose, truth_of(*truths) if truths else None)

    for layout, name in (("web-store-receipt", "receipt"), ("web-account", "account"),
                         ("web-payment-mail", "mail"), ("web-carrier-bill", "carrier-bill")):
        page, truth = bill(layout)
        keep(f"browser-{name}", page.document(), "a browser's print of a whole page", truth)
    statement, statement_truth = bill("statement")
    keep("written-by-qt", pdf_writers.by_qt(statement), "Qt's text layer", statement_truth)
    paper, paper_truth = bill("paper-invoice")
    keep("rewritten-by-ghostscript", pdf_writers.by_ghostscript(paper.document()),
         "Ghostscript's text layer", paper_truth)

    invoice, invoice_truth = bill("service-invoice", "searchable")
    text = invisible_text(invoice, Scan(grey(invoice)).size)
    keep("searchable-scan", pdf_files.scanned([Scan(grey(invoice), text=text)]),
         "a scan with its texts, invisible, above it", invoice_truth)
    keep("fax", pdf_files.scanned([Fax(grey(invoice))]), "a scan in black and white, packed as a "
         "fax machine does", invoice_truth)
    keep("scanned-without-loss", pdf_files.scanned([LosslessScan(grey(paper))]),
         "a scan packed without loss", paper_truth)

    keep("enormous-page", pdf_files.scanned([Blank((14400, 14400))]),
         "nothing on a page of five metres by five")
    keep("picture-of-900-megabytes", pdf_files.scanned([Packed(30000, 30000, (595, 595))]),
         "a flat picture of 900 million pixels in a file of a few kilobytes")
    keep("page-tree-in-a-circle", re.sub(rb"/Kids \[\d+ 0 R\]", b"/Kids [2 0 R]",
                                         pdf_files.scanned([Blank()])),
         "the page tree's only child is the page tree")
